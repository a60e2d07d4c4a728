#include "screens/ControlKind.h"

#include "report/viewer/ReportViewer.h"
#include "shell/StatusPanel.h"
#include "toolkit/DatePicker.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/ListView.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTextEdit>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

#include <array>

using namespace Qt::StringLiterals;

namespace {

template <class... Controls> bool Is(const QObject& control) {
    return (qobject_cast<const Controls*>(&control) || ...);
}

template <class Control, auto text> QString Caption(const QObject& control) {
    return (static_cast<const Control&>(control).*text)();
}

QString IntervalOf(const QObject& timer) {
    return u"%1 ms"_s.arg(static_cast<const QTimer&>(timer).interval());
}

constexpr std::array kKinds = {
    ControlKind{"label", Is<QLabel>, Caption<QLabel, &QLabel::text>},
    ControlKind{"frame", Is<QGroupBox>, Caption<QGroupBox, &QGroupBox::title>},
    ControlKind{"picture", Is<QFrame>, nullptr},
    ControlKind{"bar", Is<QToolBar, QStatusBar>, nullptr},
    ControlKind{"panel", Is<StatusPanel>, Caption<StatusPanel, &StatusPanel::Text>},
    ControlKind{"timer", Is<QTimer>, IntervalOf},
    ControlKind{"button", Is<QPushButton>, Caption<QPushButton, &QPushButton::text>},
    ControlKind{"option", Is<QRadioButton>, Caption<QRadioButton, &QRadioButton::text>},
    ControlKind{"check box", Is<QCheckBox>, Caption<QCheckBox, &QCheckBox::text>},
    ControlKind{"tool button", Is<QToolButton>, Caption<QToolButton, &QToolButton::toolTip>},
    ControlKind{"dropdown item", Is<QAction>, Caption<QAction, &QAction::text>},
    ControlKind{"text box", Is<QLineEdit>, nullptr},
    ControlKind{"combo", Is<QComboBox>, nullptr},
    ControlKind{"date picker", Is<DatePicker>, nullptr},
    ControlKind{"grid", Is<FlexGrid>, nullptr},
    ControlKind{"list", Is<ListView>, nullptr},
    ControlKind{"tabs", Is<QTabWidget>, nullptr},
    ControlKind{"viewer", Is<ReportViewer>, nullptr},
};

bool TakesInput(const QWidget& control) {
    return Is<QAbstractButton, QLineEdit, QComboBox, QAbstractSpinBox, QAbstractItemView, QTextEdit>(control);
}

} // namespace

const ControlKind* ControlKind::Named(const QString& word) {
    const auto* kind = std::ranges::find_if(
        kKinds, [&](const ControlKind& known) { return QString::fromLatin1(known.word) == word; });
    return kind == kKinds.end() ? nullptr : kind;
}

bool IsInput(const QWidget& control) {
    // The buttons that a bar shows when it is too narrow are its own, and it names them so.
    if (!TakesInput(control) || control.objectName().startsWith(u"qt_"_s))
        return false;
    for (const QWidget* part = control.parentWidget(); part; part = part->parentWidget())
        if (TakesInput(*part) || Is<QTabBar>(*part))
            return false;
    return true;
}

QString SpokenName(QWidget& control) {
    // A combo reads out its choice where its name is asked for; the name that it was given comes before it.
    if (!control.accessibleName().isEmpty())
        return control.accessibleName();
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&control);
    return spoken ? spoken->text(QAccessible::Name) : QString();
}
