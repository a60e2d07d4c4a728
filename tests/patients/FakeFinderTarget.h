#pragma once

#include "patients/FinderTarget.h"

#include <QString>

#include <map>
#include <vector>

/// A screen that waits for the patient finder and writes down what it is given.
class FakeFinderTarget : public FinderTarget {
  public:
    QString finderText;
    std::map<QString, QString> boxes;
    /// The boxes' names in the order in which they were filled.
    std::vector<QString> order;
    int picked = 0;

    QString FinderText() const override { return finderText; }
    void SetBox(const QString& name, const QString& text) override {
        boxes[name] = text;
        order.push_back(name);
    }
    void Picked() override { ++picked; }
};
