// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11FrontWindow.h"

#include <QString>
#include <QStringDecoder>

#include <algorithm>
#include <string>
#include <string_view>

namespace pallistrom {

namespace {

xcb_atom_t atomNamed(xcb_connection_t* connection, std::string_view name) {
    const auto reply = xcbReply(
        connection,
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data()),
        xcb_intern_atom_reply);
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

// Returns the bytes of a property; none when the window or the property is not there.
XcbOwned<xcb_get_property_reply_t>
property(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t name, xcb_atom_t type) {
    constexpr std::uint32_t most = 256; // Units of four bytes.
    return xcbReply(connection,
                    xcb_get_property(connection, 0, window, name, type, 0, most),
                    xcb_get_property_reply);
}

std::string_view bytesOf(const xcb_get_property_reply_t& reply) {
    return {static_cast<const char*>(xcb_get_property_value(&reply)),
            static_cast<std::size_t>(xcb_get_property_value_length(&reply))};
}

// By the standard it is in Latin-1; but programs write what they have, and that is UTF-8.
std::string utf8(std::string_view bytes) {
    bytes = bytes.substr(0, WindowClass::mostBytes);
    const auto length = static_cast<qsizetype>(bytes.size());
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(QByteArrayView(bytes.data(), length));
    if (!decoder.hasError()) {
        return std::string(bytes);
    }
    // A letter becomes two bytes at most.
    constexpr auto most = qsizetype{WindowClass::mostBytes / 2};
    return QString::fromLatin1(bytes.data(), std::min(length, most)).toStdString();
}

// WM_CLASS holds two texts, each ended by a zero byte.
WindowClass parseClass(std::string_view bytes) {
    const auto firstEnd = std::min(bytes.find('\0'), bytes.size());
    const std::string_view instance = bytes.substr(0, firstEnd);
    bytes.remove_prefix(std::min(firstEnd + 1, bytes.size()));
    return {.instance = utf8(instance), .name = utf8(bytes.substr(0, bytes.find('\0')))};
}

} // namespace

X11FrontWindow::X11FrontWindow(const X11Connection& connection)
    : m_connection(connection), m_activeWindow(atomNamed(connection.get(), "_NET_ACTIVE_WINDOW")) {
    const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(connection.get(), connection.root(), XCB_CW_EVENT_MASK, &mask);
    refresh();
}

bool X11FrontWindow::isChange(const xcb_generic_event_t& event) const {
    return event.response_type == XCB_PROPERTY_NOTIFY &&
           reinterpret_cast<const xcb_property_notify_event_t&>(event).atom == m_activeWindow;
}

FrontReport X11FrontWindow::report() const {
    return m_class == WindowClass() ? FrontReport::nobody() : FrontReport::of(m_class);
}

void X11FrontWindow::refresh() {
    xcb_connection_t* const c = m_connection.get();
    m_class = {};
    const auto active = property(c, m_connection.root(), m_activeWindow, XCB_ATOM_WINDOW);
    if (!active || bytesOf(*active).size() < sizeof(xcb_window_t)) {
        return;
    }
    const xcb_window_t window =
        *static_cast<const xcb_window_t*>(xcb_get_property_value(active.get()));
    if (const auto reply = property(c, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING)) {
        m_class = parseClass(bytesOf(*reply));
    }
}

} // namespace pallistrom
