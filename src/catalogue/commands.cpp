#include "catalogue/commands.h"

using namespace Qt::StringLiterals;

QString ExactRevenueCommand(const QString& code) {
    return u"Clinical_Area..spEarCare_SearchRevenue '1','"_s + code + u"'"_s;
}

QString PartialRevenueCommand(const QString& text) {
    return u"Clinical_Area..spEarCare_SearchRevenue '2','"_s + text + u"'"_s;
}

QString RevenueListQuery() {
    return u"Clinical_Area..spEarCare_SearchRevenue '0','##'"_s;
}

QString RatesCommand(const QString& revenueID) {
    return u"Hemodialysis..spKidney_Rates '"_s + revenueID + u"'"_s;
}

QString UltraExamsCommand() {
    // Kept: the first heading is misspelled.
    return u"select ultraexam as UtraExam, ultraexamid as UltraExamId from build_file..tbcoultraexam"_s;
}

QString SearchUltraExamCommand(const QString& text) {
    // Kept: no blank stands behind "like".
    return u"select ultraexam, ultraexamid from build_file..tbcoultraexam where ultraexam like'"_s + text +
           u"%'"_s;
}
