#include "suite/Passwords.h"

#include "text/RunTimeError.h"

#include <array>
#include <sodium.h>

using namespace Qt::StringLiterals;

namespace {

void Prepare() {
    static const bool ready = sodium_init() >= 0;
    if (!ready)
        throw RunTimeError(RunTime::kCannotCreateObject, u"The password library cannot be used"_s);
}

} // namespace

bool PasswordMatches(const QString& hash, const QString& password) {
    Prepare();
    const QByteArray hashText = hash.toUtf8();
    QByteArray passwordText = password.toUtf8();
    const int outcome = crypto_pwhash_str_verify(hashText.constData(), passwordText.constData(),
                                                 static_cast<unsigned long long>(passwordText.size()));
    sodium_memzero(passwordText.data(), static_cast<size_t>(passwordText.size()));
    return outcome == 0;
}

QString HashPassword(const QString& password) {
    Prepare();
    std::array<char, crypto_pwhash_STRBYTES> hash{};
    QByteArray passwordText = password.toUtf8();
    const int outcome = crypto_pwhash_str(
        hash.data(), passwordText.constData(), static_cast<unsigned long long>(passwordText.size()),
        crypto_pwhash_OPSLIMIT_INTERACTIVE, crypto_pwhash_MEMLIMIT_INTERACTIVE);
    sodium_memzero(passwordText.data(), static_cast<size_t>(passwordText.size()));
    if (outcome != 0)
        throw RunTime::Error(RunTime::kOutOfMemory);
    return QString::fromLatin1(hash.data());
}

void WipePassword(QString& password) {
    if (!password.isEmpty())
        sodium_memzero(password.data(), static_cast<size_t>(password.size()) * sizeof(QChar));
    // The memory stays with the text, where a test can look at the zeros.
    password.resize(0);
}
