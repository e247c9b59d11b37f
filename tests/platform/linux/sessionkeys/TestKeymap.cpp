// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "TestKeymap.h"

#include <linux/input-event-codes.h>
#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <set>
#include <sstream>

namespace pallistrom {

namespace {

// Codes that keymaps use to tie modifiers to meanings: <LVL3>, <LVL5>, <ALT>, <META>, <SUPR>,
// <HYPR> and <MDSW> of the key codes "evdev".
const std::set<EvdevCode> codesOfNoKeyboard{84, 195, 196, 197, 198, 199};

} // namespace

std::string keymapText(const std::string& layouts, const std::string& options) {
    const std::unique_ptr<xkb_context, decltype(&xkb_context_unref)> context(
        xkb_context_new(XKB_CONTEXT_NO_ENVIRONMENT_NAMES), xkb_context_unref);
    const xkb_rule_names names{.rules = "evdev",
                               .model = "pc105",
                               .layout = layouts.c_str(),
                               .variant = "",
                               .options = options.c_str()};
    const std::unique_ptr<xkb_keymap, decltype(&xkb_keymap_unref)> keymap(
        xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS),
        xkb_keymap_unref);
    if (!keymap) {
        return {};
    }
    const std::unique_ptr<char, decltype(&std::free)> text(
        xkb_keymap_get_as_string(keymap.get(), XKB_KEYMAP_FORMAT_TEXT_V1), std::free);
    return text.get();
}

ModifierDifference differenceFromStandard(const ModifierTable& table) {
    const ModifierTable standard = ModifierTable::standard();
    ModifierDifference difference;
    for (EvdevCode code = 0; code <= ModifierTable::highestCode; ++code) {
        if (table.modifierOf(code) != standard.modifierOf(code) &&
            codesOfNoKeyboard.count(code) == 0) {
            difference.emplace(code, table.modifierOf(code));
        }
    }
    return difference;
}

std::vector<std::string> optionsOf(const std::vector<std::string>& groups) {
    std::ifstream list("/usr/share/X11/xkb/rules/evdev.lst");
    std::vector<std::string> options;
    std::string line;
    bool isInOptions = false;
    while (std::getline(list, line)) {
        std::string word;
        std::istringstream(line) >> word;
        if (word == "!") {
            isInOptions = line.find("option") != std::string::npos;
        }
        const auto colon = word.find(':');
        if (isInOptions && colon != std::string::npos &&
            std::count(groups.begin(), groups.end(), word.substr(0, colon)) > 0) {
            options.push_back(word);
        }
    }
    return options;
}

} // namespace pallistrom
