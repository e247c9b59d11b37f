// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/FrontReport.h"
#include "platform/linux/front/ToplevelList.h"

#include <cstdint>
#include <memory>
#include <optional>

struct wl_registry;

namespace pallistrom {

/// By which names a compositor offers its lists of windows.
struct ToplevelGlobals {
    std::optional<std::uint32_t> wlrManager;
    std::optional<std::uint32_t> list;
    std::optional<std::uint32_t> cosmicInfo;
};

/// One of the protocols by which a compositor lists other programs' windows, while it does.
class ToplevelProtocol {
public:
    ToplevelProtocol() = default;
    ToplevelProtocol(const ToplevelProtocol&) = delete;
    ToplevelProtocol& operator=(const ToplevelProtocol&) = delete;
    virtual ~ToplevelProtocol() = default;

    /// Asks the compositor for its windows in the best way that `globals` offer. Null if there is
    /// none among them.
    [[nodiscard]] static std::unique_ptr<ToplevelProtocol> begin(wl_registry* registry,
                                                                 const ToplevelGlobals& globals);

    /// Returns which window is in front, by what has come in so far.
    [[nodiscard]] FrontReport report() const { return m_list.report(); }

    /// Returns whether the compositor has stopped listing.
    [[nodiscard]] bool isFinished() const { return m_isFinished; }

protected:
    /// What a dispatcher was registered with, which the library gives back as const.
    template<typename Protocol>
    [[nodiscard]] static Protocol& owner(const void* self) {
        return *static_cast<Protocol*>(const_cast<void*>(self));
    }

    [[nodiscard]] ToplevelList& list() { return m_list; }

    void finish() { m_isFinished = true; }

private:
    ToplevelList m_list;
    bool m_isFinished = false;
};

} // namespace pallistrom
