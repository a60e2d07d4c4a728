#pragma once

#include <QtGlobal>

#include <cstddef>

/// The numbers of a report's bands, in the order in which they print: the report's header, the headers of the
/// groups, the detail, the footers of the groups from the innermost, the report's footer. Levels count from 0
/// for the outermost group.
class BandNumbers {
  public:
    explicit BandNumbers(size_t groups)
        : mGroups(static_cast<quint16>(groups)) {}

    static constexpr quint16 kReportHeader = 0;
    quint16 Header(size_t level) const { return static_cast<quint16>(1 + level); }
    quint16 Detail() const { return static_cast<quint16>(1 + mGroups); }
    quint16 Footer(size_t level) const { return static_cast<quint16>(1 + 2 * mGroups - level); }
    quint16 ReportFooter() const { return static_cast<quint16>(2 + 2 * mGroups); }
    size_t Count() const { return ReportFooter() + size_t(1); }
    /// Whether it is a footer, of a group or of the report.
    bool IsFooter(quint16 band) const { return band > Detail(); }

  private:
    quint16 mGroups;
};
