#include "toolkit/ColoredIcon.h"

#include "toolkit/Colors.h"

#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QIconEngine>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

#include <map>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

/// A drawing is a picture for each ground that it shows on, much larger than it shows.
QString PictureOf(const QString& name, QIcon::Mode mode) {
    const QString desktop = &TheColors() == &LightColors() ? u"light"_s : u"dark"_s;
    const QString ground = mode == QIcon::Selected ? u"-selected"_s : QString();
    return u":/icons/%1%2/%3.png"_s.arg(desktop, ground, name);
}

class ColoredIcon : public QIconEngine {
  public:
    explicit ColoredIcon(const QString& name)
        : mName(name) {}

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

    QIconEngine* clone() const override { return new ColoredIcon(*this); }
    bool isNull() override { return !QFile::exists(PictureOf(mName, QIcon::Normal)); }

  private:
    QPixmap Draw(const QSize& size, QIcon::Mode mode) const {
        // The smooth way down takes the mean of what a pixel covers.
        const QImage drawn =
            QImage(PictureOf(mName, mode)).scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.drawImage((size.width() - drawn.width()) / 2, (size.height() - drawn.height()) / 2, drawn);
        painter.end();
        const QStyleOption option;
        return mode == QIcon::Disabled ? QApplication::style()->generatedIconPixmap(mode, picture, &option)
                                       : picture;
    }

    QString mName;
    /// Lists paint theirs in every row.
    std::map<std::tuple<const Colors*, int, int, QIcon::Mode>, QPixmap> mDrawn;
};

} // namespace

QIcon IconInColors(const QString& name) {
    return QIcon(new ColoredIcon(name));
}
