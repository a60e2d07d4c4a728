#pragma once

#include <QMdiArea>
#include <QString>

class QFrame;
class QLabel;

/// Where the clerk is, as the empty area tells it.
struct WhereOneIs {
    QString hospital;
    /// With its code.
    QString department;
    QString dataSource;
    /// With his initials.
    QString user;
    /// Nothing that is keyed here reaches an account.
    bool isTrial = false;
};

/// The area in which the screens show. Empty, it tells where one is and how to begin; screens lie above that.
class MainArea : public QMdiArea {
    Q_OBJECT

  public:
    explicit MainArea(QWidget* parent);

    /// Nothing is told before this.
    void Tell(const WhereOneIs& where);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

  private:
    void Reveal(const QWidget* focus);
    QLabel* AddLine(const QString& name, const QString& text);
    void PlacePanel();

    QFrame* mPanel;
};
