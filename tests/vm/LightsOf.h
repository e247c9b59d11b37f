// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "FileDescriptor.h"

#include <cstdint>
#include <filesystem>

namespace pallistrom::vm {

/// The lights of an input device, as a session sees and switches them.
class LightsOf {
public:
    explicit LightsOf(const std::filesystem::path& node);

    [[nodiscard]] bool isLit(std::uint16_t light) const;

    void set(std::uint16_t light, bool isOn) const;

private:
    FileDescriptor m_descriptor;
};

} // namespace pallistrom::vm
