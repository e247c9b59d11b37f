// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/DescriptorWatch.h"
#include "platform/linux/applications/WindowClass.h"
#include "platform/linux/front/FrontWatch.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11FrontWindow.h"

namespace pallistrom {

/// The application in front of an X11 session, by the class of its window.
class X11FrontWatch final : public FrontWatch {
public:
    using KindOf = std::function<FrontApplication(const WindowClass& window)>;

    /// `connection` belongs to the watch alone. `kindOf` says how the application of a window takes
    /// editing keys.
    X11FrontWatch(std::unique_ptr<X11Connection> connection,
                  KindOf kindOf,
                  std::function<void()> whenChanged);

    [[nodiscard]] std::optional<FrontApplication> application() const override;

private:
    void look();
    void serve();

    std::unique_ptr<X11Connection> m_connection;
    KindOf m_kindOf;
    std::function<void()> m_whenChanged;
    X11FrontWindow m_window;
    std::unique_ptr<DescriptorWatch> m_watch;
};

} // namespace pallistrom
