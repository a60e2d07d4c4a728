#include "screens/ScreenWalk.h"

#include "screens/ControlKind.h"
#include "toolkit/TextBox.h"

#include <QAction>
#include <QLabel>
#include <QRadioButton>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString YesOrNo(bool yes) {
    return yes ? u"yes"_s : u"no"_s;
}

bool IsVisible(const QObject& control) {
    if (const auto* action = qobject_cast<const QAction*>(&control))
        return action->isVisible();
    const auto* widget = qobject_cast<const QWidget*>(&control);
    return widget && widget->isVisible();
}

bool IsEnabled(const QObject& control) {
    if (const auto* action = qobject_cast<const QAction*>(&control))
        return action->isEnabled();
    if (const auto* timer = qobject_cast<const QTimer*>(&control))
        return timer->isActive();
    const auto* widget = qobject_cast<const QWidget*>(&control);
    return widget && widget->isEnabled();
}

bool HasLetter(const QString& text) {
    return std::ranges::any_of(text, [](QChar c) { return c.isLetter(); });
}

/// Tab comes to one option of a group, whichever is on; here they all count.
bool IsTabStop(const QWidget& control) {
    return IsInput(control) &&
           ((control.focusPolicy() & Qt::TabFocus) != 0 || qobject_cast<const QRadioButton*>(&control));
}

} // namespace

ScreenWalk::ScreenWalk(const QWidget& screen, const ScreenSection& section)
    : mScreen(screen)
    , mSection(section) {}

QStringList ScreenWalk::Faults() {
    mFaults.clear();
    CheckTitle();
    for (const ControlRow& row : mSection.rows)
        CheckRow(row);
    CheckInputs();
    CheckTabOrder();
    return mFaults;
}

void ScreenWalk::CheckTitle() {
    if (mSection.title && mScreen.windowTitle() != *mSection.title)
        mFaults << u"the title is \"%1\", not \"%2\""_s.arg(mScreen.windowTitle(), *mSection.title);
}

void ScreenWalk::CheckRow(const ControlRow& row) {
    QObject* control = ControlOf(row);
    if (!control)
        return;
    if (row.caption)
        CheckCaption(row, *control);
    CheckState(row, *control);
}

QObject* ScreenWalk::ControlOf(const ControlRow& row) {
    const QList<QObject*> found = Candidates(row);
    if (found.size() == 1)
        return found.front();
    Add(row, u"%1 controls of that name and kind"_s.arg(found.size()));
    return nullptr;
}

QList<QObject*> ScreenWalk::Candidates(const ControlRow& row) const {
    const ControlKind& kind = *ControlKind::Named(row.kind);
    QList<QObject*> found =
        row.name.isEmpty() ? mScreen.findChildren<QObject*>() : mScreen.findChildren<QObject*>(row.name);
    found.removeIf([&](const QObject* control) {
        return !kind.is(*control) || (row.name.isEmpty() && kind.caption(*control) != row.caption);
    });
    return found;
}

void ScreenWalk::CheckCaption(const ControlRow& row, QObject& control) {
    const ControlKind& kind = *ControlKind::Named(row.kind);
    if (!kind.caption)
        CheckLabel(row, static_cast<QWidget&>(control));
    else if (const QString caption = kind.caption(control); caption != *row.caption)
        Add(row, u"says \"%1\", not \"%2\""_s.arg(caption, *row.caption));
}

void ScreenWalk::CheckLabel(const ControlRow& row, QWidget& input) {
    const QLabel* label = LabelOf(input);
    if (!label)
        return Add(row, u"no label is its own; \"%1\" is wanted"_s.arg(*row.caption));
    if (label->text() != *row.caption)
        Add(row, u"its label says \"%1\", not \"%2\""_s.arg(label->text(), *row.caption));
    if (label->isVisible() != input.isVisible())
        Add(row, u"its label is not seen where it is, or the other way round"_s);
    if (SpokenName(input).trimmed() != row.caption->trimmed())
        Add(row, u"is read out as \"%1\", not as its label"_s.arg(SpokenName(input)));
}

const QLabel* ScreenWalk::LabelOf(const QWidget& input) const {
    const auto labels = mScreen.findChildren<QLabel*>();
    const auto label =
        std::ranges::find_if(labels, [&](const QLabel* one) { return one->buddy() == &input; });
    return label == labels.end() ? nullptr : *label;
}

void ScreenWalk::CheckState(const ControlRow& row, const QObject& control) {
    if (row.visible && IsVisible(control) != *row.visible)
        Add(row, u"visible is %1, not %2"_s.arg(YesOrNo(IsVisible(control)), YesOrNo(*row.visible)));
    if (row.enabled && IsEnabled(control) != *row.enabled)
        Add(row, u"enabled is %1, not %2"_s.arg(YesOrNo(IsEnabled(control)), YesOrNo(*row.enabled)));
}

void ScreenWalk::CheckInputs() {
    QStringList known = mSection.own;
    for (const ControlRow& row : mSection.rows)
        known << row.name;
    for (QWidget* control : mScreen.findChildren<QWidget*>()) {
        if (!IsInput(*control))
            continue;
        const QString name = control->objectName();
        if (name.isEmpty())
            mFaults << u"an input without a name, read out as \"%1\""_s.arg(SpokenName(*control));
        else if (!known.contains(name))
            mFaults << u"%1: not in the table"_s.arg(name);
        if (qobject_cast<QLineEdit*>(control) && !qobject_cast<TextBox*>(control))
            mFaults << u"%1: a box that takes what is pasted as it is"_s.arg(name);
        if (!HasLetter(SpokenName(*control)))
            mFaults << u"%1: read out as \"%2\", which says nothing"_s.arg(name, SpokenName(*control));
    }
    for (const QString& name : mSection.own)
        if (!mScreen.findChild<QWidget*>(name))
            mFaults << u"%1: no control of that name"_s.arg(name);
}

void ScreenWalk::CheckTabOrder() {
    QStringList wanted;
    QStringList open = mSection.own;
    for (const ControlRow& row : mSection.rows)
        if (!row.isTabStop)
            open << row.name;
        else if (*row.isTabStop)
            wanted << row.name;
    QStringList stops = TabStops();
    stops.removeIf([&](const QString& name) { return open.contains(name); });
    // The round begins with whatever is active; only the order counts.
    if (const qsizetype first = wanted.isEmpty() ? -1 : stops.indexOf(wanted.front()); first > 0)
        std::rotate(stops.begin(), stops.begin() + first, stops.end());
    if (stops != wanted)
        mFaults << u"Tab goes %1, not %2"_s.arg(stops.join(u", "_s), wanted.join(u", "_s));
}

QStringList ScreenWalk::TabStops() const {
    QStringList stops;
    for (const QWidget* control = mScreen.nextInFocusChain(); control != &mScreen;
         control = control->nextInFocusChain())
        if (mScreen.isAncestorOf(control) && IsTabStop(*control))
            stops << control->objectName();
    return stops;
}

void ScreenWalk::Add(const ControlRow& row, const QString& what) {
    const QString name = row.name.isEmpty() ? u"\"%1\""_s.arg(*row.caption) : row.name;
    mFaults << u"line %1: %2: %3"_s.arg(row.line).arg(name, what);
}
