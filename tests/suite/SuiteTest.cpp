#include "suite/SuiteTest.h"

#include "suite/LiveConnection.h"
#include "trial/EmbeddedGateway.h"
#include "trial/HospitalEngine.h"

#include <QApplication>
#include <QTest>
#include <QTimer>

SuiteTest::SuiteTest() {
    SetLiveConnection(mGateway.get());
}

SuiteTest::~SuiteTest() {
    SetLiveConnection(nullptr);
}

OnDialog::OnDialog(std::function<void(QDialog&)> answer) {
    QTimer::singleShot(0, this, [this, answer = std::move(answer)] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
        mShown = true;
        answer(*dialog);
        if (dialog->isVisible()) {
            ADD_FAILURE() << "the dialogue is still open";
            dialog->reject();
        }
    });
}

OnDialog::~OnDialog() {
    EXPECT_TRUE(mShown) << "no dialogue has come";
}

NoDialog::NoDialog() {
    QTimer::singleShot(0, this, [] {
        ADD_FAILURE() << "a dialogue has come";
        if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
            dialog->reject();
    });
}

void FakeSource::Make(const MakingProgress& progress) {
    if (makeFailure)
        throw *makeFailure;
    progress(0, 1, mName);
    tell = progress;
    if (whileMaking)
        whileMaking();
    progress(1, 1, {});
    ++made;
    needsMaking = false;
}

void FakeSource::MakeAnew(const MakingProgress& progress) {
    Make(progress);
    --made;
    ++madeAnew;
}

std::unique_ptr<CommandGateway> FakeSource::Connect(const QString&, const QString&) {
    if (connectFailure)
        throw *connectFailure;
    ++connected;
    return std::make_unique<EmbeddedGateway>(mPath);
}

std::unique_ptr<CommandGateway> FakeSource::ConnectToRead(const QString&, const QString&) {
    ++connectedToRead;
    return std::make_unique<EmbeddedGateway>(mPath, EmbeddedGateway::Access::Reading);
}

std::unique_ptr<CommandGateway> FakeSource::ConnectToReplace(const QString&, const QString&) {
    ++connectedToReplace;
    return std::make_unique<EmbeddedGateway>(mPath);
}

std::unique_ptr<SignOnTrail> FakeSource::Trail(CommandGateway& connection) const {
    if (workstation.isEmpty())
        return nullptr;
    return std::make_unique<SignOnTrail>(static_cast<EmbeddedGateway&>(connection).Engine().Database(),
                                         workstation);
}
