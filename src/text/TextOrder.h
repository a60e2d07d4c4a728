#pragma once

#include <QStringView>
#include <QtGlobal>

// The order of texts of the hospital's server, SQL_Latin1_General_CP1_CI_AS: letter case plays no part,
// accents do (n < ñ < o), trailing blanks do not count, marks come before digits and digits before letters.

/// Where a character stands in the order; characters of the same place are the same to the server.
quint32 TextWeight(char32_t character);

/// Compares two texts. Negative, 0 or positive.
int CompareText(QStringView a, QStringView b);
