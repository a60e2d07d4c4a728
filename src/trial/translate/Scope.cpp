#include "trial/translate/Scope.h"

#include "tsql/ServerError.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

void Scope::Add(ScopeSource source) {
    const bool twice = std::any_of(mSources.begin(), mSources.end(), [&](const ScopeSource& other) {
        return other.exposedName.compare(source.exposedName, Qt::CaseInsensitive) == 0;
    });
    if (twice)
        throw ServerError(Fault::NamedTwice, {source.exposedName});
    mSources.push_back(std::move(source));
}

bool Scope::Qualifies(const ScopeSource& source, const QStringList& qualifier,
                      const QString& currentDatabase) const {
    if (qualifier.isEmpty())
        return true;
    if (qualifier.size() == 1)
        return source.exposedName.compare(qualifier.first(), Qt::CaseInsensitive) == 0;
    const ObjectName name{qualifier.size() == 3 ? qualifier[0] : QString(),
                          qualifier[qualifier.size() - 2],
                          qualifier.last(),
                          {}};
    return !source.tableKey.isEmpty() && source.tableKey == ObjectKey(name, currentDatabase);
}

Typed Scope::Resolve(const QStringList& path, const QString& currentDatabase) const {
    const QStringList qualifier = path.mid(0, path.size() - 1);
    const QString& name = path.last();
    bool sourceFound = false;
    for (const Scope* scope = this; scope; scope = scope->mOuter) {
        std::vector<std::pair<const ScopeSource*, const ScopeColumn*>> found;
        for (const ScopeSource& source : scope->mSources) {
            if (!Qualifies(source, qualifier, currentDatabase))
                continue;
            sourceFound = true;
            for (const ScopeColumn& column : source.columns) {
                if (column.name.compare(name, Qt::CaseInsensitive) == 0)
                    found.emplace_back(&source, &column);
            }
        }
        if (found.size() > 1)
            throw ServerError(Fault::AmbiguousColumn, {name});
        if (found.size() == 1) {
            const auto& [source, column] = found.front();
            return {source->alias + u'.' + column->nameInFile,
                    column->type,
                    column->tableColumn,
                    {},
                    scope == this ? path.join(u'.') : QString()};
        }
    }
    if (!qualifier.isEmpty() && !sourceFound)
        throw ServerError(Fault::UnboundName, {path.join(u'.')});
    throw ServerError(Fault::InvalidColumn, {name});
}

std::vector<const ScopeSource*> Scope::Starred(const QStringList& path,
                                               const QString& currentDatabase) const {
    std::vector<const ScopeSource*> starred;
    for (const ScopeSource& source : mSources) {
        if (Qualifies(source, path, currentDatabase))
            starred.push_back(&source);
    }
    if (starred.empty())
        throw ServerError(Fault::UnboundName, {path.join(u'.') + u".*"_s});
    return starred;
}
