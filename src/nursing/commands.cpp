#include "nursing/commands.h"

#include "gateway/CommandText.h"

QString NurseRequestCommand() {
    return CommandText(u"Clinical_Area..spEarCare_NurseRequest");
}

QString RoomClassCommand(const QString& roomId) {
    // Kept: a blank follows the quote.
    return CommandText(u"Select RoomClassID from build_file..tbCoRoom Where RoomID = '{}' ", {roomId});
}

QString LoadExamCommand(const QString& idNum) {
    // Kept: the second letter is a capital here.
    return CommandText(u"CLinical_Area..spEarCare_LoadExamEntry '{}'", {idNum});
}

QString RevokeNurseRequestCommand(const QString& requestNumber, const QString& employeeCode) {
    return CommandText(u"RADIOLOGY..spRadio_RevokeNurseRequest '{}','{}'", {requestNumber, employeeCode});
}

QString CheckPendingCommand() {
    return CommandText(u"RADIOLOGY..spRadio_CheckPending 'HC'");
}
