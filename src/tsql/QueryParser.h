#pragma once

#include "tsql/SqlTree.h"
#include "tsql/TokenCursor.h"

/// Reads queries: SELECT with its clauses, UNION ALL and ORDER BY.
class QueryParser {
  public:
    explicit QueryParser(TokenCursor& cursor)
        : mCursor(cursor) {}

    Query ParseQuery();
    /// A query inside another statement, where ORDER BY means nothing without TOP.
    Query ParseSubquery();

  private:
    SelectCore ParseCore();
    /// Whether "*" or "alias.*" stands here, which only the piece behind the last dot tells from a column.
    bool BeginsStar() const;
    SelectItem ParseItem();
    SelectedStar ParseStar();
    TableSource ParseSource();
    void ParseSources(SelectCore& core);
    void ParseGrouping(SelectCore& core);
    /// A name behind a column or table, with or without AS; empty where there is none.
    QString ParseAlias();

    TokenCursor& mCursor;
};
