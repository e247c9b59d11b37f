// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/keys/EditingKeys.h"

#include "platform/linux/keys/ChordFlags.h"

#include <linux/input-event-codes.h>

#include <algorithm>
#include <span>

namespace pallistrom {

namespace {

using namespace ChordFlags;

enum class WithShift : std::uint8_t {
    Dropped, ///< shift makes no difference
    Kept,    ///< shift is held for the result as well
};

struct Rule {
    EvdevCode key;      ///< this key ...
    CGEventFlags flags; ///< ... with exactly these modifiers, shift aside,
    WithShift withShift;
    LinuxChord first;  ///< is this keystroke,
    LinuxChord second; ///< and then this one, unless its key is 0
};

// Keys of the main block, never of the keypad: with shift those are digits.
constexpr auto rules = std::to_array<Rule>({
    // Deletion. There is no key for "to the line's end" that all toolkits know, so it is selected
    // first.
    {KEY_BACKSPACE, option, WithShift::Dropped, {KEY_BACKSPACE, control}, {}},
    {KEY_BACKSPACE, command, WithShift::Dropped, {KEY_HOME, shift}, {KEY_BACKSPACE, 0}},
    {KEY_DELETE, option, WithShift::Dropped, {KEY_DELETE, control}, {}},
    {KEY_DELETE, command, WithShift::Dropped, {KEY_END, shift}, {KEY_DELETE, 0}},
    // Movement, and selection with shift.
    {KEY_LEFT, command, WithShift::Kept, {KEY_HOME, 0}, {}},
    {KEY_RIGHT, command, WithShift::Kept, {KEY_END, 0}, {}},
    {KEY_UP, command, WithShift::Kept, {KEY_HOME, control}, {}},
    {KEY_DOWN, command, WithShift::Kept, {KEY_END, control}, {}},
    {KEY_LEFT, option, WithShift::Kept, {KEY_LEFT, control}, {}},
    {KEY_RIGHT, option, WithShift::Kept, {KEY_RIGHT, control}, {}},
    {KEY_UP, option, WithShift::Kept, {KEY_UP, control}, {}},
    {KEY_DOWN, option, WithShift::Kept, {KEY_DOWN, control}, {}},
});

// What counts before them where nothing but a selection can be deleted.
constexpr auto rulesBySelection = std::to_array<Rule>({
    {KEY_BACKSPACE, option, WithShift::Dropped, {KEY_LEFT, control | shift}, {KEY_BACKSPACE, 0}},
    {KEY_DELETE, option, WithShift::Dropped, {KEY_RIGHT, control | shift}, {KEY_DELETE, 0}},
});

const Rule* find(std::span<const Rule> among, EvdevCode key, CGEventFlags flagsWithoutShift) {
    const auto rule = std::find_if(among.begin(), among.end(), [&](const Rule& candidate) {
        return candidate.key == key && candidate.flags == flagsWithoutShift;
    });
    return rule == among.end() ? nullptr : &*rule;
}

const Rule* find(EditingStyle style, EvdevCode key, CGEventFlags flagsWithoutShift) {
    const Rule* const special = style == EditingStyle::BySelection
                                    ? find(rulesBySelection, key, flagsWithoutShift)
                                    : nullptr;
    return special != nullptr ? special : find(rules, key, flagsWithoutShift);
}

} // namespace

void EditingKeys::add(LinuxChord chord) {
    m_chords.at(m_count++) = chord;
}

EditingKeys EditingKeys::forStroke(std::int64_t keyCode, CGEventFlags flags, EditingStyle style) {
    EditingKeys result;
    const auto key = KeyMap::evdevCode(keyCode);
    if (!key) {
        return result;
    }
    const CGEventFlags modifiers = flags & (shift | control | option | command);
    const Rule* const rule = find(style, *key, modifiers & ~shift);
    if (rule == nullptr) {
        result.add({*key, modifiers});
        return result;
    }
    const CGEventFlags kept = rule->withShift == WithShift::Kept ? modifiers & shift : 0;
    result.add({rule->first.key, rule->first.modifiers | kept});
    if (rule->second.key != 0) {
        result.add(rule->second);
    }
    return result;
}

} // namespace pallistrom
