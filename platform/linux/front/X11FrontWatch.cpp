// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/X11FrontWatch.h"

#include "platform/linux/x11/X11Events.h"

#include <utility>

namespace pallistrom {

X11FrontWatch::X11FrontWatch(std::unique_ptr<X11Connection> connection,
                             KindOf kindOf,
                             std::function<void()> whenChanged)
    : m_connection(std::move(connection)),
      m_kindOf(std::move(kindOf)),
      m_whenChanged(std::move(whenChanged)),
      m_window(*m_connection),
      m_watch(watchDescriptor(m_connection->descriptor(), [this] { serve(); })) {
    look();
}

// Found anew each time: the user may have said something else of the application since.
std::optional<FrontApplication> X11FrontWatch::application() const {
    return m_connection->isAlive() ? std::optional(m_kindOf(m_window.windowClass())) : std::nullopt;
}

void X11FrontWatch::look() {
    while (takeX11Events(*m_connection,
                         [this](const auto& event) { return m_window.isChange(event); })) {
        m_window.refresh();
    }
}

void X11FrontWatch::serve() {
    const auto before = application();
    look();
    if (!m_connection->isAlive()) {
        m_watch.reset();
    }
    if (application() != before) {
        m_whenChanged();
    }
}

} // namespace pallistrom
