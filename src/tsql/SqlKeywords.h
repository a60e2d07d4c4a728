#pragma once

#include <QStringView>

/// Whether the server reserves that word, letter case aside. As a name it needs brackets there, so it needs
/// them here too, even where this engine could do without.
bool IsSqlKeyword(QStringView word);
