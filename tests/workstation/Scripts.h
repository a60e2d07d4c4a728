#pragma once

#include "driver/Driver.h"

#include <functional>
#include <map>
#include <string>

/// What the child can be told to key, by name. A script prints what it wants to tell the test.
const std::map<std::string, std::function<void(Driver&)>>& Scripts();
