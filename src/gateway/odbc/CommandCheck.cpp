#include "gateway/odbc/CommandCheck.h"

#include "text/RunTimeError.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kIncorrectSyntax = 102;

/// Walks over a command as the drivers read it, in which comments are not nested.
class CommandReader {
  public:
    explicit CommandReader(QStringView command)
        : mCommand(command) {}

    void Check() {
        CheckCharacters();
        while (mAt < mCommand.size()) {
            const QChar c = mCommand[mAt];
            if (c == u'\'' || c == u'"' || c == u'[')
                SkipQuoted(c == u'[' ? u']' : c);
            else if (mCommand.mid(mAt, 2) == "--"_L1)
                SkipPast(u'\n');
            else if (mCommand.mid(mAt, 2) == "/*"_L1)
                SkipComment();
            else if (c == u'{' || c == u'?')
                Refuse(c);
            else
                ++mAt;
        }
    }

  private:
    [[noreturn]] static void Refuse(QChar c) {
        throw RunTimeError(kIncorrectSyntax, u"Incorrect syntax near '%1'."_s.arg(c), u"42000"_s);
    }

    void CheckCharacters() const {
        for (qsizetype i = 0; i < mCommand.size(); ++i) {
            if (mCommand[i].isNull())
                Refuse(QChar::ReplacementCharacter);
            if (!mCommand[i].isSurrogate())
                continue;
            const bool isPair =
                mCommand[i].isHighSurrogate() && i + 1 < mCommand.size() && mCommand[i + 1].isLowSurrogate();
            if (!isPair)
                Refuse(QChar::ReplacementCharacter);
            ++i;
        }
    }

    // A doubled quote or closing bracket stands for itself.
    void SkipQuoted(QChar end) {
        do
            SkipPast(end);
        while (mAt < mCommand.size() && mCommand[mAt] == end);
    }

    void SkipPast(QChar end) {
        const qsizetype found = mCommand.indexOf(end, mAt + 1);
        mAt = found < 0 ? mCommand.size() : found + 1;
    }

    void SkipComment() {
        const qsizetype end = mCommand.indexOf("*/"_L1, mAt + 2);
        mAt = end < 0 ? mCommand.size() : end + 2;
    }

    QStringView mCommand;
    qsizetype mAt = 0;
};

} // namespace

void CheckForDrivers(QStringView command) {
    CommandReader(command).Check();
}
