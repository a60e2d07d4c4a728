#pragma once

#include <QFileSystemWatcher>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>

class PageView;
class QLabel;
class ReportDocument;

/// A window that shows what a template makes, anew each time that its file is saved. Where it fails, the
/// window says why, with file and line, and goes on showing the last pages that were made. The place to which
/// they were scrolled stays.
class TemplateWatch : public QWidget {
    Q_OBJECT

  public:
    /// Makes the pages of the template as it stands in its file.
    using Make = std::function<std::shared_ptr<const ReportDocument>()>;

    /// `file` is the template's.
    TemplateWatch(const QString& file, Make make);

  private:
    void Follow();
    void Show();
    void ShowPages(std::shared_ptr<const ReportDocument> document);

    QString mFile;
    Make mMake;
    PageView* mPages;
    QLabel* mProblem;
    QFileSystemWatcher mWatcher;
    /// Editors save in several steps; the pages are made after the last one.
    QTimer mPause;
};
