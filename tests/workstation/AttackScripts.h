#pragma once

#include "tour/Driver.h"

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
