#pragma once

#include "trial/translate/Translation.h"

#include <QString>

/// The statements that do an UPDATE in two passes. The server looks at keys when all rows of a statement are
/// changed, SQLite after each row: it refuses a row the key of a row that is yet to change.
struct RowMove {
    /// Brings the rows as they will be, each behind the number that SQLite knows it by.
    QString select;
    /// Takes away the row whose number is parameter 1.
    QString erase;
    /// Puts a row as `select` brought it back in its place, its values as parameters from 1.
    QString insert;
};

RowMove MoveOf(const UpdateParts& update);
