#include "support/PrintQt.h"
#include "support/smallhospital/SharedHospital.h"
#include "trial/HospitalEngine.h"

using namespace Qt::StringLiterals;

namespace {

RaisedError FailureOfSql(EmbeddedGateway& gateway, const QString& sql) {
    return FailureOf([&] { gateway.Engine().Database().RunForValue(sql); });
}

QString Code(const SqlType& type) {
    return QString::number(type.Encode());
}

} // namespace

TEST_F(SharedHospital, AFunctionThatFailsInAWayOfItsOwnIsAnErrorOfItsStatement) {
    // A text where the statement says that a whole number stands.
    const QString sql =
        u"SELECT tv_convert('abc', %1, %2, -1)"_s.arg(Code(SqlType::BigInt()), Code(SqlType::Text(10)));
    EXPECT_EQ(FailureOfSql(Gateway(), sql).number, 8624);
    EXPECT_EQ(RowTexts(Gateway(), u"select ChargeSlip from Clinical_Area..tbSlip"_s), QStringList{u"100"_s})
        << "the connection goes on";
}
