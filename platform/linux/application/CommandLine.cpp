// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/application/CommandLine.h"

#include "pallistrom/Names.h"
#include "platform/Bundle.h"

#include <string_view>

namespace pallistrom::CommandLine {

std::optional<std::string> answer(std::span<const char* const> arguments) {
    if (arguments.size() != 2 || std::string_view(arguments[1]) != version) {
        return std::nullopt;
    }
    return std::string(Names::product) + ' ' +
           objectForInfoDictionaryKey(CFBundleShortVersionString).value_or("of no known version");
}

} // namespace pallistrom::CommandLine
