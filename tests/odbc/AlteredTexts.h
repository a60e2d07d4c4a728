#pragma once

#include <QString>

#include <vector>

/// A command that FreeTDS would send otherwise than as it stands, and the character near which it is refused.
struct AlteredText {
    QString command;
    QChar near;
};

inline const std::vector<AlteredText> kAlteredByFreeTds = {
    {QStringLiteral("spX {d '2026-01-01'}"), u'{'},
    {QStringLiteral("{call spX}"), u'{'},
    {QStringLiteral("{?=call spX}"), u'{'},
    {QStringLiteral("spX 'O'{}'"), u'{'},
    {QStringLiteral("x { 'a'"), u'{'},
    {QStringLiteral("x /* /* */ {a} */"), u'{'},
    {QStringLiteral("x {"), u'{'},
    {QStringLiteral("spX '") + QChar(u'\0') + u'\'', QChar::ReplacementCharacter},
    {QStringLiteral("spX '") + QChar(char16_t(0xD83D)) + u'\'', QChar::ReplacementCharacter},
    {QStringLiteral("spX '") + QChar(char16_t(0xDE00)) + u'\'', QChar::ReplacementCharacter},
};
