#pragma once

#include <QApplication>

class QKeyEvent;

/// The program's application object: the top of the event dispatch, where an exception that no handler traps
/// is caught, however deep the nested event loops are.
class Application : public QApplication {
    Q_OBJECT

  public:
    Application(int& argc, char** argv);

    /// For a program that opens no window, such as a nightly run; to be called before its application is
    /// made.
    static void WorkWithoutDisplay();

    bool notify(QObject* receiver, QEvent* event) override;

  private:
    bool NotifyWithoutCharacter(QObject* receiver, QKeyEvent& event);
};
