#pragma once

#include "trial/EmbeddedGateway.h"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

/// One script of the hospital in the server's language. What its name begins with says what it is:
/// "schema/" tables and indexes, "procedures/" procedures, "demo/" data.
struct Script {
    QString name;
    QString text;
};

/// Makes and opens the files of embedded hospitals. Where a path is a link, all this is about the file that
/// it leads to.
class HospitalFile {
  public:
    /// Hears how far the making has come: steps done, steps in all, what is being done. While another process
    /// is making the file and nobody can tell how far it is, it is called many times a second with no steps.
    using Progress = std::function<void(int done, int total, const QString& what)>;

    /// Makes a hospital from scripts, which run in the order given. The file appears under its name only when
    /// it is whole: a creation that is stopped half-way leaves nothing behind that could be opened.
    ///
    /// Raises 75 for a file that exists, 5120 for one on a network drive or in the user's home folder, and
    /// the failure of a script with the script's name and line in front. When another process is making the
    /// same file, it is waited for, ten minutes at most, and its file is taken; one of another machine is not
    /// waited for longer than seconds.
    static void Create(const QString& name, const std::vector<Script>& scripts,
                       const Progress& progress = {});

    /// Makes a hospital in place of the file that stands, which stays until the new one is whole. Raises as
    /// Create does but for 75, and 3702 when somebody has the file open, before the making and at its end. A
    /// file that is no database is replaced too.
    static void Replace(const QString& name, const std::vector<Script>& scripts,
                        const Progress& progress = {});

    /// Looks through the whole file of an open hospital, its pages and its indexes, while others go on
    /// working in it. Raises 824 with its path where they do not fit together.
    static void LookThrough(EmbeddedGateway& hospital);

    /// Writes a copy of a hospital into a new file, as the hospital is at one moment, while others go on
    /// working in it: SQLite's own backup, through connections of its own. The copy is its owner's alone and
    /// has no log; it appears under its name only when it is whole and was looked through.
    ///
    /// Raises 75 for a copy's name, or the one beside it that its making needs, that stands, 53 and 5171
    /// as EmbeddedGateway does, 824 for a hospital that is damaged, 948 for one of another version, and the
    /// disk's failures.
    static void BackUp(const QString& name, const QString& copy, const std::vector<Script>& scripts);

    /// Puts a copy that BackUp has written into the hospital's place, where one may stand or not. The copy
    /// stays as it is; the trail of sign-ons of the hospital that stands is carried over.
    ///
    /// Raises 3702 when somebody has the hospital open, 53, 5171, 824 and 948 for what is no such copy, and
    /// what Create raises for a place; the hospital that stands then stays.
    static void Restore(const QString& name, const QString& copy, const std::vector<Script>& scripts);

    /// Opens a hospital for a sign-on. Where its procedures are not those of the scripts, they are replaced;
    /// where its tables are not, it is refused with error 948. A file that was not closed by its last user is
    /// checked and refused with 824 when it is damaged, and so is one whose end is missing. One whose log is
    /// missing is refused with 5120, one that cannot be written to with 5120 or 3906. What others could do
    /// with the file is taken from them; otherwise a file that is refused stays as it is, with its log.
    /// Raises 53 and 5171 as EmbeddedGateway does, and 5120 as Create does.
    static std::unique_ptr<EmbeddedGateway> Open(const QString& name, const std::vector<Script>& scripts);
};
