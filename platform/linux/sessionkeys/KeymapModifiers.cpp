// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sessionkeys/KeymapModifiers.h"

#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <array>
#include <memory>

namespace pallistrom {

namespace {

constexpr xkb_mod_mask_t shiftBit = 1U << 0U;
constexpr xkb_mod_mask_t lockBit = 1U << 1U;
constexpr xkb_mod_mask_t controlBit = 1U << 2U;
constexpr std::size_t firstUnnamed = 3; ///< Mod1; what it means is up to the keymap

/// The key codes of XKB begin after those that an X server keeps for itself.
constexpr xkb_keycode_t keycodeOffset = 8;

/// Real keymaps have less of both. Others are looked at so far only.
constexpr xkb_layout_index_t mostLayouts = 8;
constexpr xkb_level_index_t mostLevels = 8;

struct Unref {
    void operator()(xkb_state* state) const noexcept { xkb_state_unref(state); }
};

/// What pressing a key does to the modifiers, at one of its levels.
struct Effect {
    xkb_keysym_t symbol = XKB_KEY_NoSymbol;
    xkb_mod_mask_t held = 0; ///< on while the key is down
    xkb_mod_mask_t left = 0; ///< still on when it is up again
};

struct Place {
    xkb_keycode_t keycode;
    xkb_layout_index_t layout;
    xkb_level_index_t level;
};

// Presses the key with the modifiers that choose the level, and lets go of it.
Effect effectAt(xkb_keymap& keymap, const Place& place) {
    xkb_mod_mask_t choosing = 0;
    const std::unique_ptr<xkb_state, Unref> state(xkb_state_new(&keymap));
    if (!state || xkb_keymap_key_get_mods_for_level(
                      &keymap, place.keycode, place.layout, place.level, &choosing, 1) == 0) {
        return {};
    }
    xkb_state_update_mask(state.get(), choosing, 0, 0, 0, 0, place.layout);
    Effect effect;
    effect.symbol = xkb_state_key_get_one_sym(state.get(), place.keycode);
    const auto added = [&](xkb_state_component component) {
        return xkb_state_serialize_mods(state.get(), component) & ~choosing;
    };
    xkb_state_update_key(state.get(), place.keycode, XKB_KEY_DOWN);
    effect.held = added(XKB_STATE_MODS_EFFECTIVE);
    xkb_state_update_key(state.get(), place.keycode, XKB_KEY_UP);
    effect.left = added(XKB_STATE_MODS_EFFECTIVE);
    return effect;
}

/// What a modifier bit can mean by the symbols of the keys that set it, those first that count most
/// where several share a bit.
enum class Meaning : std::uint8_t { Alt, Super, Level, Meta, Hyper, Other };

Meaning meaningOf(xkb_keysym_t symbol) {
    switch (symbol) {
    case XKB_KEY_Alt_L:
    case XKB_KEY_Alt_R:
        return Meaning::Alt;
    case XKB_KEY_Super_L:
    case XKB_KEY_Super_R:
        return Meaning::Super;
    case XKB_KEY_ISO_Level3_Shift:
    case XKB_KEY_ISO_Level3_Latch:
    case XKB_KEY_ISO_Level3_Lock:
    case XKB_KEY_ISO_Level5_Shift:
    case XKB_KEY_ISO_Level5_Latch:
    case XKB_KEY_ISO_Level5_Lock:
    case XKB_KEY_Mode_switch:
        return Meaning::Level;
    case XKB_KEY_Meta_L:
    case XKB_KEY_Meta_R:
        return Meaning::Meta;
    case XKB_KEY_Hyper_L:
    case XKB_KEY_Hyper_R:
        return Meaning::Hyper;
    default:
        return Meaning::Other;
    }
}

Modifier modifierOf(Meaning meaning) {
    switch (meaning) {
    case Meaning::Alt:
    case Meaning::Meta:
        return Modifier::Option;
    case Meaning::Super:
    case Meaning::Hyper:
        return Modifier::Command;
    case Meaning::Level:
        return Modifier::Level3;
    case Meaning::Other:
        break;
    }
    return Modifier::None;
}

class KeymapReader {
public:
    explicit KeymapReader(xkb_keymap& keymap) : m_keymap(keymap) {
        forEachKeycode([this](xkb_keycode_t keycode) { learnMeanings(keycode); });
    }

    [[nodiscard]] KeymapModifiers modifiers() const {
        KeymapModifiers modifiers;
        forEachKeycode([&](xkb_keycode_t keycode) {
            if (const Modifier modifier = modifierOfKey(keycode); modifier != Modifier::None) {
                modifiers.keys.emplace(keycode, modifier);
            }
        });
        modifiers.bits = {Modifier::Shift, Modifier::CapsLock, Modifier::Control};
        for (std::size_t bit = firstUnnamed; bit < KeymapModifiers::bitCount; ++bit) {
            modifiers.bits.at(bit) = pallistrom::modifierOf(m_meanings.at(bit));
        }
        return modifiers;
    }

private:
    template<typename Use>
    void forEachKeycode(const Use& use) const {
        const auto first = std::max(xkb_keymap_min_keycode(&m_keymap), keycodeOffset);
        const auto last = std::min(xkb_keymap_max_keycode(&m_keymap),
                                   xkb_keycode_t{ModifierTable::highestCode} + keycodeOffset);
        for (xkb_keycode_t keycode = first; keycode <= last; ++keycode) {
            use(keycode);
        }
    }

    [[nodiscard]] xkb_layout_index_t layoutsOf(xkb_keycode_t keycode) const {
        return std::min(xkb_keymap_num_layouts_for_key(&m_keymap, keycode), mostLayouts);
    }

    // At every level: keymaps give modifiers their meanings by keys that no keyboard has, and whose
    // first level is empty.
    void learnMeanings(xkb_keycode_t keycode) {
        for (xkb_layout_index_t layout = 0; layout < layoutsOf(keycode); ++layout) {
            const auto levels =
                std::min(xkb_keymap_num_levels_for_key(&m_keymap, keycode, layout), mostLevels);
            for (xkb_level_index_t level = 0; level < levels; ++level) {
                learnMeaning(effectAt(m_keymap, {keycode, layout, level}));
            }
        }
    }

    void learnMeaning(const Effect& effect) {
        const Meaning meaning = meaningOf(effect.symbol);
        for (std::size_t bit = firstUnnamed; bit < KeymapModifiers::bitCount; ++bit) {
            if ((effect.held & (1U << bit)) != 0) {
                m_meanings.at(bit) = std::min(m_meanings.at(bit), meaning);
            }
        }
    }

    [[nodiscard]] Modifier modifierOfKey(xkb_keycode_t keycode) const {
        Modifier found = Modifier::None;
        for (xkb_layout_index_t layout = 0; layout < layoutsOf(keycode); ++layout) {
            const Modifier here = modifierOf(effectAt(m_keymap, {keycode, layout, 0}));
            if (here == Modifier::Level3) {
                return here;
            }
            found = found == Modifier::None ? here : found;
        }
        return found;
    }

    [[nodiscard]] Modifier modifierOf(const Effect& effect) const {
        if (((effect.held | effect.left) & lockBit) != 0 || (effect.left & shiftBit) != 0) {
            return Modifier::CapsLock;
        }
        if (has(effect.held, Modifier::Level3)) {
            return Modifier::Level3;
        }
        if (effect.left != 0) {
            return Modifier::None;
        }
        // A key that does several is the one that keeps most shortcuts from firing.
        for (const Modifier modifier : {Modifier::Command, Modifier::Option}) {
            if (has(effect.held, modifier)) {
                return modifier;
            }
        }
        if ((effect.held & controlBit) != 0) {
            return Modifier::Control;
        }
        return (effect.held & shiftBit) != 0 ? Modifier::Shift : Modifier::None;
    }

    [[nodiscard]] bool has(xkb_mod_mask_t mask, Modifier modifier) const {
        for (std::size_t bit = firstUnnamed; bit < KeymapModifiers::bitCount; ++bit) {
            if ((mask & (1U << bit)) != 0 &&
                pallistrom::modifierOf(m_meanings.at(bit)) == modifier) {
                return true;
            }
        }
        return false;
    }

    xkb_keymap& m_keymap;
    std::array<Meaning, KeymapModifiers::bitCount> m_meanings = [] {
        std::array<Meaning, KeymapModifiers::bitCount> none{};
        none.fill(Meaning::Other);
        return none;
    }();
};

} // namespace

KeymapModifiers KeymapModifiers::of(xkb_keymap& keymap) {
    return KeymapReader(keymap).modifiers();
}

ModifierTable modifiersOf(xkb_keymap& keymap) {
    ModifierTable table;
    for (const auto& [keycode, modifier] : KeymapModifiers::of(keymap).keys) {
        table.set(static_cast<EvdevCode>(keycode - keycodeOffset), modifier);
    }
    return table;
}

Modifier modifierOfSymbol(std::uint32_t symbol) {
    return modifierOf(meaningOf(symbol));
}

} // namespace pallistrom
