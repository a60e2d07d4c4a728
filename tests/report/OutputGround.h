#pragma once

#include "support/report/ReportFixture.h"

#include <csignal>
#include <sys/resource.h>

// What the tests of the ways out of a report share: paper, PDF and CSV.

/// A report of so many rows, two on a page.
inline std::shared_ptr<const ReportDocument> NumberedReport(int count) {
    using namespace Qt::StringLiterals;
    std::vector<std::vector<Value>> rows;
    for (int i = 1; i <= count; ++i)
        rows.push_back({u"Señora %1"_s.arg(i)});
    return SmallDocument(u"<detail height=\"50\"><text x=\"0\" y=\"0\" width=\"90\">{A}</text></detail>"_s,
                         Rows({u"A"_s}, rows));
}

/// Lets no file grow beyond a few bytes while it lives, as on a full disk.
class FullDisk {
  public:
    FullDisk() {
        signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &mBefore);
        const rlimit small{4, mBefore.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &mBefore);
        signal(SIGXFSZ, SIG_DFL);
    }

  private:
    rlimit mBefore{};
};
