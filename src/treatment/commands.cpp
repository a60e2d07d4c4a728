#include "treatment/commands.h"

using namespace Qt::StringLiterals;

QString SaveTreatmentRecordCommand(const QStringList& values) {
    return u"Hemodialysis..spKidney_SaveHemodialysisTreatMentRecord '"_s + values.join(u"','"_s) + u"'"_s;
}

QString TreatmentRecordCommand(const QString& idNum, const QString& requestNum) {
    // Kept: no blank stands before "and"; the text is what the server has always been sent.
    return u"select * from hemodialysis..tbHemodialysisResultEntry where idnum = '"_s + idNum +
           u"'and requestnum='"_s + requestNum + u"'"_s;
}
