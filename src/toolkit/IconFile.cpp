#include "toolkit/IconFile.h"

#include "toolkit/Colors.h"

#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QIconEngine>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QSvgRenderer>

#include <map>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

QByteArray InColors(QByteArray drawing, QIcon::Mode mode) {
    const Colors& drawn = LightColors();
    const Colors& now = TheColors();
    // On a selected row the icon's own colours would drown.
    const bool isSelected = mode == QIcon::Selected;
    const std::pair<QColor, QColor> changes[] = {{drawn.text, isSelected ? now.onMark : now.text},
                                                 {drawn.ink, isSelected ? now.onMark : now.ink},
                                                 {drawn.softInk, isSelected ? now.onMark : now.softInk},
                                                 {drawn.problem, now.problem},
                                                 {drawn.warning, now.warning},
                                                 {drawn.window, now.window}};
    for (const auto& [from, to] : changes)
        drawing.replace(from.name().toLatin1(), to.name().toLatin1());
    return drawing;
}

class FileIcon : public QIconEngine {
  public:
    explicit FileIcon(const QString& file) {
        QFile drawing(file);
        if (drawing.open(QIODevice::ReadOnly))
            mDrawing = drawing.readAll();
    }

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State state) override {
        const double ratio = painter->device()->devicePixelRatioF();
        painter->drawPixmap(place, pixmap((QSizeF(place.size()) * ratio).toSize(), mode, state));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
        QPixmap& picture = mDrawn[{&TheColors(), size.width(), size.height(), mode}];
        if (picture.isNull())
            picture = Draw(size, mode);
        return picture;
    }

    QIconEngine* clone() const override { return new FileIcon(*this); }
    bool isNull() override { return mDrawing.isEmpty(); }

  private:
    QPixmap Draw(const QSize& size, QIcon::Mode mode) const {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        QSvgRenderer renderer(InColors(mDrawing, mode));
        renderer.setAspectRatioMode(Qt::KeepAspectRatio);
        renderer.render(&painter);
        painter.end();
        const QStyleOption option;
        return mode == QIcon::Disabled ? QApplication::style()->generatedIconPixmap(mode, picture, &option)
                                       : picture;
    }

    QByteArray mDrawing;
    /// Lists paint theirs in every row.
    std::map<std::tuple<const Colors*, int, int, QIcon::Mode>, QPixmap> mDrawn;
};

} // namespace

QIcon IconFromFile(const QString& file) {
    return QIcon(new FileIcon(file));
}
