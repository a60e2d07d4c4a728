#include "ReportFixture.h"

#include "components/ReportConnector.h"
#include "report/pages/PageText.h"
#include "report/template/TemplateReader.h"
#include "report/viewer/FetchThread.h"

#include <QFile>
#include <QProcess>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

/// One connection of a report.
class ReportConnection : public CommandGateway {
  public:
    explicit ReportConnection(ReportDatabase& database)
        : mDatabase(database) {
        ++mDatabase.open;
    }
    ~ReportConnection() override { --mDatabase.open; }

    bool Connected() const override { return true; }
    QString ConnectionString() const override { return {}; }
    void Cancel() override {
        const std::lock_guard lock(mDatabase.mMutex);
        mCancelled = true;
        mDatabase.mChanged.notify_all();
    }

  protected:
    Outcome Run(const QString& command) override {
        mDatabase.commands << command;
        std::unique_lock lock(mDatabase.mMutex);
        mDatabase.mAsked = true;
        mDatabase.mChanged.notify_all();
        mDatabase.mChanged.wait(lock,
                                [this] { return !mDatabase.mHeld || (mCancelled && !mDatabase.mDeaf); });
        if (mCancelled)
            throw RunTimeError(-2147217842, u"Operation was canceled."_s);
        for (const ReportDatabase::Answer& answer : mDatabase.mAnswers) {
            if (command.contains(answer.fragment))
                return {answer.rows, 0};
        }
        throw RunTimeError(208, u"Invalid object name."_s);
    }

  private:
    ReportDatabase& mDatabase;
    bool mCancelled = false;
};

namespace {

QString DeepCopy(const QString& text) {
    return QString(text.constData(), text.size());
}

} // namespace

QByteArray SmallTemplate(const QString& parts) {
    QString whole = u"<report paper=\"100x100\" margins=\"0 0 0 0\">\n"_s;
    const qsizetype afterParameters = parts.indexOf(u"</parameters>"_s);
    const qsizetype split = afterParameters < 0 ? 0 : afterParameters + 13;
    whole += parts.left(split) + u"<tables><table name=\"T\" location=\"D.dbo.T\"/></tables>"_s;
    if (!parts.contains(u"<query>"_s))
        whole += u"<query>SELECT * FROM {T}</query>"_s;
    return (whole + parts.mid(split) + u"\n</report>"_s).toUtf8();
}

std::shared_ptr<const ReportDocument> SmallDocument(const QString& parts,
                                                    const std::shared_ptr<const RowData>& rows,
                                                    const std::vector<Value>& parameters) {
    return std::make_shared<const ReportDocument>(ReadTemplate(u"small.rpt"_s, SmallTemplate(parts)),
                                                  ReportValues{parameters, {}}, QueryRows{rows});
}

QString PageText(const ReportDocument& document, int page) {
    ReportFonts fonts;
    return TextOfPage(document, page, fonts);
}

ReportDatabase::ReportDatabase() {
    SetReportConnector([this](const ReportLogOn& logOn) {
        logOns.push_back({DeepCopy(logOn.server), DeepCopy(logOn.database), DeepCopy(logOn.user),
                          DeepCopy(logOn.password)});
        return std::make_unique<ReportConnection>(*this);
    });
}

ReportDatabase::~ReportDatabase() {
    SetReportConnector({});
    Release();
    WaitForFetchThreads();
}

void ReportDatabase::Hold(bool deaf) {
    const std::lock_guard lock(mMutex);
    mHeld = true;
    mDeaf = deaf;
}

void ReportDatabase::Release() {
    const std::lock_guard lock(mMutex);
    mHeld = false;
    mChanged.notify_all();
}

void ReportDatabase::AwaitCommand() {
    std::unique_lock lock(mMutex);
    mChanged.wait(lock, [this] { return mAsked; });
}

void ReportDatabase::Set(const QString& fragment, std::shared_ptr<const RowData> rows) {
    mAnswers.push_back({fragment, std::move(rows)});
}

std::optional<FoundText> FindText(const ReportDocument& document, const QString& text,
                                  const std::optional<CellPosition>& after) {
    FindJob job(document, text, after);
    job.Finish();
    return job.Found();
}

QString TextOfPages(const ReportDocument& document) {
    QString text;
    ReportFonts fonts;
    for (int page = 1; page <= document.PageCount(); ++page)
        text +=
            u"--- page %1 of %2\n"_s.arg(page).arg(document.PageCount()) + TextOfPage(document, page, fonts);
    return text;
}

void ExpectGolden(const QString& text, const QString& name) {
    const QString path = u"" TARVEN_SOURCE_DIR "/tests/golden/reports/"_s + name;
    if (qEnvironmentVariableIsSet("TARVEN_WRITE_GOLDEN")) {
        QFile golden(path);
        ASSERT_TRUE(golden.open(QIODevice::WriteOnly));
        golden.write(text.toUtf8());
        return;
    }
    EXPECT_EQ(text, QString::fromUtf8(ReadFile(path))) << name.toStdString();
}

QString TextOfPdf(const QString& file) {
    QProcess process;
    process.start(u"pdftotext"_s, {u"-layout"_s, file, u"-"_s});
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput());
}
