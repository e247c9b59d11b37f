// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Browser.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string_view>

namespace pallistrom::e2e {

namespace {

/// Titles lose spaces at their end, so they go as underscores.
constexpr std::string_view page = R"(<!DOCTYPE html>
<title>Not ready</title>
<textarea id="area" rows="4" cols="60" autofocus></textarea>
<script>
    const area = document.getElementById("area");

    function tell() {
        const text = area.value.replaceAll(" ", "_");
        document.title = `text ${area.selectionStart} ${text};`;
    }

    function start() {
        area.value = "alpha beta gamma delta";
        area.setSelectionRange(11, 11);
        tell();
    }

    area.addEventListener("focus", start);
    area.addEventListener("input", tell);
    area.addEventListener("keydown", event => {
        if (event.key === "F9") {
            start();
        }
    });
</script>
)";

/// A browser as it is after its first start, which talks to nobody.
Command command(const Home& home, const std::string& display) {
    const auto file = home.path() / "page.html";
    std::ofstream{file} << page;
    return {.arguments = {Browser::program,
                          "--user-data-dir=" + (home.path() / "browser").string(),
                          "--no-sandbox", // Which is refused to root, who runs tests in containers.
                          "--no-first-run",
                          "--disable-background-networking",
                          "--disable-gpu",
                          "file://" + file.string()},
            .environment = home.environment(display),
            .errorFile = home.path() / "browser.log"};
}

std::string property(const XConnection& connection, xcb_window_t window, std::string_view name) {
    const auto length = static_cast<std::uint16_t>(name.size());
    const XReply<xcb_intern_atom_reply_t> atom{xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, length, name.data()), nullptr)};
    if (!atom) {
        return {};
    }
    constexpr std::uint32_t most = 256; // Units of four bytes.
    const XReply<xcb_get_property_reply_t> value{xcb_get_property_reply(
        connection,
        xcb_get_property(connection, 0, window, atom->atom, XCB_GET_PROPERTY_TYPE_ANY, 0, most),
        nullptr)};
    if (!value) {
        return {};
    }
    return {static_cast<const char*>(xcb_get_property_value(value.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(value.get()))};
}

std::string titleInFront(const XConnection& connection) {
    const std::string bytes = property(connection, connection.rootWindow(), "_NET_ACTIVE_WINDOW");
    xcb_window_t window = XCB_NONE;
    if (bytes.size() < sizeof window) {
        return {};
    }
    std::copy_n(bytes.data(), sizeof window, reinterpret_cast<char*>(&window));
    return property(connection, window, "_NET_WM_NAME");
}

} // namespace

const std::string Browser::program = "chromium";
const TextState Browser::start{.text = "alpha beta gamma delta", .cursor = 11};
const std::string Browser::startKey = "F9";

Browser::Browser(const std::string& display)
    : m_connection{display}, m_process{command(m_home, display)} {
    const Deadline slow{std::chrono::seconds{30}};
    if (!waitUntil([this] { return state() == start; }, slow)) {
        throw std::runtime_error{"the browser does not come up"};
    }
}

std::optional<TextState> Browser::waitFor(const TextState& wanted) const {
    std::optional<TextState> last;
    static_cast<void>(waitUntil([&] {
        last = state();
        return last == wanted;
    }));
    return last;
}

std::optional<TextState> Browser::state() const {
    constexpr std::string_view prefix = "text ";
    std::string title = titleInFront(m_connection);
    if (!title.starts_with(prefix)) {
        return std::nullopt;
    }
    title = title.substr(prefix.size(), title.find(';') - prefix.size());
    std::replace(title.begin(), title.end(), '_', ' ');
    return decoded(title);
}

} // namespace pallistrom::e2e
