// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/X11FrontSource.h"

#include "platform/linux/x11/X11Events.h"

#include <utility>

namespace pallistrom {

X11FrontSource::X11FrontSource(std::unique_ptr<X11Connection> connection,
                               std::function<void()> whenChanged)
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

void X11FrontSource::look() {
// Found anew each time: the user may have said something else of the application since.
std::optional<FrontApplication> X11FrontWatch::application() const {
    return m_connection->isAlive() ? std::optional(m_kindOf(m_window.windowClass())) : std::nullopt;
}

void X11FrontWatch::look() {
    while (takeX11Events(*m_connection,
                         [this](const auto& event) { return m_window.isChange(event); })) {
        m_window.refresh();
    }
    if (!m_connection->isAlive()) {
        m_report = FrontReport::unknown();
    } else if (m_window.windowClass() == WindowClass()) {
        m_report = FrontReport::nobody();
    } else {
        m_report = FrontReport::of(m_window.windowClass());
    }
}

void X11FrontSource::serve() {
    const FrontReport before = m_report;
}

void X11FrontWatch::serve() {
    const auto before = application();
    look();
    if (!m_connection->isAlive()) {
        m_watch.reset();
    }
    if (m_report != before) {
    if (application() != before) {
        m_whenChanged();
    }
}

} // namespace pallistrom
