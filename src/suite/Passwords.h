#pragma once

#include <QLatin1StringView>
#include <QString>

/// Passwords are kept as Argon2id hashes in the text form of libsodium's crypto_pwhash_str.

/// Whether the password is the one behind the hash. False for a text that is no such hash.
bool PasswordMatches(const QString& hash, const QString& password);

/// A fresh hash of a password, at the limits for sign-ons by hand. Raises 7 when memory is short.
QString HashPassword(const QString& password);

/// The hash of a password that nobody has, at the limits of HashPassword: an unknown user's password is
/// checked against it, so that he takes as long to refuse as a known one. Ready made, since the making of a
/// hash takes as long as the checking of one.
constexpr QLatin1StringView kNobodysHash("$argon2id$v=19$m=65536,t=2,p=1$v0nGudAeexUZVbd3I6fJtw$"
                                         "h12T5SWMHE72TM3igdDrQmJt4QDzQeVmAAx1eeiMEdQ");

/// Writes zeros over the memory of a text that held a password, and empties the text. Other texts that were
/// copied from it or to it keep what they hold: only a text that is shared with none is gone for good.
void WipePassword(QString& password);
