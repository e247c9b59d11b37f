// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keys/EditingKeys.h"
#include "platform/linux/keys/ModifierState.h"
#include "platform/linux/keys/OutputKeys.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace pallistrom {

/// What the kernel says of a key.
enum class KeyAction : std::uint8_t {
    Press,
    Repeat,
    Release,
};

/// What goes out in place of a key event.
struct Replacement {
    std::span<const LinuxChord> chords; ///< in order; none: the event is swallowed
    /// Whether a single chord is the event itself, rewritten, and so may last as long as its key
    /// does.
    bool isTheKeyItself = false;
};

// The cases that are told apart, in the words of DeliveryScript: "+w" is a press, "~w" a repeat,
// "-w" a release, "." a pause. "=" says what a key is rewritten into, ">" what is posted in its
// place, if anything, and "*" that earlier steps are still going out. The tests read the table from
// here.
//
// clang-format off
// --- Keys about which nothing was decided
// An untouched key goes out as it came
//     +ctrl +alt +del -del -alt -ctrl          ->  +ctrl +alt +del -del -alt -ctrl
// A repeat of an untouched key is left to the desktop
//     +a ~a -a                                 ->  +a -a
// A press of what is down already is not shown again
//     +a +a -a                                 ->  +a -a
// A key that is not down neither repeats nor goes up
//     ~a -a                                    ->  (nothing)
//
// --- Keys that are swallowed
// A swallowed key shows nothing
//     +x> ~x> -x                               ->  (nothing)
// A swallowed release still lets go of the key
//     +x -x>                                   ->  +x -x
// A rewritten release lets go of what was pressed
//     +ctrl +w -w=ctrl+bs -ctrl                ->  +ctrl +w -w -ctrl
// A swallowed repeat lets go of its key
//     +x ~x> -x                                ->  +x -x
//
// --- Keys that are rewritten: the chord is held, and the desktop repeats it
// A rewritten key is held for as long as its own key
//     +x=end ~x=end -x=end                     ->  +end -end
// A release about which nothing was decided ends it too
//     +ctrl +w=ctrl+bs ~w -w -ctrl             ->  +ctrl +bs -bs -ctrl
// The next press ends it
//     +ctrl +w=ctrl+bs +a -w -a -ctrl          ->  +ctrl +bs -bs +a -a -ctrl
// The next press meets the modifiers that are held
//     +ctrl +shift +w=ctrl+bs +a -w -a -shift -ctrl
//         ->  +ctrl +shift . -shift . +bs -bs . +shift . +a -a -shift -ctrl
// The release of another key does not end it
//     +a +ctrl +w=ctrl+bs -a -w -ctrl          ->  +a +ctrl +bs -a -bs -ctrl
// The release of the key that it shows ends it
//     +bs +shift +x=bs -bs -shift -x
//         ->  +bs +shift -bs . -shift . +bs -bs . +shift . -shift
// A key that is down already is pressed anew
//     +bs +ctrl +w=ctrl+bs -w -bs -ctrl        ->  +bs +ctrl -bs +bs -bs -ctrl
// A modifier goes up after the chord that it belongs to
//     +ctrl +w=ctrl+bs -ctrl ~w -w             ->  +ctrl +bs -bs -ctrl
// A lifted modifier that goes up is not pressed once more
//     +ctrl +shift +w=ctrl+bs -shift -w -ctrl  ->  +ctrl +shift . -shift . +bs -bs -ctrl
// A modifier goes up before lifted ones come back
//     +ctrl +shift +w=ctrl+bs -ctrl -w -shift
//         ->  +ctrl +shift . -shift . +bs -bs . -ctrl +shift . -shift
// A repeat may be the first to be rewritten
//     +w +ctrl ~w=ctrl+bs -w -ctrl             ->  +w +ctrl -w +bs -bs -ctrl
// Other modifiers in the session end it
//     +ctrl +shift +w=ctrl+bs table:caps=control -w -shift -ctrl
//         ->  +ctrl +shift . -shift . +bs -bs . +shift . -shift -ctrl
// Several chords in place of one key are not held
//     +x=shift+home,bs -x                      ->  +shift . +home -home . -shift . +bs -bs
//
// --- Keys in whose place chords are posted
// Posted chords are tapped in order and their key is not shown
//     +ctrl +u>shift+home,bs -u -ctrl
//         ->  +ctrl . -ctrl +shift . +home -home . -shift . +bs -bs . +ctrl . -ctrl
// Each repeat posts them again
//     +x>bs ~x>bs -x                           ->  +bs -bs +bs -bs
// A repeat is dropped while earlier chords are still going out
//     +x>bs ~x>bs* -x                          ->  +bs -bs
// A release may post chords as well
//     +x -x>end                                ->  +x -x +end -end
// Posted chords of a repeat end one that is held
//     +a>x +ctrl +w=ctrl+bs ~a>end -w -a -ctrl
//         ->  +x -x +ctrl +bs -bs . -ctrl . +end -end . +ctrl . -ctrl
// Posted chords of a release end it as well
//     +a +ctrl +w=ctrl+bs -a>end -w -ctrl
//         ->  +a +ctrl +bs -a -bs . -ctrl . +end -end . +ctrl . -ctrl
//
// --- The modifiers of a chord: a pause parts each change of them from other keys
// A modifier too many is lifted and pressed again
//     +ctrl +shift +w=ctrl+bs -w -shift -ctrl
//         ->  +ctrl +shift . -shift . +bs -bs . +shift . -shift -ctrl
// A missing modifier is pressed
//     +x>ctrl+left,ctrl+left -x                ->  +ctrl . +left -left +left -left . -ctrl .
// A modifier comes back as the key that is held
//     +rctrl +x>end,ctrl+left -x -rctrl
//         ->  +rctrl . -rctrl . +end -end . +rctrl . +left -left -rctrl
// A modifier of either hand will do
//     +rctrl +w=ctrl+bs -w -rctrl              ->  +rctrl +bs -bs -rctrl
// Alt changes only while a control is down
//     +alt +d=ctrl+del -d -alt
//         ->  +alt . +ctrl -alt . +del -del . +alt -ctrl . -alt
// Super does so too where no control is wanted
//     +super +x>end -x -super
//         ->  +super . +ctrl -super -ctrl . +end -end . +ctrl +super -ctrl . -super
// Shift is up while a control is down that is not wanted
//     +shift +alt +x>shift+home -x -alt -shift
//         ->  +shift +alt . -shift +ctrl -alt -ctrl +shift . +home -home . -shift
//             +ctrl +alt -ctrl +shift . -alt -shift
// AltGr is lifted like shift
//     table:ralt=level3 +ralt +x>ctrl+left -x -ralt
//         ->  +ralt . -ralt +ctrl . +left -left . -ctrl +ralt . -ralt
// Caps lock is never touched
//     +caps +x>ctrl+left -x -caps              ->  +caps . +ctrl . +left -left . -ctrl . -caps
// A modifier that no key does is left out
//     table:ctrl=none,rctrl=none +x>ctrl+left -x ->  +left -left
//
// --- Keys that are modifiers in this session only: they may be down and go up, and nobody presses them
// A modifier of any key will do
//     table:enter=control +enter +w=ctrl+bs -w -enter ->  +enter +bs -bs -enter
// A missing modifier is never pressed as any key
//     table:enter=control +x>ctrl+left -x      ->  +ctrl . +left -left . -ctrl .
// It is left out rather than that
//     table:ctrl=none,rctrl=none,enter=control +x>ctrl+left -x ->  +left -left
// A modifier that was lifted stays up until it is pressed again
//     table:enter=control +enter +x>end -x +a -a -enter +enter -enter
//         ->  +enter . -enter . +end -end +a -a +enter -enter
// What comes after it was lifted gets another key
//     table:enter=control +enter +x>end,ctrl+left -x -enter
//         ->  +enter . -enter . +end -end . +ctrl . +left -left . -ctrl .
//
// --- Alt and Super, which open something when they are tapped alone
// Alt that is tapped alone is shown as that
//     +alt -alt                                ->  +alt -alt
// Alt with a swallowed key is hidden by a control
//     +alt +x> -x -alt                         ->  +alt . +ctrl -alt -ctrl .
// Super with a swallowed key is hidden as well
//     +super +x> -super -x                     ->  +super . +ctrl -super -ctrl .
// Alt is not hidden where a control is down anyway
//     +ctrl +alt +x> -x -alt -ctrl             ->  +ctrl +alt -alt -ctrl
// Alt is not hidden if something was shown after it
//     +alt +x> -x +a -a -alt                   ->  +alt +a -a -alt
// Alt is not hidden if a repeat has shown something
//     +alt +x> ~x>end -x -alt
//         ->  +alt . +ctrl -alt -ctrl . +end -end . +ctrl +alt -ctrl . -alt
// Alt is still hidden if what is pressed after it is down already
//     +a +alt +x> -x +a -alt -a                ->  +a +alt . +ctrl -alt -ctrl . -a
// Alt is not hidden for a key that was swallowed before it
//     +x> -x +alt -alt                         ->  +alt -alt
// Caps lock with a swallowed key is shown as it is
//     +caps +x> -x -caps                       ->  +caps -caps
//
// --- The whole keyboard
// Letting go of all begins with the chord and ends with other keys
//     +a +ctrl +w=ctrl+bs letgo                ->  +a +ctrl +bs -bs . -ctrl . -a
// Letting go of Alt does not show it as tapped
//     +alt letgo                               ->  +alt . +ctrl -alt -ctrl .
// Keys that were let go of do nothing until they are pressed again
//     +a +x letgo ~a -a -x>end +a -a           ->  +a +x -a -x +a -a
// Keys that were down before can go up
//     down:enter ~enter -enter +enter -enter   ->  -enter +enter -enter
//
// --- The same where no chord can be held
// Tapped: a rewritten key is one tap for its press and each repeat
//     +ctrl +w=ctrl+bs ~w=ctrl+bs -w -ctrl     ->  +ctrl +bs -bs +bs -bs -ctrl
// clang-format on

/// Turns the stream of physical keys, with what was decided about each, into the stream that the
/// session sees.
///
/// Promises, whatever is decided about whatever key: no key goes down twice; while no key is
/// physically down none is down in the output; outside a chord the modifiers of the output are
/// those physically held, but for keys that are none elsewhere and had to go up. Pauses are asked
/// for, never taken. Nothing is allocated once the list of steps has its size.
class KeyDelivery {
public:
    enum class Rewritten : std::uint8_t {
        Held,   ///< held down for as long as its key is, so that the desktop's own repeat applies
        Tapped, ///< pressed and released at once, with each repeat again
    };

    /// Whether the steps of earlier events have all been taken.
    enum class Sender : std::uint8_t {
        Idle,
        StillSending,
    };

    KeyDelivery(const ModifierTable& table, Rewritten rewritten);

    /// The session has other modifier keys from now on. A chord that is held down ends.
    void setModifierTable(const ModifierTable& table, std::vector<OutputStep>& steps);

    /// Returns the modifiers that a key event carries which comes now.
    [[nodiscard]] CGEventFlags flags() const { return m_physical.flags(); }

    /// Returns whether `key` is a modifier, and so none of the engine's business.
    [[nodiscard]] bool isModifier(EvdevCode key) const { return m_physical.isModifier(key); }

    /// Says that exactly the keys `physical` are down, and that the session has been shown `shown`.
    void assume(const KeySet& physical, const KeySet& shown);

    /// Adds to `steps` what comes of a key event. `replacement` is empty for an event that was left
    /// untouched; one of a modifier key always is.
    void handle(EvdevCode key,
                KeyAction action,
                const std::optional<Replacement>& replacement,
                Sender sender,
                std::vector<OutputStep>& steps);

    /// Lets go of everything, as when the keyboard is taken away. Keys that are still down do
    /// nothing more until they are pressed again.
    void releaseAll(std::vector<OutputStep>& steps);

private:
    struct HeldChord {
        EvdevCode cause = 0; ///< the physical key
        EvdevCode key = 0;
    };

    void press(EvdevCode key, const std::optional<Replacement>& replacement);
    void repeat(EvdevCode key, const std::optional<Replacement>& replacement, Sender sender);
    void release(EvdevCode key, const std::optional<Replacement>& replacement);
    void play(EvdevCode cause, const Replacement& replacement);
    void endHeldChord(const KeySet& modifiers);
    void changeModifiersTo(const KeySet& wanted);
    void releaseModifier(EvdevCode key);

    Rewritten m_rewritten;
    ModifierState m_physical;
    OutputKeys m_output;
    std::optional<HeldChord> m_held;
    /// Whether the last press was swallowed and nothing shown for it.
    bool m_hidLastPress = false;
};

} // namespace pallistrom
