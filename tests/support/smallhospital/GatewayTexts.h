#pragma once

#include "gateway/CommandGateway.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <ostream>

/// The rows of an answer, each as its cells joined by "|"; Null is "NULL".
QStringList RowTexts(const RowSet& rows);
/// The rows that a command brings.
QStringList RowTexts(CommandGateway& gateway, const QString& command);

/// What a call failed with; number 0 for one that did not fail.
struct RaisedError {
    int number = 0;
    QString text;
    QString state;
};
RaisedError FailureOf(const std::function<void()>& call);
RaisedError FailureOf(CommandGateway& gateway, const QString& command);
