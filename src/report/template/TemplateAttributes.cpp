#include "report/template/TemplateAttributes.h"

#include "report/template/TemplateError.h"
#include "text/RunTimeError.h"

using namespace Qt::StringLiterals;

namespace {

/// Far beyond any paper; a longer length is a slip of the keyboard.
constexpr double kLongest = 2000;

std::optional<double> ToNumber(const QString& text) {
    bool valid = false;
    const double number = text.toDouble(&valid);
    if (!valid || !(number >= 0) || number > kLongest)
        return std::nullopt;
    return number;
}

} // namespace

TemplateAttributes::TemplateAttributes(const QString& file, int line, const QString& element,
                                       QXmlStreamAttributes attributes)
    : mFile(file)
    , mLine(line)
    , mElement(element)
    , mAttributes(std::move(attributes)) {}

std::optional<QString> TemplateAttributes::Text(const QString& name) {
    mAsked << name;
    if (!mAttributes.hasAttribute(name))
        return std::nullopt;
    return mAttributes.value(name).toString();
}

QString TemplateAttributes::RequiredText(const QString& name) {
    const auto text = Text(name);
    if (!text || text->isEmpty())
        Fail(u"<%1> needs the attribute \"%2\"."_s.arg(mElement, name));
    return *text;
}

std::optional<bool> TemplateAttributes::YesNo(const QString& name) {
    const auto word = Word(name, {u"no"_s, u"yes"_s});
    if (!word)
        return std::nullopt;
    return *word == 1;
}

std::optional<double> TemplateAttributes::Number(const QString& name) {
    const auto text = Text(name);
    if (!text)
        return std::nullopt;
    const auto number = ToNumber(*text);
    if (!number)
        FailValue(name, *text, u"a number"_s);
    return number;
}

std::optional<double> TemplateAttributes::Length(const QString& name) {
    const auto number = Number(name);
    if (!number)
        return std::nullopt;
    return MillimetresToPoints(*number);
}

double TemplateAttributes::RequiredLength(const QString& name) {
    RequiredText(name);
    return *Length(name);
}

std::optional<QList<double>> TemplateAttributes::Lengths(const QString& name, qsizetype count) {
    const auto text = Text(name);
    if (!text)
        return std::nullopt;
    QList<double> lengths;
    const QStringList words = text->split(u' ', Qt::SkipEmptyParts);
    for (const QString& word : words) {
        const auto number = ToNumber(word);
        if (!number)
            FailValue(name, *text, u"%1 numbers"_s.arg(count));
        lengths << MillimetresToPoints(*number);
    }
    if (lengths.size() != count)
        FailValue(name, *text, u"%1 numbers"_s.arg(count));
    return lengths;
}

std::optional<QColor> TemplateAttributes::Color(const QString& name) {
    const auto text = Text(name);
    if (!text)
        return std::nullopt;
    const QColor color(*text);
    if (!color.isValid())
        FailValue(name, *text, u"a colour such as \"gray\" or \"#1f5f8b\""_s);
    return color;
}

std::optional<qsizetype> TemplateAttributes::Word(const QString& name, const QStringList& words) {
    const auto text = Text(name);
    if (!text)
        return std::nullopt;
    const qsizetype place = words.indexOf(*text);
    if (place < 0)
        FailValue(name, *text, u"one of "_s + words.join(u", "_s));
    return place;
}

void TemplateAttributes::Done() const {
    for (const QXmlStreamAttribute& attribute : mAttributes) {
        if (!mAsked.contains(attribute.qualifiedName().toString()))
            Fail(u"<%1> has no attribute \"%2\"."_s.arg(mElement, attribute.qualifiedName()));
    }
}

void TemplateAttributes::Fail(const QString& what) const {
    throw TemplateError(mFile, mLine, what);
}

void TemplateAttributes::FailValue(const QString& name, const QString& value, const QString& expected) const {
    Fail(u"The attribute \"%1\" of <%2> is \"%3\" and must be %4."_s.arg(name, mElement, value, expected));
}
