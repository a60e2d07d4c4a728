#include "deployment/Rights.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The table whose rows are not for everybody who may sign on: its columns are granted one by one.
constexpr auto kUsers = "password.tbpasswordmain"_L1;

/// Reads what one command needs.
class CommandReader {
  public:
    CommandReader(const QString& command, const HospitalObjects& hospital, QStringList& problems)
        : mCommand(command)
        , mTokens(LexSql(mCommand))
        , mHospital(hospital)
        , mProblems(problems) {}

    QStringList Read() {
        for (const NamedObject& object : ObjectsNamedIn(mTokens)) {
            if (mHospital.procedures.contains(object.name))
                mRights << u"EXECUTE "_s + object.name;
            else if (mHospital.tables.contains(object.name))
                ReadUse(object);
            else
                mProblems << object.name + u" does not stand in hospital/: "_s + mCommand;
        }
        return mRights;
    }

  private:
    /// The word that stands so many words before a name.
    bool StandsBefore(const NamedObject& object, size_t words, QStringView word) const {
        return object.first >= words && mTokens[object.first - words].Is(word);
    }

    bool Has(QStringView word) const {
        return std::any_of(mTokens.begin(), mTokens.end(), [&](const Token& t) { return t.Is(word); });
    }

    void ReadUse(const NamedObject& object) {
        const bool deletesFrom = StandsBefore(object, 1, u"FROM") && StandsBefore(object, 2, u"DELETE");
        if (StandsBefore(object, 1, u"DELETE") || deletesFrom)
            NeedWrite(u"DELETE "_s + object.name, object.name);
        else if (StandsBefore(object, 1, u"UPDATE"))
            NeedUpdate(object.name);
        else if (StandsBefore(object, 1, u"FROM") || StandsBefore(object, 1, u"JOIN"))
            NeedRead(object.name);
        else
            mProblems << u"it cannot be told what this does with "_s + object.name + u": "_s + mCommand;
    }

    /// A condition reads the table that is written.
    void NeedWrite(const NamedRight& right, const QString& table) {
        mRights << right;
        if (Has(u"WHERE"))
            NeedRead(table);
    }

    void NeedUpdate(const QString& table) {
        bool assigns = false;
        for (size_t i = 0; i + 1 < mTokens.size() && !mTokens[i].Is(u"WHERE"); ++i) {
            if (assigns && mTokens[i + 1].IsOperator(u"="))
                NeedWrite(u"UPDATE %1 (%2)"_s.arg(table, mTokens[i].Content().toLower()), table);
            assigns = assigns || mTokens[i].Is(u"SET");
        }
    }

    void NeedRead(const QString& table) {
        const bool whole =
            std::any_of(mTokens.begin(), mTokens.end(), [](const Token& t) { return t.IsOperator(u"*"); });
        if (table != kUsers || whole) {
            mRights << u"SELECT "_s + table;
            return;
        }
        for (const Token& token : mTokens) {
            const QString column = token.Content().toLower();
            if (mHospital.tables[table].contains(column))
                mRights << u"SELECT %1 (%2)"_s.arg(table, column);
        }
    }

    QString mCommand;
    std::vector<Token> mTokens;
    const HospitalObjects& mHospital;
    QStringList& mProblems;
    QStringList mRights;
};

void Compare(const QString& role, const QMap<NamedRight, QStringList>& needed,
             const QMap<NamedRight, QStringList>& granted, QStringList& differences) {
    for (const auto& [right, senders] : needed.asKeyValueRange()) {
        if (!granted.contains(right))
            differences << u"%1 lacks %2, for %3"_s.arg(role, right, senders.join(u", "_s));
    }
    for (const NamedRight& right : granted.keys()) {
        if (!needed.contains(right))
            differences << u"%1 has %2, which nothing sends"_s.arg(role, right);
    }
}

} // namespace

QStringList RightsFor(const QString& command, const HospitalObjects& hospital, QStringList& problems) {
    return CommandReader(command, hospital, problems).Read();
}

QStringList DifferencesBetween(const RoleRights& needed, const RoleRights& granted) {
    QStringList differences;
    Compare(u"tarven_hemodialysis"_s, needed.workstation, granted.workstation, differences);
    Compare(u"tarven_hemodialysis_standby"_s, needed.standby, granted.standby, differences);
    return differences;
}
