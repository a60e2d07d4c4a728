#include "deployment/SourceText.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString& Root() {
    static const QString root = QStringLiteral(TARVEN_SOURCE_DIR "/");
    return root;
}

/// Puts the quoted texts of one expression after the other together.
class QuotedTextReader {
  public:
    std::vector<QuotedText> Read(const QString& source) {
        // A quoted text, a character, a mark between expressions, a word.
        static const QRegularExpression piece(
            uR"re(["']((?<=")(?:[^"\\]|\\.)*(?=")|(?<=')(?:[^'\\]|\\.)(?='))["']|([;{}(),])|\b([A-Za-z]\w*))re"_s);
        for (auto pieces = piece.globalMatch(source); pieces.hasNext();) {
            const auto match = pieces.next();
            if (match.hasCaptured(3))
                TakeWord(match.captured(3));
            else if (match.hasCaptured(2))
                TakeMark(match.captured(2).front(), match.capturedStart());
            else
                TakeText(match.captured(1));
        }
        return std::move(mTexts);
    }

  private:
    /// A word is a value that is put in, but for the prefix of a text.
    void TakeWord(const QString& word) {
        if (word != u"u"_s)
            mIsBroken = true;
    }

    void TakeText(const QString& text) {
        static const QRegularExpression escape(uR"(\\(.))"_s);
        if (mIsBroken && !mText.isEmpty())
            mText += u'?';
        mIsBroken = false;
        mText += QString(text).replace(escape, u"\\1"_s);
    }

    void TakeMark(QChar mark, qsizetype position) {
        if (mark == u'(')
            ++mDepth;
        else if (mark == u')')
            --mDepth;
        else if (mark != u',' || mDepth <= 0)
            EndExpression(mark, position);
    }

    void EndExpression(QChar mark, qsizetype position) {
        if (!mText.isEmpty())
            mTexts.push_back({mIsBroken ? mText + u'?' : mText, position});
        mText.clear();
        mIsBroken = false;
        if (mark != u',')
            mDepth = 0;
    }

    std::vector<QuotedText> mTexts;
    QString mText;
    /// Whether something that is not quoted stands behind the last text.
    bool mIsBroken = false;
    int mDepth = 0;
};

} // namespace

QString ReadFile(const QString& path) {
    QFile file(Root() + path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

QStringList FilesBelow(const QString& folder, const QStringList& patterns) {
    QStringList paths;
    QDirIterator files(Root() + folder, patterns, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext())
        paths << files.next().mid(Root().size());
    paths.sort();
    return paths;
}

QString WithoutComments(const QString& source) {
    static const QRegularExpression piece(uR"re(("(?:[^"\\]|\\.)*"|'(?:[^'\\]|\\.)')|//[^\n]*|/\*.*?\*/)re"_s,
                                          QRegularExpression::DotMatchesEverythingOption);
    QString text = source;
    return text.replace(piece, u"\\1"_s);
}

std::vector<QuotedText> QuotedTexts(const QString& source) {
    return QuotedTextReader().Read(source);
}
