// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/X11FrontSource.h"

#include "platform/linux/x11/X11Events.h"

#include <utility>

namespace pallistrom {

X11FrontSource::X11FrontSource(std::unique_ptr<X11Connection> connection,
                               std::function<void()> whenChanged)
    : m_connection(std::move(connection)),
      m_whenChanged(std::move(whenChanged)),
      m_window(*m_connection),
      m_watch(watchDescriptor(m_connection->descriptor(), [this] { serve(); })) {
    look();
}

void X11FrontSource::look() {
    while (takeX11Events(*m_connection,
                         [this](const auto& event) { return m_window.isChange(event); })) {
        m_window.refresh();
    }
    m_report = m_connection->isAlive() ? m_window.report() : FrontReport::unknown();
}

void X11FrontSource::serve() {
    const FrontReport before = m_report;
    look();
    if (!m_connection->isAlive()) {
        m_watch.reset();
    }
    if (m_report != before) {
        m_whenChanged();
    }
}

} // namespace pallistrom
