// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "TrayMenu.h"

#include <string_view>

namespace pallistrom::e2e {

namespace {

constexpr const char* menuPath = "/MenuBar";

/// What stands between `start` and the next `end`; nothing if `start` does not occur.
std::string between(std::string_view text, std::string_view start, std::string_view end) {
    const auto found = text.find(start);
    if (found == std::string_view::npos) {
        return {};
    }
    const auto rest = text.substr(found + start.size());
    return std::string{rest.substr(0, rest.find(end))};
}

/// gdbus(1) writes an item as (5, {'label': <'Text'>, 'enabled': <false>}, @av []).
TrayMenu::Item parse(std::string_view text) {
    TrayMenu::Item item;
    item.id = std::string{text.substr(0, text.find(','))};
    item.label = between(text, "'label': <'", "'>");
    if (text.find("'type': <'separator'>") != std::string_view::npos) {
        item.label = "-";
    }
    item.isChecked = text.find("'toggle-state': <1>") != std::string_view::npos;
    item.isEnabled = text.find("'enabled': <false>") == std::string_view::npos;
    return item;
}

} // namespace

std::string TrayMenu::owner() const {
    const auto answer =
        m_bus.answer("org.kde.StatusNotifierWatcher",
                     "/StatusNotifierWatcher",
                     "org.freedesktop.DBus.Properties.Get",
                     {"org.kde.StatusNotifierWatcher", "RegisteredStatusNotifierItems"});
    const std::string item = between(answer.value_or(""), "['", "'");
    return item.substr(0, item.find('/'));
}

std::vector<TrayMenu::Item> TrayMenu::items() const {
    const std::string name = owner();
    if (name.empty()) {
        return {};
    }
    const std::string layout =
        m_bus.answer(name, menuPath, "com.canonical.dbusmenu.GetLayout", {"--", "0", "-1", "[]"})
            .value_or("");
    std::vector<Item> items;
    constexpr std::string_view start = "<(";
    for (auto at = layout.find(start); at != std::string::npos;) {
        const auto next = layout.find(start, at + start.size());
        const std::string text = layout.substr(at + start.size(), next - at - start.size());
        if (text.find("'visible': <false>") == std::string::npos) {
            items.push_back(parse(text));
        }
        at = next;
    }
    return items;
}

std::vector<std::string> TrayMenu::labels() const {
    std::vector<std::string> labels;
    for (const Item& item : items()) {
        labels.push_back(item.label);
    }
    return labels;
}

std::optional<TrayMenu::Item> TrayMenu::find(const std::string& label) const {
    for (const Item& item : items()) {
        if (item.label == label) {
            return item;
        }
    }
    return std::nullopt;
}

bool TrayMenu::choose(const std::string& label) const {
    const auto item = find(label);
    return item && m_bus.call(owner(),
                              menuPath,
                              "com.canonical.dbusmenu.Event",
                              {item->id, "clicked", "<''>", "0"});
}

} // namespace pallistrom::e2e
