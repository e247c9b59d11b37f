// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "DesktopEntryPromises.h"

#include "platform/linux/applications/ExecLine.h"
#include "platform/linux/loginitem/LoginItemRules.h"

#include <vector>

namespace pallistrom::DesktopEntryLines {

namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

Pairs valuesOf(std::string_view text) {
    Pairs values;
    forEachValue(text, mainGroup, [&](std::string_view key, std::string_view value) {
        values.emplace_back(key, value);
    });
    return values;
}

Pairs without(Pairs values, std::string_view key) {
    std::erase_if(values, [&](const auto& pair) { return pair.first == key; });
    return values;
}

// As keys may be: letters, digits and dashes.
std::string keyFrom(std::string_view text) {
    std::string key = "K";
    for (const char c : text) {
        key += (c >= 'a' && c <= 'z') || c == '-' ? c : 'x';
    }
    return key;
}

std::string brokenLoginItemPromise(std::string_view text, std::string_view program) {
    using LoginItemRules::Program;
    const std::string path = '/' + std::string(program);
    const LoginItemRules::Session session{
        .desktops = {"A", "B"}, .program = path, .find = [&](const std::string& name) {
            return name == path ? Program::Ours : Program::Missing;
        }};
    const auto enabled = LoginItemRules::textToEnable(std::string(text), session);
    if (LoginItemRules::status(enabled, session) != SMAppServiceStatus::SMAppServiceStatusEnabled) {
        return "a text that enables does";
    }
    const auto disabled = LoginItemRules::textToDisable(enabled, std::nullopt, session);
    if (LoginItemRules::status(disabled, session) !=
        SMAppServiceStatus::SMAppServiceStatusNotRegistered) {
        return "a text that disables does";
    }
    return {};
}

} // namespace

std::string brokenPromise(std::string_view text, std::string_view key, std::string_view value) {
    const std::string plain(value.substr(0, value.find('\0')));
    if (unescaped(escaped(plain)) != plain) {
        return "what is escaped can be read again";
    }
    if (const auto words = ExecLine::words(ExecLine::starting('/' + plain));
        !words || *words != std::vector{'/' + plain}) {
        return "the command that starts a program starts it";
    }
    (void)ExecLine::words(text);
    if (!isWellFormed(text)) {
        return brokenLoginItemPromise(text, plain);
    }
    const std::string name = keyFrom(key);
    const auto result = withChanges(text, {{name, escaped(plain)}});
    if (!isWellFormed(result)) {
        return "a changed text is as well formed as before";
    }
    if (without(valuesOf(result), name) != without(valuesOf(text), name)) {
        return "other values stay as they are";
    }
    if (valuesOf(result).size() != without(valuesOf(result), name).size() + 1 ||
        withChanges(result, {{name, escaped(plain)}}) != result) {
        return "a changed value is there, once, and the same change changes nothing more";
    }
    if (valuesOf(withChanges(text, {{name, std::nullopt}})) != without(valuesOf(text), name)) {
        return "a value that is to go goes";
    }
    return brokenLoginItemPromise(text, plain);
}

} // namespace pallistrom::DesktopEntryLines
