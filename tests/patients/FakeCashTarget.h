#pragma once

#include "patients/CashTarget.h"

#include <QString>

#include <map>
#include <vector>

/// An assessment that waits for the cash patient list and writes down what it is given.
class FakeCashTarget : public CashTarget {
  public:
    /// The patient type option that is on, -1 for none.
    int typeOn = -1;
    int enabled = 0;
    std::map<QString, QString> boxes;
    /// What was done, in order.
    std::vector<QString> order;

    bool PatientTypeOn(int index) const override { return index == typeOn; }
    void EnableExams() override {
        ++enabled;
        order.push_back(QStringLiteral("fraExams"));
    }
    void SetBox(const QString& name, const QString& text) override {
        boxes[name] = text;
        order.push_back(name);
    }
};
