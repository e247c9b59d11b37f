// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace pallistrom {

/// What goes in, and what is to come out of it: a test with a key script.
struct ScriptCase {
    std::string name;
    std::string in;
    std::string out;
};

inline void PrintTo(const ScriptCase& c, std::ostream* out) {
    *out << c.name << ": " << c.in;
}

/// Names a test after its case.
inline std::string nameOf(const testing::TestParamInfo<ScriptCase>& test) {
    return test.param.name;
}

} // namespace pallistrom
