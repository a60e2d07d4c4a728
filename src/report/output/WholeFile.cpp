#include "report/output/WholeFile.h"

using namespace Qt::StringLiterals;

WholeFile::WholeFile(const QString& name)
    : mFile(name)
    , mOpen(mFile.open(QIODevice::WriteOnly)) {}

bool WholeFile::IsGood() const {
    return mOpen && mFile.error() == QFileDevice::NoError;
}

QString WholeFile::Problem() const {
    return mFile.error() == QFileDevice::NoError ? u"The disk is full."_s : mFile.errorString();
}

QString WholeFile::End() {
    // A disk that runs full takes the beginning of what is written without a word.
    const bool whole = IsGood() && mFile.flush() && mFile.size() == mFile.pos();
    if (!whole)
        return Problem();
    return mFile.commit() ? QString() : mFile.errorString();
}
