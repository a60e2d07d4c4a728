#pragma once

#include "gateway/RowSet.h"
#include "support/tds/TdsResponder.h"

#include <QString>

/// Sessions that answer from a hospital's file: the responder then is that hospital's server. Each session
/// has a connection of its own to the file, in the name of its login.
TdsResponder::NewSession EngineSessions(const QString& path);

/// Answers with rows, in columns of the types that their values have.
void AnswerWithRows(TdsAnswer& answer, const RowData& rows);
