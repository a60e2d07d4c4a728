#include "support/FakeWorkspace.h"

FakeWorkspace::FakeWorkspace()
    : mArea(new QMdiArea(this)) {
    setObjectName(QStringLiteral("FakeWorkspace"));
    setCentralWidget(mArea);
    resize(1000, 700);
    Workspace::SetCurrent(this);
}

FakeWorkspace::~FakeWorkspace() {
    Workspace::SetCurrent(nullptr);
}
