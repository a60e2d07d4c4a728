#pragma once

#include <gtest/gtest.h>
#include <string>

/// Names the cases of a table-driven test after their `name` member.
struct CaseName {
    template <class Case> std::string operator()(const testing::TestParamInfo<Case>& named) const {
        return named.param.name;
    }
};
