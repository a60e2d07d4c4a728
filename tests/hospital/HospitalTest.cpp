#include "HospitalTest.h"

#include "hospital/HospitalScripts.h"
#include "text/Clock.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kUser = u"NURSE";

/// The trial hospital that the tests copy, made once for each build of this program, which has the scripts
/// and the engine in it. It is made in a folder of its own and moved into place, so that tests may run side
/// by side.
QString Original() {
    const QFileInfo program(QFileInfo(u"/proc/self/exe"_s).canonicalFilePath());
    const QDir folder(u"" TARVEN_BUILD_DIR "/trial-hospitals"_s);
    const QString path = folder.filePath(
        u"%1-%2.db"_s.arg(program.fileName()).arg(program.lastModified().toMSecsSinceEpoch()));
    if (QFile::exists(path))
        return path;
    folder.mkpath(u"."_s);
    for (const QString& old : folder.entryList({program.fileName() + u"-*.db"_s}, QDir::Files))
        QFile::remove(folder.filePath(old));
    const QTemporaryDir making(folder.filePath(u"making-XXXXXX"_s));
    const QString made = making.filePath(u"hospital.db"_s);
    HospitalFile::Create(made, HospitalScripts());
    std::rename(QFile::encodeName(made).constData(), QFile::encodeName(path).constData());
    return path;
}

} // namespace

HospitalTest::HospitalTest() {
    SetClock(Moment);
    QFile::copy(Original(), Path());
    mGateway = SignOn(kUser.toString());
}

HospitalTest::~HospitalTest() {
    SetClock({});
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
