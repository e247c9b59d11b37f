// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/applications/ApplicationChoices.h"
#include "platform/linux/applications/ApplicationLists.h"
#include "platform/linux/applications/DesktopEntries.h"
#include "platform/linux/applications/WindowClass.h"
#include "platform/linux/front/FrontApplication.h"

#include <deque>
#include <map>
#include <string>
#include <string_view>

namespace pallistrom {

/// How applications take editing keys: what the user has said of them counts first, then the
/// built-in lists, then their desktop entries, by which terminals keep their keys.
///
/// Remembers which applications have come to the front, since those are the ones that the user
/// wants to say something of. Main thread only.
class ApplicationKinds {
public:
    /// What is found out of an application once and for all.
    struct Facts {
        const ListedApplication* listed = nullptr; ///< the first list entry that is its own
        bool isTerminal = false;                   ///< by its desktop entry
    };

    /// `choices` outlive this.
    ApplicationKinds(DesktopEntries entries, ApplicationChoices& choices);

    /// The ones of this session and this user.
    static ApplicationKinds& ofSession();

    [[nodiscard]] FrontApplication kindOf(const WindowClass& window);

    /// The same, of an application that is in front now.
    [[nodiscard]] FrontApplication kindOfFront(const WindowClass& window);

    /// Returns whether the shortcuts leave the application of `window` alone.
    [[nodiscard]] bool isLeftAlone(const WindowClass& window) {
        return kindOf(window) == FrontApplication::KeepsItsKeys;
    }

    /// Returns the applications that have been in front, the latest first, without those that have
    /// no class and without this program. No more than fifty.
    [[nodiscard]] const std::deque<WindowClass>& seen() const { return m_seen; }

    /// Returns what is known of an application besides what the user has said.
    [[nodiscard]] const Facts& factsOf(const WindowClass& window);

    [[nodiscard]] const DesktopEntries& entries() const { return m_entries; }

    [[nodiscard]] ApplicationChoices& choices() const { return m_choices; }

private:
    [[nodiscard]] Facts findFacts(const WindowClass& window) const;
    void remember(const WindowClass& window);

    DesktopEntries m_entries;
    ApplicationChoices& m_choices;
    std::map<std::pair<std::string, std::string>, Facts> m_facts;
    std::deque<WindowClass> m_seen;
};

/// Returns the name by which the user knows and chooses an application: the class of its windows.
[[nodiscard]] std::string_view applicationName(const WindowClass& window);

} // namespace pallistrom
