// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/FrontSource.h"
#include "platform/linux/front/ToplevelProtocol.h"
#include "platform/linux/wayland/WaylandClient.h"

#include <functional>
#include <memory>

namespace pallistrom {

/// The window in front of a Wayland session whose compositor lists other programs' windows: sway
/// and the others of wlroots, and COSMIC.
class ToplevelSource final : public FrontSource, private WaylandListener {
public:
    explicit ToplevelSource(std::function<void()> whenChanged);

    [[nodiscard]] FrontReport report() const override { return m_report; }

private:
    void globalCame(wl_registry* registry, const WaylandGlobal& global) override;
    void globalGone(std::uint32_t name) override;
    void served() override;
    void lost() override;

    void setReport(FrontReport report);

    std::function<void()> m_whenChanged;
    FrontReport m_report;
    // Goes after the objects that were made on it.
    WaylandClient m_client;
    ToplevelGlobals m_globals;
    std::unique_ptr<ToplevelProtocol> m_protocol;
};

} // namespace pallistrom
