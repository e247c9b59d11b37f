// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

namespace pallistrom {

/// Calls a function on the run loop of the thread that made it whenever a descriptor is readable,
/// for as long as it lives.
class DescriptorWatch {
public:
    DescriptorWatch() = default;
    DescriptorWatch(const DescriptorWatch&) = delete;
    DescriptorWatch& operator=(const DescriptorWatch&) = delete;
    virtual ~DescriptorWatch() = default;
};

/// `whenReadable` may destroy the watch. `descriptor` stays open while the watch lives.
std::unique_ptr<DescriptorWatch> watchDescriptor(int descriptor,
                                                 std::function<void()> whenReadable);

} // namespace pallistrom
