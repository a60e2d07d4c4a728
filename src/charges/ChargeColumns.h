#pragma once

#include <QString>
#include <QStringView>
#include <Qt>

#include <array>

/// The columns of a charge line, which is one row of a charge screen's grid. All its values are texts.
namespace Column {
constexpr int kFixed = 0;
constexpr int kDepartment = 1;
constexpr int kCode = 2;
constexpr int kParticular = 3;
/// Columns 4 and 5 hold price and quantity; which is which, the screen's differences tell.
constexpr int kAmount = 6;
constexpr int kWithItems = 7;
/// "Y" when the looked-up price is zero, else "N".
constexpr int kZeroPrice = 8;
constexpr int kSearchInventory = 9;
constexpr int kLocationID = 10;
constexpr int kFirstSpare = 11;
constexpr int kSecondSpare = 12;
constexpr int kCount = 13;
} // namespace Column

/// Everything in which the two charge screens' ways of keying differ. What is not named here is the same on
/// both.
struct ChargeGridDifferences {
    int quantityCol;
    int priceCol;
    /// The last two columns, in which nothing stands, are closed too.
    bool sparesLocked;
    /// The Amount of an HC line is closed.
    bool amountClosedOnHC;
    /// The department step keeps a quantity that stands there; otherwise it writes "1" over it.
    bool quantityKept;
    /// The department step writes the centre's attributes into columns 7 to 10.
    bool centreWritten;
    /// The column whose "Y" makes the editor pass over the Amount when it takes the focus.
    int amountJumpCol;
    /// Services are asked for under the section "HC"; otherwise under the line's department.
    bool servicesOfHC;
    /// A rate letter outside A to H takes RateA; otherwise the price stays as it was.
    bool otherLetterTakesRateA;
};

inline constexpr ChargeGridDifferences kPostChargesDifferences{
    .quantityCol = 4,
    .priceCol = 5,
    .sparesLocked = true,
    .amountClosedOnHC = true,
    .quantityKept = true,
    .centreWritten = false,
    // Kept: an amount is never "Y", so nothing is passed over here; the HC lock closes the Amount on this
    // screen.
    .amountJumpCol = Column::kAmount,
    .servicesOfHC = true,
    .otherLetterTakesRateA = true,
};

inline constexpr ChargeGridDifferences kAssessmentDifferences{
    .quantityCol = 5,
    .priceCol = 4,
    .sparesLocked = false,
    .amountClosedOnHC = false,
    .quantityKept = false,
    .centreWritten = true,
    .amountJumpCol = Column::kWithItems,
    .servicesOfHC = false,
    .otherLetterTakesRateA = false,
};

/// What a column does with a character key.
enum class ChargeInput { Any, UpperCase, Number, Price };

/// One column of the charge grid.
struct ChargeColumn {
    int column;
    QStringView heading = {};
    /// In twips; 0 hides it.
    int width = 0;
    ChargeInput input = ChargeInput::Any;
    /// The editor never opens it.
    bool locked = false;
    /// Enter looks up what was keyed.
    bool checked = false;
    Qt::Alignment alignment = {};
};

/// The columns of both screens' grids; where one has it another way, its differences say so.
constexpr std::array<ChargeColumn, Column::kCount> ChargeColumns(const ChargeGridDifferences& screen) {
    return {{{.column = Column::kFixed, .width = 200},
             {.column = Column::kDepartment,
              .heading = u"Department",
              .width = 1000,
              .input = ChargeInput::UpperCase},
             {.column = Column::kCode,
              .heading = u"Code",
              .width = 1000,
              .input = ChargeInput::UpperCase,
              .checked = true},
             {.column = Column::kParticular, .heading = u"Particular", .width = 4000, .locked = true},
             {.column = screen.quantityCol,
              .heading = u"Quantity",
              .width = 1000,
              .input = ChargeInput::Number,
              .alignment = Qt::AlignRight},
             {.column = screen.priceCol,
              .heading = u"Price",
              .width = 1000,
              .input = ChargeInput::Price,
              .alignment = Qt::AlignRight},
             {.column = Column::kAmount, .heading = u"Amount", .width = 1000, .alignment = Qt::AlignRight},
             {.column = Column::kWithItems, .heading = u"With Items", .locked = true},
             {.column = Column::kZeroPrice, .locked = true},
             {.column = Column::kSearchInventory, .locked = true},
             {.column = Column::kLocationID, .locked = true},
             {.column = Column::kFirstSpare, .locked = screen.sparesLocked},
             {.column = Column::kSecondSpare, .locked = screen.sparesLocked}}};
}
