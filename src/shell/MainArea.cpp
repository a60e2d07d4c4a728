#include "shell/MainArea.h"

#include "toolkit/Controls.h"
#include "toolkit/Look.h"

#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QScrollBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// Beside the control that is brought into the area.
constexpr QMargins kMargin(Space::kNormal, Space::kNormal, Space::kNormal, Space::kNormal);

} // namespace

MainArea::MainArea(QWidget* parent)
    : QMdiArea(parent)
    , mPanel(new QFrame(viewport())) {
    setObjectName(u"Area"_s);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    // A clerk who gave one screen the whole area has not given it to the next one.
    setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
    // Once a screen that is about to be shown stands in its size.
    connect(
        qApp, &QApplication::focusChanged, this, [this] { Reveal(QApplication::focusWidget()); },
        Qt::QueuedConnection);
    mPanel->setObjectName(u"WhereOneIs"_s);
    // A click beside the screens is one on the area, whatever is told there.
    mPanel->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto* lines = new QVBoxLayout(mPanel);
    lines->setSpacing(Space::kNormal);
    lines->setSizeConstraint(QLayout::SetFixedSize);
    mPanel->hide();
}

void MainArea::Tell(const WhereOneIs& where) {
    if (where.isTrial) {
        QLabel* trial = AddLine(u"lblTrial"_s, u"TRIAL"_s);
        trial->setProperty("trial", true);
        AddLine(u"lblTrialMeans"_s, u"Nothing that is keyed here reaches a patient's account."_s);
    }
    AddLine(u"lblHospital"_s, where.hospital)->setProperty("heading", true);
    AddLine(u"lblDepartment"_s, u"Department: "_s + where.department);
    AddLine(u"lblDataSource"_s, u"Data source: "_s + where.dataSource);
    AddLine(u"lblUser"_s, u"User: "_s + where.user);
    mPanel->layout()->addItem(new QSpacerItem(0, Space::kWide));
    AddLine(u"lblBegin"_s, u"To begin, press Alt+Q and choose with the arrow keys and Enter."_s);
    mPanel->show();
    PlacePanel();
}

QLabel* MainArea::AddLine(const QString& name, const QString& text) {
    auto* line = new QLabel(text, mPanel);
    line->setObjectName(name);
    // What a hospital is called is no markup.
    line->setTextFormat(Qt::PlainText);
    line->setAlignment(Qt::AlignCenter);
    mPanel->layout()->addWidget(line);
    return line;
}

/// Brings the control with the focus into the area, where its screen is larger than that.
void MainArea::Reveal(const QWidget* focus) {
    if (!focus || !viewport()->isAncestorOf(focus))
        return;
    const QRect place = QRect(focus->mapTo(viewport(), QPoint()), focus->size()).marginsAdded(kMargin);
    const auto into = [](QScrollBar& bar, int first, int last, int room) {
        // What is larger than the area shows its beginning.
        if (first < 0 || last - first > room)
            bar.setValue(bar.value() + first);
        else if (last > room)
            bar.setValue(bar.value() + last - room);
    };
    into(*horizontalScrollBar(), place.left(), place.right() + 1, viewport()->width());
    into(*verticalScrollBar(), place.top(), place.bottom() + 1, viewport()->height());
}

void MainArea::resizeEvent(QResizeEvent* event) {
    QMdiArea::resizeEvent(event);
    PlacePanel();
}

/// The viewport takes all its children along when it is scrolled; what is told stays in the middle.
void MainArea::scrollContentsBy(int dx, int dy) {
    QMdiArea::scrollContentsBy(dx, dy);
    PlacePanel();
}

void MainArea::PlacePanel() {
    mPanel->adjustSize();
    mPanel->move((viewport()->width() - mPanel->width()) / 2, (viewport()->height() - mPanel->height()) / 2);
    mPanel->lower();
}
