#pragma once

class Driver;

// What is done with a charge after its save.

/// Posts a charge, finds it in the list of charges, cancels its service, tries to cancel it again, and prints
/// its slip once more.
void ChargeListedAndCancelled(Driver& clerk);
/// Posts a doctor's fee, cancels it in the list of charges, and posts it once more with a minus.
void FeeCancelledAndGivenBack(Driver& clerk);
