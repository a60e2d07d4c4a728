#pragma once

#include <QObject>
#include <QSocketNotifier>

/// Answers a test that runs in another process what the program shows. A question is a line of the program's
/// input, "state" or "controls"; the answer is a line of its output, an object of JSON as Sight.h reads it.
/// "open <class>" is answered by the state, and shows a screen that OpenByClass knows.
///
/// An answer is given once what was due has been handled and painted. Nothing of the program is changed.
class Probe : public QObject {
    Q_OBJECT

  public:
    Probe();

  private:
    void TakeInput();
    void Answer(const QByteArray& question) const;

    QSocketNotifier mNotifier;
    QByteArray mInput;
};
