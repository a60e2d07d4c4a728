#pragma once

#include "charges/ChargeColumns.h"

#include <QStringList>

#include <vector>

class Form;

/// One line of a charge grid that nobody keys.
struct FilledLine {
    QString department;
    QString code;
};

/// Puts lines into a charge screen's grid, as a clerk would have keyed them: one piece of each for 3360.00.
void FillGrid(const Form& screen, const ChargeGridDifferences& columns, const std::vector<FilledLine>& lines);
