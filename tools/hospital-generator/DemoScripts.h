#pragma once

#include "HospitalSize.h"

#include <QString>

#include <vector>

namespace Generator {

/// One script of generated data: its name, such as "40-patients", and its text with the lines GO between
/// statements.
struct DemoScript {
    QString name;
    QString text;
};

/// The data of a hospital of that size as the scripts in hospital/demo, in running order. What stands in that
/// folder is the answer for the default size.
std::vector<DemoScript> DemoScripts(const HospitalSize& size = {});

} // namespace Generator
