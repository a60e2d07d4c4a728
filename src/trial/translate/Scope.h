#pragma once

#include "trial/translate/Translation.h"
#include "tsql/Catalog.h"

#include <QString>
#include <QStringList>

#include <vector>

/// One column that a source in FROM offers.
struct ScopeColumn {
    QString name;
    SqlType type;
    /// Its name in the translated statement, quoted where needed.
    QString nameInFile;
    bool tableColumn = false;
};

/// A table or derived table in FROM.
struct ScopeSource {
    /// The alias, or the table's own name.
    QString exposedName;
    /// The key of a table that stands without alias, so that its full name can qualify a column; else empty.
    QString tableKey;
    /// Its name in the translated statement.
    QString alias;
    std::vector<ScopeColumn> columns;
};

/// The sources that the columns of one SELECT, UPDATE or DELETE may come from, and those around it.
class Scope {
  public:
    explicit Scope(const Scope* outer = nullptr)
        : mOuter(outer) {}

    /// Raises 1011 for a name that is there twice.
    void Add(ScopeSource source);
    const std::vector<ScopeSource>& Sources() const { return mSources; }

    /// The column that a path means; raises 207, 209 or 4104 as the server does. A column of an outer scope
    /// counts as fixed, so it is never loose.
    Typed Resolve(const QStringList& path, const QString& currentDatabase) const;
    /// The sources that "alias.*" means: one of them, or all for an empty path.
    std::vector<const ScopeSource*> Starred(const QStringList& path, const QString& currentDatabase) const;

    /// The expressions behind GROUP BY, as translated.
    QStringList groupKeys;

  private:
    bool Qualifies(const ScopeSource& source, const QStringList& qualifier,
                   const QString& currentDatabase) const;

    const Scope* mOuter;
    std::vector<ScopeSource> mSources;
};
