#pragma once

#include <QColor>
#include <QString>
#include <QStringList>
#include <QXmlStreamAttributes>

#include <optional>

/// The attributes of one element of a template, read by name and checked. Each reading raises the template's
/// error with file and line when the value is not of the kind asked for, or when a required one is missing;
/// Done() raises it for an attribute that nothing has asked for.
class TemplateAttributes {
  public:
    TemplateAttributes(const QString& file, int line, const QString& element,
                       QXmlStreamAttributes attributes);

    int Line() const { return mLine; }

    std::optional<QString> Text(const QString& name);
    QString RequiredText(const QString& name);
    /// "yes" or "no".
    std::optional<bool> YesNo(const QString& name);
    /// A number that is not negative.
    std::optional<double> Number(const QString& name);
    /// Millimetres, as points.
    std::optional<double> Length(const QString& name);
    double RequiredLength(const QString& name);
    /// A number of millimetres for each of the count, apart by blanks, as points.
    std::optional<QList<double>> Lengths(const QString& name, qsizetype count);
    /// A name such as "gray" or "#1f5f8b".
    std::optional<QColor> Color(const QString& name);
    /// One of the words; answers its place among them.
    std::optional<qsizetype> Word(const QString& name, const QStringList& words);

    /// Raises the error for an attribute that the element does not have.
    void Done() const;
    [[noreturn]] void Fail(const QString& what) const;

  private:
    [[noreturn]] void FailValue(const QString& name, const QString& value, const QString& expected) const;

    QString mFile;
    int mLine;
    QString mElement;
    QXmlStreamAttributes mAttributes;
    QStringList mAsked;
};

/// Millimetres as points.
constexpr double MillimetresToPoints(double millimetres) {
    return millimetres * 72.0 / 25.4;
}
