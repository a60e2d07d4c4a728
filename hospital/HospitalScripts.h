#pragma once

#include "trial/HospitalFile.h"

#include <vector>

/// The scripts that make the trial hospital, in running order: tables, procedures, data. A script's name is
/// its path under hospital/, for instance "procedures/BILLING/spGlobal_RegisteredOPD.sql".
std::vector<Script> HospitalScripts();

/// The same without the data: an empty hospital, to be filled with generated data of another size.
std::vector<Script> HospitalStructure();
