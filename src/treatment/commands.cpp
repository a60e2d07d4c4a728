#include "treatment/commands.h"

#include "gateway/CommandText.h"

using namespace Qt::StringLiterals;

QString SaveTreatmentRecordCommand(const QStringList& values) {
    return CommandText(u"Hemodialysis..spKidney_SaveHemodialysisTreatMentRecord '{}'",
                       {values.join(u"','"_s)});
}

QString TreatmentRecordCommand(const QString& idNum, const QString& requestNum) {
    // Kept: no blank stands before "and"; the text is what the server has always been sent.
    return CommandText(
        u"select * from hemodialysis..tbHemodialysisResultEntry where idnum = '{}'and requestnum='{}'",
        {idNum, requestNum});
}
