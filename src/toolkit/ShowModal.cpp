#include "toolkit/ShowModal.h"

#include "toolkit/ModalStack.h"

#include <QDialog>

bool ShowModal(QDialog& dialog) {
    const ModalStack::Frame frame;
    return dialog.exec() == QDialog::Accepted;
}
