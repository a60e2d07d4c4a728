#pragma once

#include <QString>

#include <array>

/// The columns of a charge line, which is one row of a charge screen's grid. All its values are texts.
namespace Column {
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
constexpr int kCount = 13;
} // namespace Column

/// Everything in which the two charge screens' ways of keying differ. What is not named here is the same on
/// both.
struct ChargeGridDifferences {
    int quantityCol;
    int priceCol;
    /// Columns that the editor never opens.
    std::array<bool, Column::kCount> locked;
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
    .locked = {false, false, false, true, false, false, false, true, true, true, true, true, true},
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
    .locked = {false, false, false, true, false, false, false, true, true, true, true, false, false},
    .amountClosedOnHC = false,
    .quantityKept = false,
    .centreWritten = true,
    .amountJumpCol = Column::kWithItems,
    .servicesOfHC = false,
    .otherLetterTakesRateA = false,
};
