#include "InsertWriter.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace Generator {

QString DayText(QDate day) {
    return u"%1%2%3"_s.arg(day.year(), 4, 10, QChar(u'0'))
        .arg(day.month(), 2, 10, QChar(u'0'))
        .arg(day.day(), 2, 10, QChar(u'0'));
}

InsertWriter::InsertWriter(StatementSink sink, const QString& table, const QString& columns)
    : mSink(std::move(sink))
    , mHead(u"INSERT INTO %1 (%2) VALUES\n"_s.arg(table, columns)) {}

InsertWriter& InsertWriter::Begin() {
    mText += mRows == 0 ? mHead + u'(' : u",\n("_s;
    mFirstColumn = true;
    return *this;
}

InsertWriter& InsertWriter::Raw(QStringView literal) {
    if (!mFirstColumn)
        mText += u',';
    mFirstColumn = false;
    mText += literal;
    return *this;
}

InsertWriter& InsertWriter::Text(QStringView value) {
    return Raw(QString(u'\'' + value.toString().replace(u'\'', "''"_L1) + u'\''));
}

InsertWriter& InsertWriter::TextOrNull(QStringView value) {
    return value.isEmpty() ? Raw(u"NULL") : Text(value);
}

InsertWriter& InsertWriter::Number(qint64 value) {
    return Raw(QString::number(value));
}

InsertWriter& InsertWriter::Money(qint64 centavos) {
    QString literal = QString::number(centavos / 100);
    if (centavos < 0 && centavos > -100)
        literal.prepend(u'-');
    if (const qint64 rest = qAbs(centavos % 100); rest != 0)
        literal += u".%1"_s.arg(rest, 2, 10, QChar(u'0'));
    return Raw(literal);
}

InsertWriter& InsertWriter::Date(QDate value) {
    return Raw(QString(u'\'' + DayText(value) + u'\''));
}

InsertWriter& InsertWriter::Date(Moment value) {
    QString literal = u'\'' + DayText(BaseDay().addDays(value.day));
    if (value.minute != 0)
        literal +=
            u" %1:%2"_s.arg(value.minute / 60, 2, 10, QChar(u'0')).arg(value.minute % 60, 2, 10, QChar(u'0'));
    return Raw(QString(literal + u'\''));
}

InsertWriter& InsertWriter::Date(const std::optional<Moment>& value) {
    return value ? Date(*value) : Raw(u"NULL");
}

void InsertWriter::End() {
    mText += u')';
    if (++mRows == kRowsPerInsert)
        Finish();
}

void InsertWriter::Finish() {
    if (mRows == 0)
        return;
    mText += u';';
    mSink(mText);
    mText.clear();
    mRows = 0;
}

} // namespace Generator
