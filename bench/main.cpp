#include "shell/Main.h"

#include "Benches.h"
#include "BenchSession.h"
#include "BenchTable.h"
#include "figures/BenchFile.h"
#include "figures/Compare.h"
#include "toolkit/Application.h"

#include <QDialog>
#include <QMainWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

using namespace Qt::StringLiterals;

// Speed and memory against bare limits that are measured in the same run:
//   tarven-bench              everything
//   tarven-bench save         one of reports, year, scale, save, statements, finder, start, keys, idle, odbc
//   tarven-bench year audit   of the reports of the year those whose names begin so
//   tarven-bench scale 10000  hospitals of so many patients at most
//   tarven-bench compare earlier.json later.json   what became of the lines of two runs
// The table is kept beside the program, too, as figures.json.
// The three other modes are what the start and the idle benchmark time.

namespace {

int ShowEmptyWindow(int& argumentCount, char** arguments) {
    const QApplication application(argumentCount, arguments);
    QMainWindow window;
    // Empty, but with the two bars that make it a main window; they bring the font in, as any text does.
    window.menuBar();
    window.statusBar();
    window.show();
    QTimer::singleShot(0, &application, [&window] {
        window.grab();
        std::fflush(stdout);
        _exit(0);
    });
    return QApplication::exec();
}

int ShowSignOnWindow(int& argumentCount, char** arguments) {
    const Application application(argumentCount, arguments);
    const QTemporaryDir folder;
    SetUpProgram(folder.path());
    QTimer::singleShot(0, &application, [] {
        // Inside the dialogue's own loop.
        QTimer::singleShot(0, qApp, [] {
            if (QWidget* dialog = QApplication::activeModalWidget())
                dialog->grab();
            _exit(QApplication::activeModalWidget() ? 0 : 1);
        });
        Main();
    });
    return Application::exec();
}

bool Wanted(int argumentCount, char** arguments, const char* name) {
    return argumentCount < 2 || std::strcmp(arguments[1], name) == 0;
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "*.warning=false");
    if (argc > 1 && std::strcmp(argv[1], "--empty-window") == 0)
        return ShowEmptyWindow(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], "--sign-on-window") == 0)
        return ShowSignOnWindow(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], "--idle") == 0)
        return ShowIdleProgram(argc, argv);
    const Application application(argc, argv);
    if (Wanted(argc, argv, "compare") && argc == 4)
        return PrintDifferences(LoadLines(QString::fromLocal8Bit(argv[2])),
                                LoadLines(QString::fromLocal8Bit(argv[3])))
                   ? 0
                   : 1;
    BenchTable table;
    // First, since it tells the memory of the whole process.
    if (Wanted(argc, argv, "reports"))
        BenchReports(table);
    if (Wanted(argc, argv, "year"))
        BenchYearReports(table, QString::fromLocal8Bit(argc > 2 ? argv[2] : ""));
    if (Wanted(argc, argv, "scale"))
        BenchScale(table, argc > 2 ? std::atoi(argv[2]) : 0);
    if (Wanted(argc, argv, "save"))
        BenchSave(table);
    if (Wanted(argc, argv, "statements"))
        BenchStatements(table);
    if (Wanted(argc, argv, "finder"))
        BenchFinder(table);
    if (Wanted(argc, argv, "start"))
        BenchStart(table, argv[0]);
    if (Wanted(argc, argv, "keys"))
        BenchKeys(table);
    if (Wanted(argc, argv, "idle"))
        BenchIdle(table, argv[0]);
    if (Wanted(argc, argv, "odbc"))
        BenchOdbc(table);
    table.Print();
    SaveLines(QCoreApplication::applicationDirPath() + u"/figures.json"_s, table.Lines());
    return table.AllGood() ? 0 : 1;
}
