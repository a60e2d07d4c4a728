#pragma once

#include "suite/SignOn.h"
#include "text/Seam.h"

#include <QString>

#include <chrono>
#include <memory>

class DataSource;

/// A password for a program without a window. A command line is shown to everybody who lists the machine's
/// processes, so it never stands there. It is wiped at the end of this.
class ConsolePassword {
  public:
    static constexpr int kStandardInput = 0;

    /// Takes the first line of a file, which nobody but its owner may read; without a file the first line of
    /// the input, asked for and typed without echo where that is a terminal. From here on the process leaves
    /// no core dump. Raises 75, with a text that says why, where there is no password to be had.
    explicit ConsolePassword(const QString& file, int input = kStandardInput);
    ConsolePassword(const ConsolePassword&) = delete;
    ConsolePassword& operator=(const ConsolePassword&) = delete;
    ~ConsolePassword();

    const QString& Text() const { return mText; }

  private:
    QString mText;
};

/// Raises 53 for a hospital that has yet to be made: nobody need be asked for a password then.
void RequireMade(const DataSource& source);

/// Signs a user on for a department as the sign-on window does. A wait that the hospital asks for, and what
/// has failed in his name, is told on the standard error; the wait is served. Raises 18456 with the text of a
/// refusal, 53 for a hospital that has yet to be made, and what the data source raises. `toReplace` says that
/// another hospital is to come in its place, for which any version of it will do.
std::unique_ptr<SignedOnUser> SignOnAtConsole(DataSource& source, const QString& user,
                                              const ConsolePassword& password, const QString& deptCode,
                                              bool toReplace = false);

/// How a wait that the hospital asks for is served.
Seam<void(std::chrono::seconds wait)>& ConsoleWaitSeam();
