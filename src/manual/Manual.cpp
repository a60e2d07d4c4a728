#include "manual/Manual.h"

#include <QFile>
#include <QHash>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

// The pages lie in a static library, whose resources nobody else would take up.
static void TakeUpPages() {
    Q_INIT_RESOURCE(manual);
}

namespace {

struct ScreenPage {
    const char* screen;
    const char* page;
};

constexpr ScreenPage kScreenPages[] = {
    {"SignOnDialog", "sign-on"},
    {"frmMain", "main-window"},
    {"frmSetup", "setup"},
    {"frmAbout", "about"},
    {"frmPostCharges", "charges"},
    {"frmSearchPatient", "patient-list"},
    {"frmSearch", "pick-lists"},
    {"PickDialog", "pick-lists"},
    {"frmAssessment", "assessment"},
    {"frmCashWalkIn", "cash-patients"},
    {"frmCashWalkInPatient", "walk-in"},
    {"frmAssessStatus", "assessment-status"},
    {"frmListCharges", "list-of-charges"},
    {"frmReportRange", "report-days"},
    {"ReportParameters", "report-days"},
    {"frmLedger", "ledger"},
    {"frmCensus", "census"},
    {"frmReportviewer", "viewer"},
    {"frmReport", "viewer"},
    {"frmNursingRequest", "requests"},
    {"frmWalkInUpdate", "walk-in-update"},
    {"frmRegisteredOPD", "registered-outpatients"},
    {"frmARPatients", "billed-patients"},
    {"frmCashPatients", "older-cash-patients"},
    {"frmWalkIn", "older-cash-patients"},
    {"frmRates", "rates"},
    {"frmReprint", "reprint"},
    {"frmSearcher", "examinations"},
};

ManualPage ReadPage(const QString& name) {
    QFile file(QLatin1StringView(kManualFolder) + name + u".md"_s);
    const bool isThere = file.open(QIODevice::ReadOnly);
    ManualPage page{.name = name, .title = {}, .markdown = QString()};
    if (!isThere)
        return page;
    page.markdown = QString::fromUtf8(file.readAll());
    page.title = page.markdown.section(u'\n', 0, 0).remove(u"# "_s);
    return page;
}

std::vector<ManualPage> ReadPages() {
    TakeUpPages();
    std::vector<ManualPage> pages = {ReadPage(QString::fromLatin1(kContentsPage))};
    static const QRegularExpression link(u"\\]\\(([a-z-]+)\\.md\\)"_s);
    const QString contents = pages.front().markdown;
    auto found = link.globalMatch(contents);
    while (found.hasNext()) {
        const QString name = found.next().captured(1);
        const auto isIt = [&name](const ManualPage& page) { return page.name == name; };
        if (std::none_of(pages.begin(), pages.end(), isIt))
            pages.push_back(ReadPage(name));
    }
    return pages;
}

} // namespace

const std::vector<ManualPage>& ManualPages() {
    static const std::vector<ManualPage> pages = ReadPages();
    return pages;
}

const ManualPage* PageOfScreen(const QString& screen) {
    const auto told =
        std::find_if(std::begin(kScreenPages), std::end(kScreenPages),
                     [&screen](const ScreenPage& row) { return screen == QLatin1StringView(row.screen); });
    if (told == std::end(kScreenPages))
        return nullptr;
    const std::vector<ManualPage>& pages = ManualPages();
    const auto page = std::find_if(pages.begin(), pages.end(), [told](const ManualPage& one) {
        return one.name == QLatin1StringView(told->page);
    });
    return page == pages.end() ? nullptr : &*page;
}

QString ShownMarkdown(const QString& markdown) {
    QString shown = markdown;
    return shown.replace(u"<kbd>"_s, u"`"_s).replace(u"</kbd>"_s, u"`"_s);
}

bool HasText(const ManualPage& page, const QString& text) {
    // A line's end and the marks around words are no part of what is read.
    static const QRegularExpression marks(u"[*`|]|</?kbd>"_s);
    QString plain = page.markdown;
    return plain.remove(marks).simplified().contains(text.simplified(), Qt::CaseInsensitive);
}
