// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Environment.h"
#include "FakeCompositor.h"
#include "PrivateBus.h"
#include "TemporaryFolder.h"
#include "platform/linux/KeyFilter.h"
#include "platform/linux/keyboardservice/BusKeyboardService.h"
#include "platform/linux/keyboardservice/ServiceTap.h"

#include <array>
#include <cstddef>
#include <filesystem>

namespace pallistrom {

/// What the desktop program has running in a Wayland session with the keyboard service: a tap that
/// tells the service of the session, which has a terminal, in front at first, and two editors.
class FrontStage {
public:
    FrontStage();
    FrontStage(const FrontStage&) = delete;
    FrontStage& operator=(const FrontStage&) = delete;
    ~FrontStage();

    /// Brings one of the windows to the front of the others.
    void bringToFront(std::size_t window);

    [[nodiscard]] BusKeyboardService& service() { return m_service; }

    [[nodiscard]] FakeCompositor& compositor() { return m_compositor; }

    /// Starts the tap. Returns whether there is a service that lets it.
    [[nodiscard]] bool start() { return m_tap.start(m_filter); }

    /// The windows.
    std::size_t terminal;
    std::size_t editor;
    std::size_t otherEditor;

private:
    TemporaryFolder m_folder;
    PrivateBus m_bus;
    FakeCompositor m_compositor;
    std::size_t m_front = 0;
    BusKeyboardService m_service;
    ServiceTap m_tap{m_service};
    std::array<TappedKey, 1> m_keys{{{.keyCode = 13}}};
    KeyFilter m_filter;
};

} // namespace pallistrom
