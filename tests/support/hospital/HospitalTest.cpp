#include "HospitalTest.h"

#include "hospital/HospitalScripts.h"
#include "support/hospital/FreshHospital.h"

#include <QFile>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kUser = u"NURSE";

} // namespace

HospitalTest::HospitalTest() {
    QFile::copy(FreshHospital(), Path());
    mGateway = SignOn(kUser.toString());
}

DateTime HospitalTest::Moment() {
    return *DateTime::FromFields({.year = 2026, .month = 11, .day = 21, .hour = 10, .minute = 15});
}

QString HospitalTest::Path() const {
    return mFolder.filePath(u"hospital.db"_s);
}

std::unique_ptr<EmbeddedGateway> HospitalTest::SignOn(const QString& user) const {
    auto gateway = HospitalFile::Open(Path(), HospitalScripts());
    gateway->SetSessionUser(user);
    return gateway;
}

void HospitalTest::RunAs(const QString& user, const QString& command) {
    mGateway->SetSessionUser(user);
    const auto back = qScopeGuard([this] { mGateway->SetSessionUser(kUser.toString()); });
    Run(command);
}

std::vector<QStringList> HospitalTest::Rows(const QString& command) {
    const auto data = mGateway->Execute(command).Data();
    std::vector<QStringList> rows;
    for (size_t row = 0; row < data->RowCount(); ++row) {
        QStringList cells;
        for (size_t column = 0; column < data->columns.size(); ++column) {
            const Value& value = data->Cell(row, column);
            cells.push_back(value.IsNull() ? u"NULL"_s : value.ToText());
        }
        rows.push_back(cells);
    }
    return rows;
}

QString HospitalTest::Cell(const QString& command) {
    const std::vector<QStringList> rows = Rows(command);
    EXPECT_EQ(rows.size(), 1U) << command.toStdString();
    return rows.empty() ? QString() : rows.front().value(0);
}

QStringList HospitalTest::Columns(const QString& command) {
    const auto data = mGateway->Execute(command).Data();
    return {data->columns.begin(), data->columns.end()};
}

QString Call(const QString& procedure, const QStringList& arguments) {
    return procedure + " '"_L1 + arguments.join("','"_L1) + u'\'';
}

QStringList Column(const std::vector<QStringList>& rows, int column) {
    QStringList cells;
    for (const QStringList& row : rows)
        cells.push_back(row.value(column));
    return cells;
}
