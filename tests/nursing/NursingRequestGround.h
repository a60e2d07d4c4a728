#pragma once

#include "charges/ChargeGrid.h"
#include "charges/frmPostCharges.h"
#include "nursing/commands.h"
#include "nursing/frmNursingRequest.h"
#include "support/FakeWorkspace.h"
#include "support/ScreenTest.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Screens.h"

#include <QLineEdit>
#include <QPushButton>

#include <map>

/// A row of the queue: texts for the columns that matter, by number; the other ones say "c" and their number.
using Request = std::map<int, Value>;

/// The queue of the wards' requests over scripted rows, in a main window.
class NursingRequestGround : public ScreenTest {
  protected:
    static constexpr int kColumns = 24;

    NursingRequestGround() { Activate(workspace); }
    ~NursingRequestGround() override { Screens::Clear(); }

    static std::shared_ptr<const RowData> Queue(const std::vector<Request>& requests) {
        std::vector<QString> names;
        for (int col = 1; col <= kColumns; ++col)
            names.push_back(QStringLiteral("Field%1").arg(col));
        std::vector<std::vector<Value>> rows;
        for (const Request& request : requests) {
            std::vector<Value> row;
            for (int col = 1; col <= kColumns; ++col)
                row.push_back(request.contains(col) ? request.at(col)
                                                    : Value(QStringLiteral("c%1").arg(col)));
            rows.push_back(std::move(row));
        }
        return Rows(std::move(names), std::move(rows));
    }

    /// A request of a woman in a room.
    static Request OfCruz() {
        return {{1, QStringLiteral("100085")},
                {2, QStringLiteral("700121")},
                {3, QStringLiteral("CRUZ")},
                {4, QStringLiteral("JUANA")},
                {5, QStringLiteral("SY")},
                {13, QStringLiteral("F")},
                {15, DateTime::FromFields({1970, 2, 3, 0, 0, 0, 0}).value()},
                {16, QStringLiteral("56")},
                {17, QStringLiteral("11/19/2026")},
                {18, QStringLiteral(" 301-A ")},
                {19, QStringLiteral("D003")},
                {20, QStringLiteral("DR. LUIS CASTAÑEDA")},
                {23, QStringLiteral("I")},
                {24, 41}};
    }

    frmNursingRequest& Open(const std::vector<Request>& requests) {
        gateway.Expect(NurseRequestCommand(), Queue(requests));
        auto& screen = Screens::Get<frmNursingRequest>();
        screen.Show();
        Activate(*screen.window());
        return screen;
    }

    void ExpectRoom(const QString& room, const std::vector<std::vector<Value>>& rows) {
        gateway.Expect(RoomClassCommand(room), Rows({QStringLiteral("RoomClassID")}, rows));
    }
    /// Exam lines as columns of a charge line: department, code, particular.
    static std::shared_ptr<const RowData> Exams(const std::vector<std::vector<QString>>& lines) {
        std::vector<QString> names;
        for (int col = 1; col <= 12; ++col)
            names.push_back(QStringLiteral("Line%1").arg(col));
        std::vector<std::vector<Value>> rows;
        for (const std::vector<QString>& line : lines) {
            std::vector<Value> row(12, Value(QString()));
            for (size_t i = 0; i < line.size(); ++i)
                row[i] = line[i];
            rows.push_back(std::move(row));
        }
        return Rows(std::move(names), std::move(rows));
    }
    /// The exams are asked for twice when there are any, and once when there are none.
    void ExpectExams(const QString& idNumber, const std::vector<std::vector<QString>>& lines) {
        gateway.Expect(LoadExamCommand(idNumber), Exams(lines));
        if (!lines.empty())
            gateway.Expect(LoadExamCommand(idNumber), Exams(lines));
    }

    static frmNursingRequest& Screen() { return Screens::Get<frmNursingRequest>(); }
    static FlexGrid& Grid() { return Find<FlexGrid>(Screen(), "grdRequest"); }
    static FlexCells& Cells() { return Grid().Cells(); }
    static QPushButton& Button(const char* name) { return Find<QPushButton>(Screen(), name); }

    static frmPostCharges& Charges() { return Screens::Get<frmPostCharges>(); }
    static QString Box(const char* name) { return Find<QLineEdit>(Charges(), name).text(); }
    static FlexCells& Lines() { return Find<FlexGrid>(Charges(), "grdTable").Cells(); }
    static QLineEdit& Editor() { return Find<QLineEdit>(Charges(), "txtEntry"); }

    void DoubleClickRow(int row) {
        DoubleClick(*Grid().viewport(), Grid().CellRect(row, 3).center() - Grid().viewport()->pos());
    }

    FakeWorkspace workspace;
};
