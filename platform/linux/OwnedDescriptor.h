// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>

#include <utility>

namespace pallistrom {

/// An open file descriptor, or none. Closed with its owner.
class OwnedDescriptor {
public:
    OwnedDescriptor() = default;

    explicit OwnedDescriptor(int descriptor) : m_descriptor(descriptor) {}

    OwnedDescriptor(OwnedDescriptor&& other) noexcept
        : m_descriptor(std::exchange(other.m_descriptor, -1)) {}

    OwnedDescriptor& operator=(OwnedDescriptor&& other) noexcept {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }

    OwnedDescriptor(const OwnedDescriptor&) = delete;
    OwnedDescriptor& operator=(const OwnedDescriptor&) = delete;

    ~OwnedDescriptor() { static_cast<void>(closeNow()); }

    [[nodiscard]] bool isOpen() const { return m_descriptor >= 0; }

    [[nodiscard]] int get() const { return m_descriptor; }

    /// Returns whether the system had nothing to say against it, such as that a disk is full.
    [[nodiscard]] bool closeNow() {
        const int descriptor = std::exchange(m_descriptor, -1);
        return descriptor < 0 || close(descriptor) == 0;
    }

private:
    int m_descriptor = -1;
};

} // namespace pallistrom
