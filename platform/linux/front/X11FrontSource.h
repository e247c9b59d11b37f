// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/DescriptorWatch.h"
#include "platform/linux/front/FrontSource.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11FrontWindow.h"

#include <functional>
#include <memory>

namespace pallistrom {

/// The window in front of an X11 session, as its window manager tells. When the server goes away,
/// so does the program.
class X11FrontSource final : public FrontSource {
public:
    /// `connection` belongs to the source alone.
    X11FrontSource(std::unique_ptr<X11Connection> connection, std::function<void()> whenChanged);

    [[nodiscard]] FrontReport report() const override { return m_report; }

private:
    void look();
    void serve();

    std::unique_ptr<X11Connection> m_connection;
    std::function<void()> m_whenChanged;
    X11FrontWindow m_window;
    FrontReport m_report;
    std::unique_ptr<DescriptorWatch> m_watch;
};

} // namespace pallistrom
