#pragma once

#include <QWidget>

#include <chrono>

class QFrame;
class QKeyEvent;
class QLabel;
class QPushButton;
class QTimer;
class TypedLine;

/// The strip of the main window that tells of the wards' requests: while some wait, it shows a picture that
/// flashes and a line that types itself out. A double click on the picture opens the queue, as F6 does from
/// anywhere in the main window, and Enter or the space bar on the picture itself.
///
/// It asks four times a second over the one connection, from the start on, behind modal screens too. A
/// failing question ends the program like any other failure.
class PendingMonitor : public QWidget {
    Q_OBJECT

  public:
    explicit PendingMonitor(QWidget* parent);

    /// Starts asking. Nothing is sent before somebody has signed on.
    void Start();
    /// Stops every timer, with the end of the main window.
    void Stop();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Layout();
    void LayoutTimers();
    void LayoutPending();
    void LayoutText();
    QTimer* NewTimer(const char* name, std::chrono::milliseconds interval);

    void tmrCheckPending_Timer();
    void tmrPending_Timer();
    void Timer2_Timer();
    void Timer1_Timer();
    void Image1_DblClick();
    void OpenByKey();
    bool PictureKey(const QKeyEvent& event);

    QTimer* tmrCheckPending = nullptr;
    QTimer* tmrPending = nullptr;
    QTimer* Timer2 = nullptr;
    QTimer* Timer1 = nullptr;
    QTimer* tmrPrepaid = nullptr;
    QFrame* pctPending = nullptr;
    QLabel* Image1 = nullptr;
    QFrame* Picture1 = nullptr;
    TypedLine* Label1 = nullptr;
    QPushButton* cmdPrepaid = nullptr;
    /// How many letters the next step types. Goes on where it stood when requests come again.
    int mTyped = 0;
};
