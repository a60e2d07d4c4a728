#pragma once

#include <QPointer>
#include <QWidget>

class QLabel;
class QLineEdit;
class QListWidget;
class QTextBrowser;
class QUrl;

/// The manual in a window of its own, beside the screen in hand: the pages on the left, the one that is read
/// on the right, and a box that searches all of them. Escape closes it and leads back to where the clerk came
/// from. It may be used while a modal screen is open.
class HelpWindow : public QWidget {
    Q_OBJECT

  public:
    /// Opens the manual at a page, or leads there when it is open already.
    static void Open(const QString& page);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    HelpWindow();

    void Layout();
    void LayoutPages();
    void Wire();

    void StandOver();
    void PlaceAside();
    void ShowPage(const QString& page);
    void MarkPage(const QUrl& source);
    void Search();
    void FindNext();
    void MarkHits();
    QString Wanted() const;

    QLineEdit* txtSearch;
    QListWidget* lstPages;
    QTextBrowser* brwPage;
    QLabel* lblHint;
    /// The page in hand, by its name.
    QString mPage;
    /// The window from which the clerk came.
    QPointer<QWidget> mFrom;
    /// The modal window over which this one stands; null for none.
    QPointer<QWidget> mOver;
};
