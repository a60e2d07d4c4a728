#pragma once

#include "toolkit/Workspace.h"

#include <QMainWindow>
#include <QMdiArea>
#include <QString>

#include <utility>
#include <vector>

/// A main window without a menu: the area in which screens show, and a record of the menu items switched. It
/// is the program's workspace while it lives.
class FakeWorkspace : public QMainWindow, public Workspace {
  public:
    FakeWorkspace();
    ~FakeWorkspace() override;

    QMdiArea* Area() override { return mArea; }
    void EnableMenuItem(const QString& name, bool enabled) override { menuItems.emplace_back(name, enabled); }

    std::vector<std::pair<QString, bool>> menuItems;

  private:
    QMdiArea* mArea;
};
