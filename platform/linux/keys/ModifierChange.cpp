// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/keys/ModifierChange.h"

#include <array>

namespace pallistrom::ModifierChange {

namespace {

constexpr std::array controls{Modifier::Control};
constexpr std::array menuOpeners{Modifier::Option, Modifier::Command};
constexpr std::array selectors{Modifier::Shift, Modifier::Level3};
constexpr std::array allThatMatter{
    Modifier::Shift, Modifier::Control, Modifier::Option, Modifier::Command, Modifier::Level3};

// Those of `keys` that are down or can be brought to be.
KeySet possible(const KeySet& keys, const OutputKeys& output) {
    return keys & (output.down() | ModifierTable::pressable());
}

} // namespace

KeySet keysFor(CGEventFlags flags, const ModifierState& physical, const OutputKeys& output) {
    const ModifierTable& table = physical.table();
    KeySet wanted;
    for (const Modifier& modifier : allThatMatter) {
        if ((flags & flagOf(modifier)) == 0) {
            continue;
        }
        const KeySet down = table.keysOf(output.down(), {&modifier, 1});
        const KeySet held = table.keysOf(possible(physical.held(), output), {&modifier, 1});
        if (down.any()) {
            wanted |= down;
        } else if (held.any()) {
            wanted |= held;
        } else if (const auto key = table.keyFor(modifier)) {
            wanted.set(*key);
        }
    }
    return wanted;
}

bool isNeeded(const KeySet& wanted, const ModifierTable& table, const OutputKeys& output) {
    return table.keysOf(possible(wanted, output) ^ output.down(), allThatMatter).any();
}

void apply(const KeySet& target, const ModifierTable& table, OutputKeys& output) {
    const KeySet wanted = possible(target, output);
    using Modifiers = std::span<const Modifier>;
    const auto release = [&](Modifiers modifiers) {
        forEachKey(table.keysOf(output.down() & ~wanted, modifiers),
                   [&](EvdevCode key) { output.release(key); });
    };
    const auto press = [&](Modifiers modifiers) {
        // Once more, as one that was down may have gone up since.
        forEachKey(table.keysOf(possible(wanted, output) & ~output.down(), modifiers),
                   [&](EvdevCode key) { output.press(key); });
    };

    release(selectors);
    if (table.keysOf(wanted ^ output.down(), menuOpeners).any()) {
        press(controls);
        const auto control = table.keyFor(Modifier::Control);
        if (control && table.keysOf(output.down(), controls).none()) {
            // Not wanted, so it goes up again below: it only keeps the others company. Until then
            // shift is up.
            forEachKey(table.keysOf(output.down(), selectors),
                       [&](EvdevCode key) { output.release(key); });
            output.press(*control);
        }
        release(menuOpeners);
        press(menuOpeners);
    }
    release(controls);
    press(controls);
    press(selectors);
}

} // namespace pallistrom::ModifierChange
