#include "suite/DataSource.h"

#include "text/RunTimeError.h"

using namespace Qt::StringLiterals;

void DataSource::Make(const MakingProgress&) {
    throw RunTimeError(RunTime::kPathFileAccess, u"%1 cannot be made here."_s.arg(Name()));
}

void DataSource::MakeAnew(const MakingProgress& progress) {
    Make(progress);
}
