#include "toolkit/Failure.h"

#include "text/RunTimeError.h"
#include "toolkit/Keys.h"
#include "toolkit/MousePointer.h"
#include "toolkit/MsgBox.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QThread>
#include <QTimer>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

bool ending = false;

/// Nothing is flushed, destroyed or asked: whatever was being done has failed, and what the database has
/// answered already stands.
[[noreturn]] void LeaveProcess() {
    std::_Exit(EXIT_FAILURE);
}

[[noreturn]] void ShowAndLeave(const QString& text) {
    SetMousePointer(MousePointer::Default);
    QMessageBox box(QMessageBox::Critical, kDefaultTitle, text, QMessageBox::Ok);
    box.setObjectName(u"Failure"_s);
    box.setTextFormat(Qt::PlainText);
    IgnoreHeldKeys(box);
    box.exec();
    LeaveProcess();
}

void ShowOnceAndLeave(const std::exception_ptr& failure, bool inPaint) {
    if (ending)
        return;
    ending = true;
    const QString text = Failure::TextOf(failure);
    if (inPaint)
        QTimer::singleShot(0, qApp, [text] { ShowAndLeave(text); });
    else
        ShowAndLeave(text);
}

} // namespace

QString Failure::TextOf(const std::exception_ptr& failure) {
    try {
        std::rethrow_exception(failure);
    } catch (const RunTimeError& error) {
        return u"Run-time error '%1':\n\n%2"_s.arg(error.Number()).arg(error.Description());
    } catch (const std::exception& error) {
        return QString::fromUtf8(error.what());
    } catch (...) {
        return u"Unknown failure"_s;
    }
}

void Failure::End(const std::exception_ptr& failure, bool inPaint) noexcept {
    EndSeam()(failure, inPaint);
}

bool Failure::IsEnding() {
    return ending;
}

Seam<void(const std::exception_ptr&, bool)>& Failure::EndSeam() {
    static Seam<void(const std::exception_ptr&, bool)> seam(ShowOnceAndLeave);
    return seam;
}

void Failure::InstallTerminateHandler() {
    std::set_terminate([] {
        // A box needs the toolkit, and the thread that its windows are on.
        if (std::current_exception() && qApp && QThread::currentThread() == qApp->thread())
            End(std::current_exception());
        LeaveProcess();
    });
}
