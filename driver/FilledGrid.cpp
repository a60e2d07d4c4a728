#include "driver/FilledGrid.h"

#include "toolkit/FlexGrid.h"
#include "toolkit/Form.h"

using namespace Qt::StringLiterals;

void FillGrid(const Form& screen, const ChargeGridDifferences& columns,
              const std::vector<FilledLine>& lines) {
    FlexCells& cells = screen.findChild<FlexGrid*>(u"grdTable"_s)->Cells();
    cells.SetRows(int(lines.size()) + 1);
    for (int row = 1; row <= int(lines.size()); ++row) {
        const FilledLine& line = lines[size_t(row) - 1];
        cells.SetTextMatrix(row, Column::kDepartment, line.department);
        cells.SetTextMatrix(row, Column::kCode, line.code);
        cells.SetTextMatrix(row, Column::kParticular, u"HEMODIALYSIS TREATMENT"_s);
        cells.SetTextMatrix(row, columns.quantityCol, u"1"_s);
        cells.SetTextMatrix(row, columns.priceCol, u"3360.00"_s);
        cells.SetTextMatrix(row, Column::kAmount, u"3360.00"_s);
    }
}
