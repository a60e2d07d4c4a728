#include "torture/Torture.h"
#include "torture/Tortures.h"
#include "torture/TortureTable.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <exception>

using namespace Qt::StringLiterals;

// What is done to the program before a hospital gets it:
//   tarven-torture kill  [--times N] [--desks N] [--seed N] [--short]
//   tarven-torture crowd [--times N] [--desks N] [--seed N] [--short]
//   tarven-torture files [--short]
//   tarven-torture longshift [--times N] [--short] [--graph FILE]
//   tarven-torture desks [--desks N] [--seed N] [--short]
// The other modes are the processes that these start.

namespace {

/// The entry of that name; null for none.
template <class Entry> const Entry* Find(std::span<const Entry> table, const char* name) {
    const auto found = std::find_if(table.begin(), table.end(), [name](const Entry& entry) {
        return std::strcmp(entry.name, name) == 0;
    });
    return found == table.end() ? nullptr : &*found;
}

TortureSize SizeIn(const QCommandLineParser& parser) {
    TortureSize size;
    size.isShort = parser.isSet(u"short"_s);
    size.seed = parser.value(u"seed"_s).toUInt();
    if (parser.isSet(u"times"_s))
        size.times = size.patients = parser.value(u"times"_s).toInt();
    if (parser.isSet(u"desks"_s))
        size.desks = parser.value(u"desks"_s).toInt();
    size.graph = parser.value(u"graph"_s);
    return size;
}

int Torture(QCommandLineParser& parser) {
    const QByteArray which = parser.positionalArguments().value(0).toLatin1();
    const NamedTorture* torture = Find(Tortures(), which.constData());
    if (!torture)
        parser.showHelp(2);
    const TortureSize size = SizeIn(parser);
    TortureTable table;
    torture->run(table, size);
    table.Print();
    if (!table.AllWell())
        std::printf("again with: torture/run %s%s --seed %u\n", torture->name, size.isShort ? " --short" : "",
                    size.seed);
    return table.AllWell() ? 0 : 1;
}

QStringList BehindTheMode(int argc, char** argv) {
    QStringList arguments;
    for (int i = 2; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    return arguments;
}

} // namespace

int main(int argc, char** argv) {
    if (const NamedProcess* process = argc > 1 ? Find(TortureProcesses(), argv[1]) : nullptr)
        return process->run(BehindTheMode(argc, argv));
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addOptions({{u"times"_s, u"Kills, saves of each desk, or patients."_s, u"N"_s},
                       {u"desks"_s, u"Workstations at once."_s, u"N"_s},
                       {u"seed"_s, u"What is keyed and when is killed."_s, u"N"_s, u"1"_s},
                       {u"short"_s, u"As part of every test."_s},
                       {u"graph"_s, u"Where the long shift is drawn."_s, u"file"_s}});
    parser.addPositionalArgument(u"torture"_s, u"One of those named above."_s);
    parser.addHelpOption();
    parser.process(application);
    try {
        return Torture(parser);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "the torture itself has failed: %s\n", error.what());
        return 1;
    }
}
