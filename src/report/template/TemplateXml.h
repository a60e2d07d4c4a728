#pragma once

#include "report/template/TemplateAttributes.h"

#include <QByteArray>
#include <QString>
#include <QXmlStreamReader>

/// A template's file while it is read, element by element. What is not well-formed, and text where none
/// belongs, raises the template's error with file and line.
class TemplateXml {
  public:
    /// `file` is named in the errors.
    TemplateXml(const QString& file, const QByteArray& content);

    /// Goes on to the next element within the present one; false when that one has ended.
    bool NextChild();
    /// The present element.
    QString Name() const { return mReader.name().toString(); }
    int Line() const { return static_cast<int>(mReader.lineNumber()); }
    TemplateAttributes Attributes() const;
    /// The text of the present element, to its end. No element may stand within it.
    QString ReadText();
    /// Raises the error for an element that does not belong where it stands.
    [[noreturn]] void FailElement() const;
    /// Goes to the end of an element that holds nothing.
    void ExpectEnd();
    /// Goes to the end of the file.
    void Finish();
    [[noreturn]] void Fail(const QString& what) const;

  private:
    void Advance();

    QString mFile;
    QXmlStreamReader mReader;
};
