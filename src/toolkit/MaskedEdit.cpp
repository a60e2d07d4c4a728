#include "toolkit/MaskedEdit.h"

using namespace Qt::StringLiterals;

namespace {

/// The mask in the words of QLineEdit: "0" is a digit that may be missing, what follows a backslash stands
/// for itself, and the last character is what an empty place shows.
QString InputMaskOf(const QString& mask) {
    QString inputMask;
    for (const QChar c : mask)
        inputMask += c == u'#' ? u"0"_s : u"\\"_s + c;
    return inputMask + u"; "_s;
}

} // namespace

MaskedEdit::MaskedEdit(const QString& mask, QWidget* parent)
    : QLineEdit(parent) {
    setInputMask(InputMaskOf(mask));
}
