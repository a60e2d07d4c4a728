#include "toolkit/Look.h"

#include "toolkit/ColoredIcon.h"
#include "toolkit/Colors.h"
#include "toolkit/ProgramStyle.h"

#include <QApplication>
#include <QDir>
#include <QFont>
#include <QFontDatabase>
#include <QHash>
#include <QIcon>
#include <QToolTip>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The face for which the screens were drawn.
constexpr int kPointSize = 8;

/// What the style does not draw by itself; "@" stands before a colour's name.
constexpr auto kStyleSheet = R"(
QGroupBox { font-weight: bold; border: 1px solid @line; border-radius: 4px; margin-top: 8px; padding-top: 8px; }
QGroupBox::title { subcontrol-origin: margin; left: 8px; padding: 0 4px; min-height: 14px; }
QLabel[heading="true"] { font-size: 12pt; font-weight: bold; color: @heading; }
QLabel[problem="true"] { font-weight: bold; color: @problem; }
QLabel[trial="true"] { font-size: 32pt; font-weight: bold; color: @problem; border: 4px solid @problem;
    padding: 4px 32px; }
QLineEdit[floating="true"] { background: @shown; border: 2px solid @grid; border-radius: 0; padding: 0 2px;
    color: @quiet; }
QLineEdit[floating="true"]:focus { background: @editor; border-color: @focus; color: @text; }
QStatusBar QLabel { padding: 1px 8px; }
QStatusBar::item { border: none; }
)";

QString StyleSheetIn(const Colors& colors) {
    const std::pair<QLatin1StringView, QColor> names[] = {
        {"@line"_L1, colors.line},       {"@grid"_L1, colors.grid},   {"@heading"_L1, colors.heading},
        {"@problem"_L1, colors.problem}, {"@shown"_L1, colors.shown}, {"@quiet"_L1, colors.quiet},
        {"@editor"_L1, colors.editor},   {"@focus"_L1, colors.focus}, {"@text"_L1, colors.text}};
    QString sheet = QString::fromLatin1(kStyleSheet);
    for (const auto& [name, color] : names)
        sheet.replace(name, color.name());
    return sheet;
}

/// The picture for each size lies in the folder.
QIcon IconInSizes(const QString& folder) {
    QIcon icon;
    const QDir pictures(folder);
    for (const QString& picture : pictures.entryList())
        icon.addFile(pictures.filePath(picture));
    return icon;
}

} // namespace

QStringList LoadFaces(const QString& folder) {
    const QDir files(folder);
    QStringList families;
    for (const QString& file : files.entryList({u"LiberationSans-*.ttf"_s}))
        families +=
            QFontDatabase::applicationFontFamilies(QFontDatabase::addApplicationFont(files.filePath(file)));
    families.removeDuplicates();
    return families;
}

void ApplyLook(QApplication& application) {
    LoadFaces(QCoreApplication::applicationDirPath() + u"/fonts"_s);
    FollowDesktop();
    QApplication::setStyle(new ProgramStyle);
    QApplication::setPalette(PaletteOf(TheColors()));
    QToolTip::setPalette(PaletteOf(TheColors()));
    QFont font(QStringList{u"Liberation Sans"_s, u"DejaVu Sans"_s}, kPointSize);
    QApplication::setFont(font);
    application.setStyleSheet(StyleSheetIn(TheColors()));
    // Desktops show it on grounds of their own.
    QApplication::setWindowIcon(IconInSizes(u":/icons/program/"_s));
}

QIcon ProgramIcon(const QString& name) {
    // To the end of the process: icons are in use until then.
    static auto& icons = *new QHash<QString, QIcon>;
    QIcon& icon = icons[name];
    if (icon.isNull())
        icon = IconInColors(name);
    return icon;
}
