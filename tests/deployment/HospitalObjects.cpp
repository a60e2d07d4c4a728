#include "deployment/HospitalObjects.h"

#include "deployment/SourceText.h"

using namespace Qt::StringLiterals;

namespace {

bool IsName(const Token& token) {
    return token.kind == TokenKind::Word || token.kind == TokenKind::Name;
}

/// Reads along the tokens of one script.
class ScriptReader {
  public:
    ScriptReader(HospitalObjects& hospital, const QString& path)
        : mHospital(hospital)
        , mText(ReadFile(path))
        , mTokens(LexSql(mText)) {}

    void Read() {
        for (size_t i = 0; i + 4 < mTokens.size(); ++i) {
            if (mTokens[i].Is(u"USE"))
                mDatabase = mTokens[i + 1].Content();
            if (!mTokens[i].Is(u"CREATE"))
                continue;
            // CREATE TABLE dbo . name
            const QString name = (mDatabase + u'.' + mTokens[i + 4].Content()).toLower();
            if (mTokens[i + 1].Is(u"TABLE"))
                mHospital.tables.insert(name, ColumnsFrom(i + 5));
            else if (mTokens[i + 1].Is(u"PROCEDURE"))
                mHospital.procedures.insert(name);
        }
        for (const NamedObject& object : ObjectsNamedIn(mTokens))
            mHospital.usedByProcedures.insert(object.name);
    }

  private:
    /// The columns of a table whose opening parenthesis is the token at `at`.
    QStringList ColumnsFrom(size_t at) const {
        QStringList columns;
        int depth = 0;
        for (size_t i = at; mTokens[i].kind != TokenKind::End; ++i) {
            const bool opens = mTokens[i].IsOperator(u"(");
            depth += opens ? 1 : 0;
            depth -= mTokens[i].IsOperator(u")") ? 1 : 0;
            if (depth == 0)
                break;
            const bool begins = depth == 1 && (opens || mTokens[i].IsOperator(u","));
            if (begins && IsName(mTokens[i + 1]) && !mTokens[i + 1].Is(u"PRIMARY"))
                columns << mTokens[i + 1].Content().toLower();
        }
        return columns;
    }

    HospitalObjects& mHospital;
    QString mText;
    std::vector<Token> mTokens;
    QString mDatabase;
};

} // namespace

std::vector<NamedObject> ObjectsNamedIn(const std::vector<Token>& tokens) {
    std::vector<NamedObject> objects;
    for (size_t i = 0; i + 3 < tokens.size(); ++i) {
        if (!IsName(tokens[i]) || !tokens[i + 1].IsOperator(u"."))
            continue;
        const size_t object = tokens[i + 2].IsOperator(u".") ? i + 3 : i + 4;
        const bool owned = object == i + 3 || (tokens[i + 2].Is(u"dbo") && tokens[i + 3].IsOperator(u"."));
        if (owned && object < tokens.size() && IsName(tokens[object]))
            objects.push_back({(tokens[i].Content() + u'.' + tokens[object].Content()).toLower(), i});
    }
    return objects;
}

HospitalObjects ReadHospital() {
    HospitalObjects hospital;
    for (const QString& path :
         FilesBelow(u"hospital/schema"_s, {u"*.sql"_s}) + FilesBelow(u"hospital/procedures"_s, {u"*.sql"_s}))
        ScriptReader(hospital, path).Read();
    return hospital;
}
