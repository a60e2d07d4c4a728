#pragma once

#include <QLineEdit>
#include <QString>

#include <optional>

/// A box for one line of text.
///
/// Of a text that comes at once, pasted by key, by menu or by the mouse, or dropped, the box takes the first
/// line, or the first cell of a sheet, without the characters that nobody sees, and cut where the box is
/// full. To the key handlers of the box it is a Ctrl+V, and behind it each of its characters a key of its
/// own, so it comes out as if it had been typed. What the program itself sets stays as it is.
///
/// A text for which the box has too little room stands whole in a tip.
class TextBox : public QLineEdit {
    Q_OBJECT

  public:
    explicit TextBox(QWidget* parent = nullptr);

  public Q_SLOTS:
    /// Pastes what was copied. The box's own menu calls it too.
    void paste();

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dropEvent(QDropEvent* event) override;

    /// Puts a text that came at once, without what nobody sees, in the place of what is marked.
    virtual void TakeText(const QString& text);

  private:
    bool IsCut() const;
    void Offer(const QString& text);
    qsizetype Room() const;

    /// What is to be pasted instead of what was copied.
    std::optional<QString> mOffered;
};
