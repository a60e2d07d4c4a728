#include "toolkit/Look.h"

#include "toolkit/ProgramStyle.h"

#include <QApplication>
#include <QFile>
#include <QFont>
#include <QHash>
#include <QIcon>
#include <QPalette>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPointSize = 9;
constexpr QColor kAccent(0x1f, 0x5f, 0x8b);
constexpr QColor kWindow(0xf3, 0xf5, 0xf7);
constexpr QColor kText(0x1c, 0x23, 0x2b);
constexpr QColor kDisabledText(0x5c, 0x66, 0x70);
constexpr QColor kAlternate(0xf0, 0xf5, 0xf9);

QPalette ProgramPalette() {
    QPalette palette(kWindow);
    palette.setColor(QPalette::WindowText, kText);
    palette.setColor(QPalette::Text, kText);
    palette.setColor(QPalette::ButtonText, kText);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, kAlternate);
    palette.setColor(QPalette::Highlight, kAccent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, kDisabledText);
    // What is disabled must still be read: a filled header is disabled more often than not.
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, kDisabledText);
    return palette;
}

constexpr auto kStyleSheet = R"(
QGroupBox { font-weight: bold; border: 1px solid #c3ccd5; border-radius: 4px; margin-top: 9px; padding-top: 4px; }
QGroupBox::title { subcontrol-origin: margin; left: 9px; padding: 0 3px; }
QLabel[heading="true"] { font-size: 14pt; font-weight: bold; color: #1f5f8b; }
QLineEdit:read-only, QLineEdit:disabled { background: #eef1f4; }
QLineEdit[wrong="true"] { background: #fdecea; border: 2px solid #a3262b; border-radius: 2px; }
QLineEdit[wrong="true"]:focus { border-color: #1f5f8b; }
QLabel[trial="true"] { font-size: 40pt; font-weight: bold; color: #b3261e; border: 4px solid #b3261e; padding: 4px 32px; }
QLineEdit[floating="true"] { background: #eef1f4; border: 2px solid #c3ccd5; border-radius: 0; padding: 0 2px;
    color: #5c6670; }
QLineEdit[floating="true"]:focus { background: #fff6cf; border-color: #1f5f8b; color: #1c232b; }
QStatusBar QLabel { padding: 1px 6px; }
QStatusBar::item { border: none; }
)";

} // namespace

void ApplyLook(QApplication& application) {
    // The icons lie in a static library, whose resources nobody else would take up.
    Q_INIT_RESOURCE(icons);
    QApplication::setStyle(new ProgramStyle);
    QApplication::setPalette(ProgramPalette());
    QFont font(QStringList{u"Liberation Sans"_s, u"DejaVu Sans"_s}, kPointSize);
    QApplication::setFont(font);
    application.setStyleSheet(QString::fromLatin1(kStyleSheet));
    QApplication::setWindowIcon(ProgramIcon(u"program"_s));
}

QIcon KeptIcon(const QString& file) {
    // To the end of the process: icons are in use until then.
    static auto& icons = *new QHash<QString, QIcon>;
    QIcon& icon = icons[file];
    if (!icon.isNull())
        return icon;
    icon = QIcon(file);
    // On the colour of a selected row the icon's own colours would drown.
    const QString selected = QString(file).replace(u".svg"_s, u"-selected.svg"_s);
    if (QFile::exists(selected))
        icon.addFile(selected, {}, QIcon::Selected);
    return icon;
}

QIcon ProgramIcon(const QString& name) {
    return KeptIcon(u":/icons/"_s + name + u".svg"_s);
}
