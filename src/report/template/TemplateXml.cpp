#include "report/template/TemplateXml.h"

#include "report/template/TemplateError.h"
#include "text/RunTimeError.h"

using namespace Qt::StringLiterals;

TemplateXml::TemplateXml(const QString& file, const QByteArray& content)
    : mFile(file)
    , mReader(content) {}

void TemplateXml::Advance() {
    mReader.readNext();
    if (mReader.hasError())
        Fail(mReader.errorString());
    if (mReader.isDTD() || mReader.isEntityReference())
        Fail(u"A template has neither a DOCTYPE nor entities of its own."_s);
}

bool TemplateXml::NextChild() {
    for (;;) {
        Advance();
        if (mReader.isStartElement())
            return true;
        if (mReader.isEndElement() || mReader.atEnd())
            return false;
        if (mReader.isCharacters() && !mReader.isWhitespace())
            Fail(u"The text \"%1\" stands outside of <text>."_s.arg(mReader.text().trimmed().left(20)));
    }
}

TemplateAttributes TemplateXml::Attributes() const {
    return {mFile, Line(), Name(), mReader.attributes()};
}

QString TemplateXml::ReadText() {
    const QString name = Name();
    QString text;
    for (;;) {
        Advance();
        if (mReader.isEndElement())
            return text;
        if (mReader.isStartElement())
            Fail(u"<%1> cannot hold <%2>."_s.arg(name, Name()));
        if (mReader.isCharacters())
            text += mReader.text();
    }
}

void TemplateXml::ExpectEnd() {
    if (NextChild())
        FailElement();
}

void TemplateXml::Finish() {
    while (!mReader.atEnd())
        Advance();
}

void TemplateXml::FailElement() const {
    Fail(u"The element <%1> does not belong here."_s.arg(Name()));
}

void TemplateXml::Fail(const QString& what) const {
    throw TemplateError(mFile, Line(), what);
}
