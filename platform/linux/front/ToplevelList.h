// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/FrontReport.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace pallistrom {

/// The windows of a Wayland session, as a compositor lists them. What it says of a window counts
/// from the moment at which it says that this is all.
class ToplevelList {
public:
    using Id = std::uint32_t;

    /// More are no windows that a person has open.
    static constexpr std::size_t most = 5000;

    /// A new window. Returns whether there is room for it; what is said of others is ignored.
    [[nodiscard]] bool add(Id id);

    void setApplication(Id id, std::string_view name);
    void setActivated(Id id, bool isActivated);
    void commit(Id id);
    void commitAll();
    void remove(Id id);

    /// Returns the window that was activated last of those that are. There are several with several
    /// seats, and for a moment in compositors that activate the new one first.
    [[nodiscard]] FrontReport report() const;

private:
    struct State {
        std::string application;
        bool isActivated = false;
    };

    struct Window {
        State pending;
        State current;
        std::uint64_t activation = 0; ///< a later one has a higher number
    };

    void commit(Window& window);

    std::map<Id, Window> m_windows;
    std::uint64_t m_activations = 0;
};

} // namespace pallistrom
