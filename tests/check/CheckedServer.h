#pragma once

#include "check/Needs.h"
#include "gateway/RowData.h"
#include "support/tds/TdsResponder.h"

#include <QString>
#include <QStringList>

#include <chrono>
#include <functional>
#include <vector>

/// One answer of the server about itself, in which a test plants a fault.
struct CatalogAnswer {
    QStringList columns;
    std::vector<std::vector<Value>> rows;

    Value& Cell(size_t row, const QString& column) { return rows[row][size_t(columns.indexOf(column))]; }
    /// The first row with that text in a column.
    size_t RowOf(const QString& column, const QString& text) const;
    void Remove(const QString& column, const QString& text);
};

/// A server that has all that the program needs. Behind it stands the trial hospital of a file; what it tells
/// of itself comes from the needs, as a test has changed it.
class CheckedServer {
  public:
    /// `change` is told each question with its database, and may change the answer.
    using Change =
        std::function<void(const QString& question, const QString& database, CatalogAnswer& answer)>;

    CheckedServer(const QString& hospital, const Needs& needs, Change change = {});

    TdsResponder& Responder() { return mResponder; }
    /// Refuses each batch that holds that text from now on.
    void Refuse(const QString& text, int number, const QString& message);

    /// Answers each batch that holds that text so many milliseconds later from now on.
    void Delay(const QString& text, int milliseconds);

  private:
    struct Refusal {
        QString text;
        int number = 0;
        QString message;
    };

    TdsResponder::Handler NewSession(const TdsLogin& login);
    bool AnswerAboutItself(const QString& batch, const QString& database, TdsAnswer& answer);
    CatalogAnswer AnswerTo(const QString& question, const QString& database) const;

    const Needs& mNeeds;
    Change mChange;
    TdsResponder::NewSession mHospital;
    Refusal mRefusal;
    QString mSlow;
    std::chrono::milliseconds mDelay{};
    TdsResponder mResponder;
};
