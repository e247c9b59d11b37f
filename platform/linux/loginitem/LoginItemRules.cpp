// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/loginitem/LoginItemRules.h"

#include "pallistrom/Names.h"
#include "platform/linux/applications/DesktopEntryLines.h"
#include "platform/linux/applications/ExecLine.h"

#include <algorithm>

namespace pallistrom::LoginItemRules {

namespace {

using enum SMAppServiceStatus;
using DesktopEntryLines::Changes;

// Whether what the entry starts is us. Somebody may have put another command before ours, with a
// delay, say: then one of its words, or TryExec, still names us.
bool startsUs(const AutostartEntry& entry, const Session& session) {
    const auto isOurs = [&](const std::string& name) {
        return session.find(name) == Program::Ours;
    };
    const auto isThere = [&](const std::string& name) {
        return session.find(name) != Program::Missing;
    };
    if (entry.exec.empty() || !isThere(entry.exec.front()) ||
        (!entry.tryExec.empty() && !isThere(entry.tryExec))) {
        return false;
    }
    const bool isCommandAroundUs = entry.exec.size() > 1 && isOurs(entry.tryExec);
    return isCommandAroundUs || std::any_of(entry.exec.begin(), entry.exec.end(), isOurs);
}

std::string newText(const Session& session) {
    const std::string name(Names::product);
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Name=" +
           name +
           "\n"
           "Comment=Terminal-style text editing, everywhere\n"
           "Icon=" +
           std::string(Names::applicationId) +
           "\n"
           "Exec=" +
           ExecLine::starting(session.program) +
           "\n"
           "TryExec=" +
           DesktopEntryLines::escaped(session.program) +
           "\n"
           "Terminal=false\n"
           "StartupNotify=false\n" +
           std::string(AutostartEntry::hiddenKey) + "=false\n" +
           std::string(AutostartEntry::gnomeKey) + "=true\n" +
           std::string(AutostartEntry::wishKey) + "=true\n";
}

// What makes an entry that leaves out this desktop include it.
Changes changesToInclude(const AutostartEntry& entry, const Session& session) {
    if (entry.isFor(session.desktops)) {
        return {};
    }
    Changes changes;
    auto others = entry.notShowIn;
    std::erase_if(others, [&](const std::string& desktop) {
        return std::find(session.desktops.begin(), session.desktops.end(), desktop) !=
               session.desktops.end();
    });
    changes["NotShowIn"] =
        others.empty() ? std::nullopt : std::optional(DesktopEntryLines::listValue(others));
    if (entry.onlyShowIn && session.desktops.empty()) {
        changes["OnlyShowIn"] = std::nullopt;
    } else if (entry.onlyShowIn) {
        auto desktops = *entry.onlyShowIn;
        desktops.push_back(session.desktops.front());
        changes["OnlyShowIn"] = DesktopEntryLines::listValue(desktops);
    }
    return changes;
}

} // namespace

SMAppServiceStatus status(const std::optional<std::string>& text, const Session& session) {
    if (!text) {
        return SMAppServiceStatusNotRegistered;
    }
    const auto entry = AutostartEntry::parse(*text);
    if (!entry.isApplication) {
        return SMAppServiceStatusNotFound;
    }
    if (entry.isSwitchedOff || !entry.isFor(session.desktops)) {
        return entry.isWished ? SMAppServiceStatusRequiresApproval
                              : SMAppServiceStatusNotRegistered;
    }
    return startsUs(entry, session) ? SMAppServiceStatusEnabled : SMAppServiceStatusNotFound;
}

std::string textToEnable(const std::optional<std::string>& userText, const Session& session) {
    if (!userText || !DesktopEntryLines::isWellFormed(*userText)) {
        return newText(session);
    }
    const auto entry = AutostartEntry::parse(*userText);
    Changes changes = changesToInclude(entry, session);
    changes["Type"] = "Application";
    changes["TryExec"] = DesktopEntryLines::escaped(session.program);
    // A command that somebody has made of ours, and that works, is theirs to keep.
    if (!startsUs(entry, session)) {
        changes["Exec"] = ExecLine::starting(session.program);
    }
    changes[std::string(AutostartEntry::hiddenKey)] = "false";
    changes[std::string(AutostartEntry::gnomeKey)] = "true";
    changes[std::string(AutostartEntry::wishKey)] = "true";
    return DesktopEntryLines::withChanges(*userText, changes);
}

std::optional<std::string> textToDisable(const std::optional<std::string>& userText,
                                         const std::optional<std::string>& systemText,
                                         const Session& session) {
    if (userText == newText(session) && !systemText) {
        return std::nullopt;
    }
    const std::string& text = userText ? *userText : systemText.value();
    return DesktopEntryLines::withChanges(text,
                                          {{std::string(AutostartEntry::hiddenKey), "true"},
                                           {std::string(AutostartEntry::wishKey), std::nullopt}});
}

} // namespace pallistrom::LoginItemRules
