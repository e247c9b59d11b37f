// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace pallistrom {

/// A boolean that lives elsewhere, for a control that shows and changes it. Holds no value: what is
/// shown is what `get` returns at the time.
struct Binding {
    std::function<bool()> get;
    std::function<void(bool)> set;
};

} // namespace pallistrom
