#include "torture/Footprint.h"

#include "components/shared.h"
#include "torture/LiveObjects.h"
#include "trial/EmbeddedGateway.h"
#include "trial/HospitalEngine.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QStringList>

#include <malloc.h>
#include <sqlite3.h>
#include <stdexcept>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

double MemoryOfTheProcess() {
    QFile file(u"/proc/self/statm"_s);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("the process does not tell its memory");
    return file.readAll().split(' ').value(1).toDouble() * double(sysconf(_SC_PAGESIZE));
}

double HeapInUse() {
    const auto heap = mallinfo2();
    return double(heap.uordblks + heap.hblkhd);
}

/// Entries of a folder of the process's, but for the two that every folder has.
double EntriesOf(const QString& folder) {
    return double(QDir(folder).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size());
}

/// The handle that reads the folder is one of those that it lists.
double OpenDescriptors() {
    return EntriesOf(u"/proc/self/fd"_s) - 1;
}

sqlite3* Database() {
    return dynamic_cast<EmbeddedGateway&>(*gConnection).Engine().Database().Handle();
}

double PagesInTheCache() {
    int bytes = 0;
    int most = 0;
    sqlite3_db_status(Database(), SQLITE_DBSTATUS_CACHE_USED, &bytes, &most, 0);
    return bytes;
}

double PreparedStatements() {
    int count = 0;
    for (sqlite3_stmt* statement = nullptr; (statement = sqlite3_next_stmt(Database(), statement));)
        ++count;
    return count;
}

} // namespace

Footprint::Sample Footprint::Take() {
    const double pages = PagesInTheCache();
    return {HeapInUse() - pages,
            MemoryOfTheProcess() - pages,
            pages,
            OpenDescriptors(),
            EntriesOf(u"/proc/self/task"_s),
            double(LiveObjects::Timers()),
            double(LiveObjects::RunningClocks()),
            double(QApplication::allWidgets().size()),
            double(LiveObjects::Count()),
            PreparedStatements()};
}

QString Footprint::TextOf(const Sample& sample) {
    QStringList texts;
    for (const double figure : sample)
        texts << QString::number(figure, 'f', 0);
    return texts.join(u' ');
}

Footprint::Sample Footprint::SampleIn(const QString& text) {
    const QStringList texts = text.split(u' ');
    Sample sample{};
    if (texts.size() != qsizetype(sample.size()))
        throw std::runtime_error("no sample: " + text.toStdString());
    for (size_t i = 0; i < sample.size(); ++i)
        sample[i] = texts[qsizetype(i)].toDouble();
    return sample;
}
