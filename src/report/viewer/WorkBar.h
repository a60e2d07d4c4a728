#pragma once

#include <QFrame>

#include <chrono>

class QLabel;
class QProgressBar;
class QTimer;

/// Tells the clerk what a report is waiting for, with a bar and a button to give it up. It shows itself only
/// when the work lasts, so that a slip appears without a flicker.
class WorkBar : public QFrame {
    Q_OBJECT

  public:
    explicit WorkBar(QWidget* parent);

    /// After this time the clerk is told.
    static constexpr std::chrono::milliseconds kPatience{300};

    /// `what` is being done from now on; how much of it there is, nobody knows yet.
    void Begin(const QString& what);
    void SetProgress(int done, int total);
    void End();

  Q_SIGNALS:
    void CancelRequested();

  private:
    QLabel* mLabel;
    QProgressBar* mBar;
    QTimer* mPatience;
};
