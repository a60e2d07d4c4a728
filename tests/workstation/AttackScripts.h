#pragma once

#include "driver/Driver.h"

// What a clerk types who wants to post in another's name: a tail that ends the text it stands in and goes on
// with arguments of its own. Each script signs on as NURSE and tells the failure that ends the program.

/// In the amount of a doctor's fee.
void TailInAFeesAmount(Driver& clerk);
/// In the code of a doctor's fee, with a slip number of his own.
void TailInAFeesCode(Driver& clerk);
/// In the name of a cash patient.
void TailInAPatientsName(Driver& clerk);
/// In the amount of an assessment's line.
void TailInAnAssessmentsAmount(Driver& clerk);

// Texts that name nobody: a statement of the clerk's own behind the one that the box stands in, or a tail
// that changes what is told behind the user.

/// In the patient's name, by which he is looked up.
void StatementInTheFindersName(Driver& clerk);
/// In the name by which the list of charges looks the patient up.
void StatementInTheChargeListsName(Driver& clerk);
/// In the name by which an assessment is looked for, to be printed again or revoked.
void StatementInTheStatusSearch(Driver& clerk);
/// In the first name of a walk-in who is registered.
void StatementInAWalkInsName(Driver& clerk);
/// In the first name of a walk-in who is registered, with the rest of the record.
void TailInAWalkInsName(Driver& clerk);
/// In the requesting doctor's box of the charge screen: the other doctor, the patient's type and the
/// particular are his own.
void TailInTheDoctorsCode(Driver& clerk);
