#include "reports/commands.h"

#include "gateway/CommandText.h"

QString EmptyChargePrintCommand() {
    return CommandText(u"delete Clinical_Area..tbEarCareChargePrint");
}
