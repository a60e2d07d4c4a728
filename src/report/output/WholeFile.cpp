#include "report/output/WholeFile.h"

#include <QFile>

using namespace Qt::StringLiterals;

WholeFile::WholeFile(const QString& name)
    : mFile(name)
    , mOpen(mFile.open(QIODevice::WriteOnly)) {}

bool WholeFile::IsGood() const {
    return mOpen && mFile.error() == QFileDevice::NoError;
}

QString WholeFile::Problem() const {
    // A disk that runs full takes the beginning and gives no reason for the rest.
    const bool hasReason =
        mFile.error() != QFileDevice::NoError && mFile.errorString() != QFile().errorString();
    return hasReason ? mFile.errorString() : u"The disk is full."_s;
}

QString WholeFile::End() {
    const bool whole = IsGood() && mFile.flush() && mFile.size() == mFile.pos();
    if (!whole)
        return Problem();
    return mFile.commit() ? QString() : mFile.errorString();
}
