#pragma once

#include <QString>
#include <QStringList>

#include <utility>
#include <vector>

/// What a torture prints at its end: figures line by line, and below them what went wrong.
class TortureTable {
  public:
    void Add(const QString& what, const QString& figure);
    void Add(const QString& what, qint64 figure) { Add(what, QString::number(figure)); }
    void AddProblems(const QString& where, const QStringList& problems);

    void Print() const;
    bool AllWell() const { return mProblems.isEmpty(); }

  private:
    std::vector<std::pair<QString, QString>> mLines;
    QStringList mProblems;
};
