#pragma once

#include <QString>

#include <functional>
#include <map>
#include <string>
#include <vector>

/// What stands in the place of an argument, by the argument's name.
using ArgumentOf = std::function<QString(const char* name)>;

/// Arguments with which a text is tried: each its own name, so that none can stand in another's place; none;
/// and such as no text may touch.
const std::vector<ArgumentOf>& GoldenArguments();

/// The prescribed texts of tests/golden/commands.txt by the function that composes them, with the names of
/// their arguments in braces.
const std::map<std::string, QString>& GoldenCommands();

/// The golden text with these arguments in their places.
QString WithArguments(const QString& golden, const ArgumentOf& argument);
