#include "torture/Torture.h"
#include "torture/TortureTable.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>
#include <cstring>
#include <exception>

using namespace Qt::StringLiterals;

// What is done to the program before a hospital gets it:
//   tarven-torture kill  [--times N] [--desks N] [--seed N] [--short]
//   tarven-torture crowd [--times N] [--desks N] [--seed N] [--short]
//   tarven-torture files [--short]
// The other modes are the desks that these start.

namespace {

TortureSize SizeIn(const QCommandLineParser& parser) {
    TortureSize size;
    size.isShort = parser.isSet(u"short"_s);
    size.seed = parser.value(u"seed"_s).toUInt();
    if (parser.isSet(u"times"_s))
        size.times = parser.value(u"times"_s).toInt();
    if (parser.isSet(u"desks"_s))
        size.desks = parser.value(u"desks"_s).toInt();
    return size;
}

int Torture(QCommandLineParser& parser) {
    const QString which = parser.positionalArguments().value(0);
    const TortureSize size = SizeIn(parser);
    TortureTable table;
    if (which == "kill"_L1)
        TortureByKills(table, size);
    else if (which == "crowd"_L1)
        TortureByCrowd(table, size);
    else if (which == "files"_L1)
        TortureByFiles(table, size);
    else
        parser.showHelp(2);
    table.Print();
    if (!table.AllWell())
        std::printf("again with: torture/run %s%s --seed %u\n", qPrintable(which),
                    size.isShort ? " --short" : "", size.seed);
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
    if (argc > 1 && std::strcmp(argv[1], "shift") == 0)
        return RunShift(BehindTheMode(argc, argv));
    if (argc > 1 && std::strcmp(argv[1], "files-desk") == 0)
        return RunFilesDesk(BehindTheMode(argc, argv));
    if (argc > 1 && std::strcmp(argv[1], "crowd-desk") == 0)
        return RunCrowdDesk(argc, argv);
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addOptions({{u"times"_s, u"Kills, or saves of each desk."_s, u"N"_s},
                       {u"desks"_s, u"Workstations at once."_s, u"N"_s},
                       {u"seed"_s, u"What is keyed and when is killed."_s, u"N"_s, u"1"_s},
                       {u"short"_s, u"As part of every test."_s}});
    parser.addPositionalArgument(u"torture"_s, u"kill, crowd or files"_s);
    parser.addHelpOption();
    parser.process(application);
    try {
        return Torture(parser);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "the torture itself has failed: %s\n", error.what());
        return 1;
    }
}
