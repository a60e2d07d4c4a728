#pragma once

#include <QLabel>
#include <QPixmap>
#include <QPoint>

#include <vector>

/// A line of text that shows its first letters, as one that is being typed. It does so twenty times a second
/// for as long as requests wait: so it has one size, which lets no layout be made anew, and keeps pictures of
/// itself, so that neither the letters are shaped nor the bars beneath them painted each time.
class TypedLine : public QLabel {
    Q_OBJECT

  public:
    /// Shows the whole text at first.
    TypedLine(const QString& whole, QWidget* parent);

    /// Takes the size that the whole text needs in the font that the line has now.
    void FitWhole();
    /// Shows that many letters of the text.
    void Type(qsizetype letters);

  protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void TakePicture();
    /// Puts the picture on the display without asking the toolkit which widgets there are to be painted: that
    /// takes longer than all else that a letter does. Answers whether it could; nothing lies over the line.
    bool ShowPicture() const;
    bool HasMoved() const;
    void DropPictures();

    QString mWhole;
    /// The line with its first letters on the bar as it looks there, by their number; null where none was
    /// taken.
    std::vector<QPixmap> mPictures;
    /// How many letters can be seen: those that were typed, but for a blank at their end.
    qsizetype mSeen = 0;
    /// Where in the window they were taken, and how many dots to a pixel the screen had.
    QPoint mPlace;
    double mRatio = 0;
};
