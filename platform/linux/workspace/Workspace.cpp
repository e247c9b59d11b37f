// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/Workspace.h"

#include "platform/linux/SessionPaths.h"
#include "platform/linux/SmallFile.h"
#include "platform/linux/access/AccessPane.h"
#include "platform/linux/workspace/ReducedMotion.h"

#include <QApplication>
#include <QByteArray>
#include <QDesktopServices>
#include <QStyle>
#include <QUrl>

#include <algorithm>
#include <array>

namespace pallistrom {

namespace {

constexpr std::string_view accessLink =
    "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";

bool hasWindows() {
    return qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr;
}

// Everything else is escaped in a URL.
bool isPrintable(std::string_view url) {
    return std::all_of(url.begin(), url.end(), [](char c) { return c > ' ' && c < '\x7F'; });
}

bool kdeAsksForNoMotion() {
    constexpr std::size_t longest = 262144;
    const auto desktops = SessionPaths::variable("XDG_CURRENT_DESKTOP");
    return desktops.find("KDE") != std::string::npos &&
           ReducedMotion::isAskedForIn(
               SmallFile::read(SessionPaths::configHome() / "kdeglobals", longest).text);
}

} // namespace

bool openURL(std::string_view url) {
    if (!hasWindows()) {
        return false;
    }
    if (url == accessLink) {
        AccessPane::present();
        return true;
    }
    // Byte for byte: any other way to make a QUrl of it decodes something on the way.
    const auto parsed = QUrl::fromEncoded(
        QByteArray(url.data(), static_cast<qsizetype>(url.size())), QUrl::StrictMode);
    const std::array schemes{
        QStringLiteral("mailto"), QStringLiteral("http"), QStringLiteral("https")};
    return isPrintable(url) && parsed.isValid() &&
           std::find(schemes.begin(), schemes.end(), parsed.scheme()) != schemes.end() &&
           QDesktopServices::openUrl(parsed);
}

bool accessibilityDisplayShouldReduceMotion() {
    if (!hasWindows()) {
        return false;
    }
    static const auto* const setting = new ReducedMotion(QDBusConnection::sessionBus());
    return setting->isAskedFor() || kdeAsksForNoMotion() ||
           QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration) == 0;
}

} // namespace pallistrom
