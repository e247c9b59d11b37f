// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/ApplicationKinds.h"

#include "pallistrom/Names.h"
#include "platform/linux/QtText.h"
#include "platform/linux/SessionPaths.h"
#include "platform/linux/Text.h"

#include <algorithm>
#include <utility>

namespace pallistrom {

namespace {

bool isThisProgram(const WindowClass& window) {
    const std::string name = Text::lowerCase(applicationName(window));
    return name == Names::program || name == Text::lowerCase(Names::applicationId);
}

} // namespace

std::string_view applicationName(const WindowClass& window) {
    return window.name.empty() ? window.instance : window.name;
}

ApplicationKinds::ApplicationKinds(DesktopEntries entries, ApplicationChoices& choices)
    : m_entries(std::move(entries)), m_choices(choices) {}

ApplicationKinds& ApplicationKinds::ofSession() {
    static ApplicationChoices choices(
        qtText((SessionPaths::configHome() / Names::settingsFolder).string()));
    static ApplicationKinds kinds(DesktopEntries::ofSession(), choices);
    return kinds;
}

FrontApplication ApplicationKinds::kindOf(const WindowClass& window) {
    const Facts& facts = factsOf(window);
    auto choice = m_choices.isLeftAlone(window.name);
    if (!choice) {
        choice = m_choices.isLeftAlone(window.instance);
    }
    if (!choice && facts.listed != nullptr) {
        choice = m_choices.isLeftAlone(facts.listed->pattern);
    }
    const auto builtIn = facts.listed != nullptr ? facts.listed->kind
                         : facts.isTerminal      ? FrontApplication::KeepsItsKeys
                                                 : FrontApplication::TakesEditingKeys;
    if (!choice) {
        return builtIn;
    }
    if (*choice) {
        return FrontApplication::KeepsItsKeys;
    }
    return builtIn == FrontApplication::KeepsItsKeys ? FrontApplication::TakesEditingKeys : builtIn;
}

FrontApplication ApplicationKinds::kindOfFront(const WindowClass& window) {
    remember(window);
    return kindOf(window);
}

const ApplicationKinds::Facts& ApplicationKinds::factsOf(const WindowClass& window) {
    std::pair key(window.instance, window.name);
    if (const auto known = m_facts.find(key); known != m_facts.end()) {
        return known->second;
    }
    // Windows name themselves as they please; nobody may fill our memory with names.
    constexpr std::size_t most = 1000;
    if (m_facts.size() >= most) {
        m_facts.clear();
    }
    return m_facts.emplace(std::move(key), findFacts(window)).first->second;
}

ApplicationKinds::Facts ApplicationKinds::findFacts(const WindowClass& window) const {
    Facts facts;
    const auto all = ApplicationLists::builtIn();
    const auto listed = std::find_if(all.begin(), all.end(), [&](const ListedApplication& each) {
        return each.isNamed(window.name) || each.isNamed(window.instance);
    });
    if (listed != all.end()) {
        facts.listed = &*listed;
    }
    const auto isTerminal = [this](const std::string& name) {
        return !name.empty() && m_entries.isTerminal(name);
    };
    facts.isTerminal = isTerminal(window.name) || isTerminal(window.instance);
    return facts;
}

void ApplicationKinds::remember(const WindowClass& window) {
    if (applicationName(window).empty() || isThisProgram(window) ||
        (!m_seen.empty() && m_seen.front() == window)) {
        return;
    }
    constexpr std::size_t most = 50;
    std::erase_if(m_seen, [&](const WindowClass& each) {
        return Text::lowerCase(applicationName(each)) == Text::lowerCase(applicationName(window));
    });
    m_seen.push_front(window);
    if (m_seen.size() > most) {
        m_seen.pop_back();
    }
}

} // namespace pallistrom
