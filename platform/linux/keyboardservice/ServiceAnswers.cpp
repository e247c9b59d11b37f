// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/keyboardservice/ServiceAnswers.h"

#include <algorithm>
#include <array>

namespace pallistrom::ServiceAnswers {

using KeyboardInterface::Access;
using KeyboardInterface::GrantAnswer;

std::optional<Obstacle> obstacleOfAccess(std::uint32_t access) {
    switch (static_cast<Access>(access)) {
    case Access::Granted:
        return std::nullopt;
    case Access::NotGranted:
        return Obstacle::NotGranted;
    case Access::Panicked:
        return Obstacle::Panicked;
    case Access::NotLocal:
        return Obstacle::NotLocal;
    case Access::NoKeyboard:
        return Obstacle::NoVirtualKeyboard;
    }
    return Obstacle::ServiceMismatch;
}

Obstacle obstacleOfError(std::string_view name) {
    constexpr std::string_view prefix = "org.freedesktop.DBus.Error.";
    if (!name.starts_with(prefix)) {
        return Obstacle::ServiceSilent;
    }
    name.remove_prefix(prefix.size());
    if (name == "ServiceUnknown" || name == "NameHasNoOwner") {
        return Obstacle::ServiceNotInstalled;
    }
    constexpr std::array<std::string_view, 5> ofTheInterface{
        "UnknownObject", "UnknownInterface", "UnknownMethod", "UnknownProperty", "InvalidArgs"};
    return std::find(ofTheInterface.begin(), ofTheInterface.end(), name) != ofTheInterface.end()
               ? Obstacle::ServiceMismatch
               : Obstacle::ServiceSilent;
}

bool isTooMuch(std::string_view errorName) {
    return errorName == "org.freedesktop.DBus.Error.LimitsExceeded";
}

std::optional<GrantAnswer> grantAnswer(std::uint32_t answer) {
    switch (const auto value = static_cast<GrantAnswer>(answer)) {
    case GrantAnswer::Granted:
    case GrantAnswer::Denied:
    case GrantAnswer::NoAgent:
    case GrantAnswer::Busy:
        return value;
    }
    return std::nullopt;
}

} // namespace pallistrom::ServiceAnswers
