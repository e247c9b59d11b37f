// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/FrontApplication.h"
#include "platform/linux/keys/KeyDelivery.h"
#include "service/devices/OutputQueue.h"

#include <linux/input.h>

#include <array>
#include <optional>
#include <vector>

namespace pallistrom {

class KeyFilter;

/// What all grabbed keyboards send, on its way to their virtual devices: one stream, since to the
/// session they are one keyboard. Control on one of them and W on another are a shortcut.
///
/// Keys that the filter leaves alone go out on the virtual device of their own keyboard, in the
/// frame in which they came. What is shown in place of others goes out one key a frame, on the
/// device of the key that caused it. A key that is down on two keyboards goes up when it is up on
/// both, as the session sees it anyway. All that is no key goes through in its place.
///
/// Nothing is allocated once the stream is made.
class KeyStream {
public:
    explicit KeyStream(OutputDevices& devices);

    /// Keys go by `filter` as long as that is not null and changes are allowed. It outlives its
    /// use.
    void setFilter(KeyFilter* filter);
    void setChangesAllowed(bool allowed);

    void setFrontApplication(FrontApplication kind) { m_front = kind; }

    void setModifierTable(const ModifierTable& table);

    /// Takes what `keyboard` has sent. What it has lost has to be made up for before.
    void handle(KeyboardNumber keyboard, const input_event& event);

    /// The keys of `keyboard` go up as if it had sent that, and nothing more is sent to it.
    void leave(KeyboardNumber keyboard);

    /// Every key and button goes up. Those that are held do nothing more until they are pressed
    /// again.
    void letGo();

    OutputQueue& queue() { return m_queue; }

    [[nodiscard]] const OutputQueue& queue() const { return m_queue; }

private:
    struct Keyboard {
        KeySet held;                          ///< keys and buttons, as far as the stream is to know
        std::optional<std::int32_t> scanCode; ///< of the key that comes next
        bool hasOpenFrame = false;
        bool hasOpenPointerFrame = false;
    };

    void handleKeyOrButton(KeyboardNumber number, EvdevCode code, KeyAction action);
    void handleKey(KeyboardNumber number, EvdevCode key, KeyAction action);
    void moveToOther(EvdevCode key);
    void handleButton(KeyboardNumber number, EvdevCode button, KeyAction action);
    void deliver(KeyboardNumber number, EvdevCode key, KeyAction action);
    void endFrame(KeyboardNumber number);

    /// Sends the steps that have come since the last call. `own` is what the event of `cause` is if
    /// it goes out as it came.
    void sendSteps(KeyboardNumber cause, const std::optional<OutputStep>& own);
    void sendStep(KeyboardNumber cause, const OutputStep& step);
    void sendOwn(KeyboardNumber cause, const OutputStep& step);
    void sendAlone(KeyboardNumber number, const OutputStep& step);
    void sendInFrame(Destination destination,
                     std::uint16_t type,
                     std::uint16_t code,
                     std::int32_t value);
    void sendScanCode(Destination destination);
    void closeFrame(Destination destination);
    bool& isFrameOpen(Destination destination);
    /// Returns where `step` is shown.
    KeyboardNumber place(const OutputStep& step, KeyboardNumber cause);
    [[nodiscard]] KeyboardNumber holderOf(EvdevCode key) const;
    [[nodiscard]] KeyboardNumber anyHolder() const;

    static constexpr KeyboardNumber nowhere = mostKeyboards;

    OutputQueue m_queue;
    ModifierTable m_table = ModifierTable::standard();
    KeyDelivery m_delivery{m_table, KeyDelivery::Rewritten::Held};
    KeyFilter* m_filter = nullptr;
    bool m_changesAllowed = false;
    FrontApplication m_front = FrontApplication::TakesEditingKeys;
    KeySet m_triggers; ///< all that the filter could ever touch
    std::array<Keyboard, mostKeyboards> m_keyboards;
    /// On how many keyboards a key is held.
    std::array<std::uint8_t, KeySet().size()> m_holders{};
    /// Where a key that is down is shown.
    std::array<KeyboardNumber, KeySet().size()> m_shownOn{};
    /// Begins with the last step that went out, if any did: pauses are asked for after it.
    std::vector<OutputStep> m_steps;
    std::size_t m_sentSteps = 0;
};

} // namespace pallistrom
