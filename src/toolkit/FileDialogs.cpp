#include "toolkit/FileDialogs.h"

#include "toolkit/ShowModal.h"

#include <QFileDialog>
#include <QFileInfo>

namespace {

SaveFileAnswer currentAnswer = nullptr;

} // namespace

QString AskSaveFile(QWidget* parent, const QString& title, const QString& suggestedName,
                    const QString& filter) {
    if (currentAnswer)
        return currentAnswer(suggestedName);
    QFileDialog dialog(parent, title, QString(), filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QFileInfo(suggestedName).suffix());
    dialog.selectFile(suggestedName);
    return ShowModal(dialog) ? dialog.selectedFiles().value(0) : QString();
}

void SetSaveFileAnswer(SaveFileAnswer answer) {
    currentAnswer = answer;
}
