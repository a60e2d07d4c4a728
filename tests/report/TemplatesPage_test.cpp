#include "report/template/TemplateReader.h"
#include "support/report/ReportFixture.h"

#include <QImage>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// What docs/templates.md tells whoever changes a template: its examples are templates that are read, and none
// of what a template may hold is missing among them.

namespace {

QString Source(const QString& path) {
    return QString::fromUtf8(ReadFile(u"" TARVEN_SOURCE_DIR "/"_s + path));
}

QStringList Examples() {
    static const QRegularExpression fence(u"^ *```xml\\n(.*?)^ *```"_s,
                                          QRegularExpression::MultilineOption |
                                              QRegularExpression::DotMatchesEverythingOption);
    QStringList examples;
    auto matches = fence.globalMatch(Source(u"docs/templates.md"_s));
    while (matches.hasNext())
        examples << matches.next().captured(1).trimmed();
    return examples;
}

QString FirstElement(const QString& example) {
    static const QRegularExpression element(u"<([a-z-]+)"_s);
    return element.match(example).captured(1);
}

/// A whole template with the example where it belongs.
QString Whole(const QString& example) {
    const QString first = FirstElement(example);
    if (first == u"report"_s)
        return example;
    const auto part = [&](const QString& element, const QString& otherwise) {
        return first == element ? example : otherwise;
    };
    const bool isCell = QStringList{u"text"_s, u"line"_s, u"box"_s, u"image"_s, u"barcode"_s}.contains(first);
    const bool isBand =
        QStringList{u"page-header"_s, u"page-footer"_s, u"group"_s, u"report-footer"_s}.contains(first);
    QString whole = u"<report paper=\"A4\" margins=\"7 7 7 7\">"_s;
    whole += part(u"parameters"_s, u"<parameters><parameter name=\"Least\" type=\"number\" "
                                   "prompt=\"Least\"/><parameter name=\"SlipNumber\" type=\"text\" "
                                   "prompt=\"Slip\"/></parameters>"_s);
    whole +=
        part(u"tables"_s, u"<tables><table name=\"Charges\" location=\"Clinical_Area.dbo.tbCharges\"/><table "
                          "name=\"Hospital\" location=\"PATIENT_DATA.dbo.tbhospitalInfo\"/></tables>"_s);
    whole +=
        part(u"query"_s, u"<query>SELECT 1 FROM {Charges}</query><query name=\"Hospital\">SELECT company "
                         "FROM {Hospital}</query>"_s);
    whole += part(u"styles"_s, u"<styles><style name=\"label\"/></styles>"_s);
    if (isBand)
        whole += example;
    if (isCell)
        whole += u"<detail height=\"20\">"_s + example + u"</detail>"_s;
    return whole + u"</report>"_s;
}

/// "text/width" for each attribute of each element in the examples, and "text" for the element itself.
QSet<QString> Shown() {
    QSet<QString> shown;
    for (const QString& example : Examples()) {
        QXmlStreamReader xml(Whole(example));
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement)
                continue;
            shown << xml.name().toString();
            for (const QXmlStreamAttribute& attribute : xml.attributes())
                shown << xml.name().toString() + u'/' + attribute.name().toString();
        }
        EXPECT_FALSE(xml.hasError()) << example.toStdString();
    }
    return shown;
}

/// The names that a file of the reader compares or asks for.
QSet<QString> Known(const QString& file, const QString& pattern) {
    QSet<QString> known;
    auto matches = QRegularExpression(pattern).globalMatch(Source(u"src/report/template/"_s + file));
    while (matches.hasNext())
        known << matches.next().captured(1);
    EXPECT_FALSE(known.isEmpty()) << file.toStdString();
    return known;
}

bool AnyEndsWith(const QSet<QString>& shown, const QString& ending) {
    return std::any_of(shown.begin(), shown.end(),
                       [&](const QString& name) { return name.endsWith(ending); });
}

} // namespace

TEST(TemplatesPage, EachOfItsExamplesIsRead) {
    const QTemporaryDir folder;
    QImage(4, 4, QImage::Format_RGB32).save(folder.filePath(u"logo.png"_s));
    const QStringList examples = Examples();
    EXPECT_GT(examples.size(), 10);
    for (const QString& example : examples)
        EXPECT_NO_THROW(ReadTemplate(folder.filePath(u"example.rpt"_s), Whole(example).toUtf8()))
            << TextOfFailure([&] {
                   ReadTemplate(folder.filePath(u"example.rpt"_s), Whole(example).toUtf8());
               }).toStdString()
            << "\n"
            << example.toStdString();
}

TEST(TemplatesPage, TheWorkedExampleIsReadAndHasWhatItsStepsTell) {
    const QString file = u"" TARVEN_SOURCE_DIR "/docs/examples/SlipWithBarcode.rpt"_s;
    const QByteArray example = ReadFile(file);
    EXPECT_NO_THROW(ReadTemplate(file, example));
    const QString page = Source(u"docs/templates.md"_s);
    const qsizetype begin = page.indexOf(u"## A slip of your own"_s);
    const QString steps = page.mid(begin, page.indexOf(u"\n## "_s, begin) - begin);
    int lines = 0;
    for (const QString& line : steps.split(u'\n')) {
        if (!line.trimmed().startsWith(u'<'))
            continue;
        ++lines;
        EXPECT_TRUE(QString::fromUtf8(example).contains(line.trimmed())) << line.toStdString();
    }
    EXPECT_GT(lines, 20);
}

TEST(TemplatesPage, ShowsEveryElementInAnExample) {
    const QSet<QString> shown = Shown();
    QSet<QString> elements = Known(u"TemplateReader.cpp"_s, u"ame(?:\\(\\))? [!=]= \"([a-z-]+)\"_L1"_s);
    elements += Known(u"TemplateReader.cpp"_s, u"ReadList\\(Stage::\\w+, u\"([a-z-]+)\"_s"_s);
    elements += Known(u"BandReader.cpp"_s, u"name == \"([a-z-]+)\"_L1"_s);
    for (const QString& element : elements)
        EXPECT_TRUE(shown.contains(element)) << element.toStdString();
    EXPECT_TRUE(elements.contains(u"image"_s) && elements.contains(u"report-footer"_s) &&
                elements.contains(u"parameter"_s));
}

TEST(TemplatesPage, ShowsEveryAttributeInAnExampleAndTellsOfIt) {
    const QSet<QString> shown = Shown();
    const QString page = Source(u"docs/templates.md"_s);
    const QString asked = u"(?:Text|Length|Lengths|Number|YesNo|Word|Color)\\(u\"([a-z0-9-]+)\"_s"_s;
    const QSet<QString> attributes =
        Known(u"TemplateReader.cpp"_s, asked) + Known(u"BandReader.cpp"_s, asked);
    for (const QString& attribute : attributes) {
        EXPECT_TRUE(AnyEndsWith(shown, u'/' + attribute)) << attribute.toStdString();
        EXPECT_TRUE(page.contains(u'`' + attribute + u'`') || page.contains(attribute + u"=\""_s))
            << attribute.toStdString();
    }
    EXPECT_TRUE(attributes.contains(u"dashed"_s) && attributes.contains(u"keep-together"_s));
}

TEST(TemplatesPage, ShowsEveryPlaceholder) {
    const QString examples = Examples().join(u'\n');
    for (const QString& name : Known(u"TemplatePieces.cpp"_s, u"name == \"([a-z]+)\"_L1"_s))
        EXPECT_TRUE(examples.contains(u'{' + name + u'}')) << name.toStdString();
    EXPECT_TRUE(examples.contains(u"{sum "_s));
    EXPECT_TRUE(examples.contains(u"{?"_s));
}
