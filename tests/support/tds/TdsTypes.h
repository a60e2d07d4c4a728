#pragma once

#include "gateway/Value.h"

#include <QByteArray>
#include <QString>

#include <optional>

/// The server's types of columns.
enum class TdsType {
    TinyInt,
    SmallInt,
    Int,
    BigInt,
    Bit,
    Real,
    Float,
    SmallMoney,
    Money,
    Decimal,
    SmallDateTime,
    DateTime,
    /// With milliseconds.
    DateTime2,
    Date,
    Char,
    VarChar,
    NVarChar,
    VarCharMax,
    NVarCharMax,
};

/// A column of an answer.
struct TdsColumn {
    QString name = {};
    TdsType type = TdsType::NVarChar;
    /// The declared length of a text in characters.
    int length = 100;
    /// The declared digits of a decimal, in all and behind the point.
    int precision = 18;
    int scale = 2;
};

/// Writes numbers and texts as the protocol has them: the lowest byte first, texts in two-byte characters.
class TdsBytes {
  public:
    void Byte(int value) { mBytes.append(static_cast<char>(value)); }
    /// The lowest `size` bytes of a number.
    void Number(quint64 value, int size);
    void Raw(const QByteArray& bytes) { mBytes.append(bytes); }
    /// A text behind its length in characters, which takes that many bytes.
    void Text(const QString& text, int lengthSize);

    const QByteArray& Get() const { return mBytes; }

  private:
    QByteArray mBytes;
};

/// A text's characters, two bytes each.
QByteArray WideBytes(const QString& text);
/// The text of two-byte characters.
QString WideText(const QByteArray& bytes);

/// Writes what a column's description tells of its type.
void WriteType(TdsBytes& bytes, const TdsColumn& column);
/// Writes a cell; the value must be one that fits the column's type, or Null. Raises std::invalid_argument
/// for a number or a text that would be cut.
void WriteCell(TdsBytes& bytes, const TdsColumn& column, const Value& value);
/// Writes a cell of any content, nothing being Null: a value of fixed size is made of so many of the bytes,
/// filled up with zeros, and a text is cut to its column.
void WriteRawCell(TdsBytes& bytes, const TdsColumn& column, const std::optional<QByteArray>& content);
