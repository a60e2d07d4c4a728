#include "nursing/commands.h"

using namespace Qt::StringLiterals;

QString NurseRequestCommand() {
    return u"Clinical_Area..spEarCare_NurseRequest"_s;
}

QString RoomClassCommand(const QString& roomId) {
    // Kept: a blank follows the quote.
    return u"Select RoomClassID from build_file..tbCoRoom Where RoomID = '"_s + roomId + u"' "_s;
}

QString LoadExamCommand(const QString& idNum) {
    // Kept: the second letter is a capital here.
    return u"CLinical_Area..spEarCare_LoadExamEntry '"_s + idNum + u"'"_s;
}

QString RevokeNurseRequestCommand(const QString& requestNumber, const QString& employeeCode) {
    return u"RADIOLOGY..spRadio_RevokeNurseRequest '"_s + requestNumber + u"','"_s + employeeCode + u"'"_s;
}

QString CheckPendingCommand() {
    return u"RADIOLOGY..spRadio_CheckPending 'HC'"_s;
}
