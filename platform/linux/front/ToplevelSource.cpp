// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/ToplevelSource.h"

#include "platform/linux/wayland/ForeignToplevels.h"

#include <utility>

namespace pallistrom {

namespace {

// The place in `globals` where such a global belongs, null if it is of no use.
std::optional<std::uint32_t>* placeFor(const WaylandGlobal& global, ToplevelGlobals& globals) {
    using namespace ForeignToplevels;
    const auto is = [&global](const wl_interface& interface) {
        return global.interface == interface.name &&
               global.version >= static_cast<std::uint32_t>(interface.version);
    };
    if (is(Wlr::manager)) {
        return &globals.wlrManager;
    }
    if (is(List::list)) {
        return &globals.list;
    }
    return is(Cosmic::info) ? &globals.cosmicInfo : nullptr;
}

} // namespace

ToplevelSource::ToplevelSource(std::function<void()> whenChanged)
    : m_whenChanged(std::move(whenChanged)), m_client(*this) {}

void ToplevelSource::globalCame(wl_registry* registry, const WaylandGlobal& global) {
    auto* const place = placeFor(global, m_globals);
    if (place == nullptr) {
        return;
    }
    *place = global.name;
    if (!m_protocol) {
        m_protocol = ToplevelProtocol::begin(registry, m_globals);
    }
}

void ToplevelSource::globalGone(std::uint32_t name) {
    for (auto* const place : {&m_globals.wlrManager, &m_globals.list, &m_globals.cosmicInfo}) {
        if (*place == name) {
            m_client.giveUp();
        }
    }
}

void ToplevelSource::served() {
    if (m_protocol && m_protocol->isFinished()) {
        m_client.giveUp();
        return;
    }
    setReport(m_protocol ? m_protocol->report() : FrontReport::unknown());
}

void ToplevelSource::lost() {
    m_protocol.reset();
    m_globals = {};
    setReport(FrontReport::unknown());
}

void ToplevelSource::setReport(FrontReport report) {
    if (report != m_report) {
        m_report = std::move(report);
        m_whenChanged();
    }
}

} // namespace pallistrom
