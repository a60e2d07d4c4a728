#include "catalogue/commands.h"

#include "gateway/CommandText.h"

QString ExactRevenueCommand(const QString& code) {
    return CommandText(u"Clinical_Area..spEarCare_SearchRevenue '1','{}'", {code});
}

QString PartialRevenueCommand(const QString& text) {
    return CommandText(u"Clinical_Area..spEarCare_SearchRevenue '2','{}'", {text});
}

QString RevenueListQuery() {
    return CommandText(u"Clinical_Area..spEarCare_SearchRevenue '0','##'");
}

QString RatesCommand(const QString& revenueID) {
    return CommandText(u"Hemodialysis..spKidney_Rates '{}'", {revenueID});
}

QString UltraExamsCommand() {
    // Kept: the first heading is misspelled.
    return CommandText(
        u"select ultraexam as UtraExam, ultraexamid as UltraExamId from build_file..tbcoultraexam");
}

QString SearchUltraExamCommand(const QString& text) {
    // Kept: no blank stands behind "like".
    return CommandText(
        u"select ultraexam, ultraexamid from build_file..tbcoultraexam where ultraexam like'{}%'", {text});
}
