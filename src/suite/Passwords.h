#pragma once

#include <QString>

/// Passwords are kept as Argon2id hashes in the text form of libsodium's crypto_pwhash_str.

/// Whether the password is the one behind the hash. False for a text that is no such hash.
bool PasswordMatches(const QString& hash, const QString& password);

/// A fresh hash of a password, at the limits for sign-ons by hand. Raises 7 when memory is short.
QString HashPassword(const QString& password);

/// Writes zeros over a text that held a password.
void WipePassword(QString& password);
