#include "reporter/TemplateWatch.h"

#include "report/viewer/PageView.h"

#include <QFileInfo>
#include <QLabel>
#include <QScrollBar>
#include <QVBoxLayout>

#include <chrono>

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds kPause(150);
constexpr QSize kWindowSize(900, 700);

} // namespace

TemplateWatch::TemplateWatch(const QString& file, Make make)
    : mFile(file)
    , mMake(std::move(make))
    , mPages(new PageView(this))
    , mProblem(new QLabel(this)) {
    setWindowTitle(QFileInfo(file).fileName());
    resize(kWindowSize);
    auto* column = new QVBoxLayout(this);
    column->addWidget(mProblem);
    column->addWidget(mPages, 1);
    mProblem->setObjectName(u"lblProblem"_s);
    mProblem->setProperty("problem", true);
    mProblem->setWordWrap(true);
    mProblem->setTextFormat(Qt::PlainText);
    mPause.setSingleShot(true);
    mPause.setInterval(kPause);
    connect(&mPause, &QTimer::timeout, this, &TemplateWatch::Show);
    connect(&mWatcher, &QFileSystemWatcher::fileChanged, &mPause, qOverload<>(&QTimer::start));
    // Editors that put a new file in the old one's place.
    connect(&mWatcher, &QFileSystemWatcher::directoryChanged, &mPause, qOverload<>(&QTimer::start));
    mWatcher.addPath(QFileInfo(file).absolutePath());
    Show();
}

void TemplateWatch::Follow() {
    if (!mWatcher.files().contains(mFile) && QFileInfo::exists(mFile))
        mWatcher.addPath(mFile);
}

void TemplateWatch::Show() {
    Follow();
    try {
        ShowPages(mMake());
        mProblem->hide();
    } catch (const std::exception& problem) {
        // As on a command line: the file, its line and what is wrong there.
        mProblem->setText(QString::fromUtf8(problem.what()));
        mProblem->show();
    }
}

void TemplateWatch::ShowPages(std::shared_ptr<const ReportDocument> document) {
    const int place = mPages->verticalScrollBar()->value();
    mPages->SetDocument(std::move(document));
    mPages->verticalScrollBar()->setValue(place);
}
