#pragma once

#include <QProcess>
#include <QStringList>

/// A process of a test's own, in a process group of its own. It is ended with its group when this ends, and
/// by the system when the test's process dies.
class OwnProcess {
  public:
    /// Starts the program. It sees nothing of the developer's desktop: its environment holds `settings` and
    /// the few variables that belong to the machine. Raises std::runtime_error when it does not start.
    OwnProcess(const QString& program, const QStringList& arguments, const QProcessEnvironment& settings);
    OwnProcess(const OwnProcess&) = delete;
    OwnProcess& operator=(const OwnProcess&) = delete;
    ~OwnProcess();

    QProcess& Process() { return mProcess; }

    /// The next line of its output, without the line end. Raises std::runtime_error when none comes.
    QByteArray ReadLine();

  private:
    QProcess mProcess;
};
