#include "toolkit/FileDialogs.h"

#include "toolkit/ShowModal.h"
#include "toolkit/UserSettings.h"

#include <QDir>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// Tells files by their names alone. The toolkit's own provider opens a file whose name does not tell its
/// kind, and the close behind it would take the locks along that the process holds on the hospital's file.
class NamesOnly : public QFileIconProvider {
  public:
    using QFileIconProvider::icon;
    QIcon icon(const QFileInfo& file) const override { return icon(file.isDir() ? Folder : File); }
    QString type(const QFileInfo& file) const override { return file.isDir() ? u"Folder"_s : u"File"_s; }
};

const QString kFolderSetting = u"SaveFolder"_s;

/// Where the next save begins: where this user of the machine saved last.
QString LastFolder() {
    const QString kept = UserSettings().value(kFolderSetting).toString();
    return QFileInfo(kept).isDir() ? kept : QDir::homePath();
}

QString AskInDialog(QWidget* parent, const QString& title, const QString& suggestedName,
                    const QString& filter) {
    NamesOnly names;
    // The window looks at its first folder before it can be told how, so that is one in which no hospital
    // lies.
    QFileDialog dialog(parent, title, QDir::rootPath(), filter);
    // A window of the desktop's own may open files in this process too.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setIconProvider(&names);
    dialog.setDirectory(LastFolder());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QFileInfo(suggestedName).suffix());
    dialog.selectFile(suggestedName);
    if (!ShowModal(dialog))
        return {};
    if (const QString folder = dialog.directory().absolutePath(); folder != LastFolder())
        UserSettings().setValue(kFolderSetting, folder);
    return dialog.selectedFiles().value(0);
}

} // namespace

QString AskSaveFile(QWidget* parent, const QString& title, const QString& suggestedName,
                    const QString& filter) {
    return SaveDialogSeam()(parent, title, suggestedName, filter);
}

Seam<QString(QWidget*, const QString&, const QString&, const QString&)>& SaveDialogSeam() {
    static Seam<QString(QWidget*, const QString&, const QString&, const QString&)> seam(AskInDialog);
    return seam;
}
