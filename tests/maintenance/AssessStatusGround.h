#pragma once

#include "maintenance/commands.h"
#include "maintenance/frmAssessStatus.h"
#include "support/ScreenTest.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Screens.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>

/// A line of an assessment as the status list shows it.
struct Assessment {
    QString number;
    QString reference;
    QString status;
    QString revenueCode = QStringLiteral("HC");
};

/// What the status procedure answers. Only columns 1, 5, 7 and 8 of the list are read.
inline std::shared_ptr<const RowData> Assessments(const std::vector<Assessment>& assessments) {
    const QString shown = QStringLiteral("shown");
    std::vector<std::vector<Value>> rows;
    for (const Assessment& line : assessments) {
        const Value reference = line.reference.isEmpty() ? Value() : Value(line.reference);
        rows.push_back(
            {line.number, shown, shown, shown, reference, shown, line.status, line.revenueCode, shown});
    }
    return Rows({QStringLiteral("AssessNum"), QStringLiteral("Patient Name"), QStringLiteral("Hospital #"),
                 QStringLiteral("Description"), QStringLiteral("RefNum"), QStringLiteral("Amount"),
                 QStringLiteral("Status"), QStringLiteral("RevenueID"), QStringLiteral("IdNum")},
                std::move(rows));
}

/// The status screen over scripted assessments.
class AssessStatusGround : public ScreenTest {
  protected:
    /// The screen, active, over those lines.
    frmAssessStatus& Open(const std::vector<Assessment>& assessments) {
        ExpectList(QString(), assessments);
        auto& screen = Screens::Get<frmAssessStatus>();
        screen.Show();
        Activate(screen);
        return screen;
    }

    void ExpectList(const QString& lastName, const std::vector<Assessment>& assessments) {
        gateway.Expect(AssessmentStatusCommand(lastName), Assessments(assessments));
    }

    void Search(const QString& lastName, const std::vector<Assessment>& found) {
        Box().setText(lastName);
        ExpectList(lastName, found);
        Press(Box(), Qt::Key_Return);
    }

    static frmAssessStatus& Screen() { return Screens::Get<frmAssessStatus>(); }
    static FlexGrid& Grid() { return Find<FlexGrid>(Screen(), "grdTable"); }
    static FlexCells& Cells() { return Grid().Cells(); }
    static QLineEdit& Box() { return Find<QLineEdit>(Screen(), "txtSearch"); }
    static QPushButton& Revoke() { return Find<QPushButton>(Screen(), "cmdRevoke"); }
    static QPushButton& Print() { return Find<QPushButton>(Screen(), "cmdPrint"); }
    static QPushButton& Close() { return Find<QPushButton>(Screen(), "cmdClose"); }

    /// Both buttons go together; false as well when they do not.
    static bool ButtonsAre(bool enabled) {
        return Revoke().isEnabled() == enabled && Print().isEnabled() == enabled;
    }

    static QPoint PlaceOf(int row) { return Grid().CellRect(row, 7).center() - Grid().viewport()->pos(); }
    static void ClickRow(int row) { QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, PlaceOf(row)); }
    static void DoubleClickRow(int row) { DoubleClick(*Grid().viewport(), PlaceOf(row)); }

    void ExpectQuestion(MsgAnswer answer) {
        messages.Expect({.text = QStringLiteral("Are you sure to revoke?"),
                         .icon = MsgIcon::Question,
                         .buttons = MsgButtons::YesNo},
                        answer);
    }
    void ExpectRevoked() {
        messages.Expect(
            {.text = QStringLiteral("Assessment has been revoked."), .icon = MsgIcon::Information});
    }
    /// The lines that bear a reference number, each with its number and revenue code.
    void ExpectLines(const QString& reference, const std::vector<std::vector<Value>>& numbersAndCodes) {
        std::vector<std::vector<Value>> rows;
        for (const std::vector<Value>& line : numbersAndCodes)
            rows.push_back({line[0], reference, line[1]});
        gateway.Expect(
            LinesOfReferenceCommand(reference),
            Rows({QStringLiteral("AssessNum"), QStringLiteral("RefNum"), QStringLiteral("Revenueid")},
                 std::move(rows)));
    }

    const QString openStatus = QStringLiteral("11/20/2026");
};
