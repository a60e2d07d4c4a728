#include "oracle/CaseFile.h"

#include "text/RunTimeError.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QRegularExpression>

#include <cmath>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

const QString kDone = u"done"_s;
const QString kNoRows = u"no rows"_s;
const QString kNull = u"NULL"_s;
const QString kBetweenRows = u" ; "_s;
// What an answer shows of a type: int and bigint are one kind of value, date and datetime another.
const QString kWhole = u"whole"_s;
const QString kMoment = u"moment"_s;

/// The part of a type that an answer shows.
QString Shown(const QString& type) {
    if (type == u"int" || type == u"bigint")
        return kWhole;
    if (type == u"money")
        return u"decimal 4"_s;
    return type == u"date" || type == u"datetime" ? kMoment : type;
}

QString Padded(int number, int width) {
    return QString::number(number).rightJustified(width, u'0');
}

QString MomentText(DateTime moment) {
    const DateTime::Fields f = moment.ToFields();
    return Padded(f.year, 4) + u'-' + Padded(f.month, 2) + u'-' + Padded(f.day, 2) + u' ' +
           Padded(f.hour, 2) + u':' + Padded(f.minute, 2) + u':' + Padded(f.second, 2) + u'.' +
           Padded(f.millisecond, 3);
}

/// The value's kind, as Shown() names it, and the value as the tables write it.
std::pair<QString, QString> Describe(const Value& value) {
    struct Describer {
        std::pair<QString, QString> operator()(std::monostate) const { return {QString(), kNull}; }
        std::pair<QString, QString> operator()(bool v) const { return {u"bit"_s, v ? u"1"_s : u"0"_s}; }
        std::pair<QString, QString> operator()(qint64 v) const { return {kWhole, QString::number(v)}; }
        std::pair<QString, QString> operator()(const Decimal& v) const {
            const qsizetype point = v.text.indexOf(u'.');
            return {u"decimal %1"_s.arg(point < 0 ? 0 : v.text.size() - point - 1), v.text};
        }
        std::pair<QString, QString> operator()(double v) const {
            return {u"float"_s, QString::number(v, 'g', QLocale::FloatingPointShortest)};
        }
        std::pair<QString, QString> operator()(DateTime v) const { return {kMoment, MomentText(v)}; }
        std::pair<QString, QString> operator()(const QString& v) const {
            return {u"text"_s, u"'%1'"_s.arg(v)};
        }
    };
    return std::visit(Describer(), value.Get());
}

Answer ErrorAnswer(int number) {
    return {{number}, {}, {}};
}

std::vector<Answer> AnswersOf(const RowSet& rows) {
    if (rows.State() == RowSet::Status::Closed)
        return {{{}, kDone, {}}};
    const auto data = rows.Data();
    std::vector<Answer> answers(data->columns.size());
    for (size_t i = 0; i < data->RowCount() * answers.size(); ++i) {
        Answer& answer = answers[i % answers.size()];
        const auto [type, value] = Describe(data->Cell(i / answers.size(), i % answers.size()));
        if (!type.isEmpty())
            answer.type = type;
        answer.values << value;
    }
    return answers;
}

/// Whether two floats are the same but for what adding up in another order does to them.
bool AreClose(const QString& a, const QString& b) {
    bool aIsNumber = false;
    bool bIsNumber = false;
    const double x = a.toDouble(&aIsNumber);
    const double y = b.toDouble(&bIsNumber);
    constexpr double kTolerance = 1e-13;
    return aIsNumber && bIsNumber && std::fabs(x - y) <= kTolerance * std::fmax(std::fabs(x), std::fabs(y));
}

bool SameValue(const QString& type, const QString& expected, const QString& given) {
    if (type == u"date")
        return expected == given || expected + u" 00:00:00.000"_s == given;
    return expected == given || (type == u"float" && AreClose(expected, given));
}

void CheckType(const QString& type) {
    static const QRegularExpression known(
        u"^(bit|int|bigint|money|decimal \\d+|float|date|datetime|text)$"_s);
    if (!known.match(type).hasMatch())
        throw std::invalid_argument("no type: " + type.toStdString());
}

std::set<int> ReadErrors(const QString& numbers) {
    std::set<int> errors;
    for (const QString& number : numbers.split(u'/')) {
        bool ok = false;
        errors.insert(number.trimmed().toInt(&ok));
        if (!ok)
            throw std::invalid_argument("no error number: " + number.toStdString());
    }
    return errors;
}

/// Makes a case of a line's text, as its section tells.
class CaseMaker {
  public:
    void SetSection(const QString& section) {
        const bool known = section == u"value" || section == u"condition" || section == u"statement" ||
                           section.startsWith(u"into ");
        if (!known)
            throw std::invalid_argument("no section: " + section.toStdString());
        mSection = section;
    }

    OracleCase Make(const QString& text, const QString& answer) const {
        OracleCase made;
        made.section = mSection;
        if (mSection == u"condition") {
            made.command = u"SELECT CASE WHEN %1 THEN 1 ELSE 0 END AS x"_s.arg(text);
            made.answer = answer == u"true"    ? Answer{{}, u"int"_s, {u"1"_s}}
                          : answer == u"false" ? Answer{{}, u"int"_s, {u"0"_s}}
                                               : Answer::Read(answer);
            return made;
        }
        made.answer = Answer::Read(answer);
        if (mSection == u"value") {
            made.command = u"SELECT %1 AS x"_s.arg(text);
        } else if (mSection == u"statement") {
            made.command = text;
        } else if (mSection.isEmpty()) {
            throw std::invalid_argument("a case before the first section");
        } else {
            const QString column = mSection.section(u' ', 1);
            made.before = {u"DELETE FROM oracle_columns"_s,
                           u"INSERT INTO oracle_columns (%1) VALUES (%2)"_s.arg(column, text)};
            made.command = u"SELECT %1 FROM oracle_columns"_s.arg(column);
        }
        return made;
    }

  private:
    QString mSection;
};

} // namespace

Answer Answer::Read(const QString& text) {
    if (text.startsWith(u"error "))
        return {ReadErrors(text.sliced(6)), {}, {}};
    if (text == kDone)
        return {{}, kDone, {}};
    const qsizetype bar = text.indexOf(u" | ");
    if (bar < 0)
        throw std::invalid_argument("neither a type with its value nor an error: " + text.toStdString());
    Answer answer{{}, text.left(bar).trimmed(), {}};
    CheckType(answer.type);
    const QString values = text.sliced(bar + 3).trimmed();
    if (values != kNoRows)
        answer.values = values.split(kBetweenRows);
    return answer;
}

QString Answer::ToText() const {
    if (!errors.empty()) {
        QStringList numbers;
        for (const int number : errors)
            numbers << QString::number(number);
        return u"error "_s + numbers.join(u'/');
    }
    return type == kDone ? kDone : type + u" | "_s + (values.empty() ? kNoRows : values.join(kBetweenRows));
}

bool Answer::Admits(const Answer& given) const {
    if (!errors.empty() || !given.errors.empty())
        return given.errors.size() == 1 && errors.contains(*given.errors.begin());
    // Rows of Null alone do not show their type.
    if (!given.type.isEmpty() && Shown(type) != Shown(given.type))
        return false;
    if (values.size() != given.values.size())
        return false;
    for (qsizetype i = 0; i < values.size(); ++i) {
        if (!SameValue(type, values[i], given.values[i]))
            return false;
    }
    return true;
}

std::vector<OracleCase> ReadCases(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot be read: " + path.toStdString());
    std::vector<OracleCase> cases;
    CaseMaker maker;
    std::set<QString> known;
    int number = 0;
    for (const QString& whole : QString::fromUtf8(file.readAll()).split(u'\n')) {
        ++number;
        const QString line = whole.trimmed();
        if (line.isEmpty() || line.startsWith(u'#'))
            continue;
        try {
            if (line.startsWith(u'[') && line.endsWith(u']')) {
                maker.SetSection(line.sliced(1, line.size() - 2));
                continue;
            }
            const qsizetype bar = line.indexOf(u" | ");
            if (bar < 0)
                throw std::invalid_argument("a case without an answer");
            OracleCase made = maker.Make(line.left(bar).trimmed(), line.sliced(bar + 3).trimmed());
            made.file = path;
            made.line = number;
            made.written = line;
            if (!known.insert(made.section + u'\n' + line).second)
                throw std::invalid_argument("a case that stands twice");
            cases.push_back(std::move(made));
        } catch (const std::invalid_argument& error) {
            throw std::runtime_error(QFileInfo(path).fileName().toStdString() + ":" + std::to_string(number) +
                                     ": " + error.what());
        }
    }
    return cases;
}

std::vector<Answer> AskColumns(CommandGateway& gateway, const QString& command) {
    try {
        return AnswersOf(gateway.Execute(command));
    } catch (const RunTimeError& error) {
        return {ErrorAnswer(error.Number())};
    } catch (const std::exception&) {
        return {ErrorAnswer(0)};
    }
}

Answer Ask(CommandGateway& gateway, const OracleCase& asked) {
    for (const QString& command : asked.before) {
        Answer answer = AskColumns(gateway, command).front();
        if (!answer.errors.empty())
            return answer;
    }
    return AskColumns(gateway, asked.command).front();
}
