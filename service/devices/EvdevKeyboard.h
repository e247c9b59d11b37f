// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/devices/InputNode.h"
#include "service/devices/KeyboardDevice.h"
#include "service/devices/Lights.h"
#include "service/devices/VirtualDevice.h"

#include <array>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace pallistrom {

class EvdevKeyboard;

/// Is told what happens at a keyboard.
class EvdevKeyboardOwner {
public:
    EvdevKeyboardOwner() = default;
    EvdevKeyboardOwner(const EvdevKeyboardOwner&) = delete;
    EvdevKeyboardOwner& operator=(const EvdevKeyboardOwner&) = delete;
    virtual ~EvdevKeyboardOwner() = default;

    /// There is something to read. The keyboard may be gone when this returns.
    virtual void readable(EvdevKeyboard& keyboard) = 0;

    /// isReady() from now on.
    virtual void ready(EvdevKeyboard& keyboard) = 0;

    virtual void destroyed(EvdevKeyboard& keyboard) = 0;
};

/// A keyboard of the kernel's event devices and, for as long as it is plugged in, its counterparts
/// of uinput.
class EvdevKeyboard final : public KeyboardDevice {
public:
    enum class Pointer : std::uint8_t {
        None,
        Too, ///< it has a mouse's axes or buttons
    };

    /// Keys before everything else. At the very first of all priorities sd-event does not look a
    /// second time for something yet more urgent.
    static constexpr std::int64_t priority = INT64_MIN;

    /// Makes the virtual devices; nothing if that fails, and then errno says why.
    static std::unique_ptr<EvdevKeyboard>
    make(InputNode node, Pointer pointer, sd_event& loop, EvdevKeyboardOwner& owner);

    ~EvdevKeyboard() override;
    EvdevKeyboard(const EvdevKeyboard&) = delete;
    EvdevKeyboard& operator=(const EvdevKeyboard&) = delete;

    [[nodiscard]] const std::string& path() const { return m_node.path(); }

    /// Where the system has its virtual keyboard below /sys.
    [[nodiscard]] std::string_view placeOfVirtualKeyboard() const { return m_keyboard.place(); }

    /// The system has set the virtual keyboard up; `node` is what programs see of it.
    void virtualKeyboardIsThere(InputNode node);

    [[nodiscard]] std::string description() const override;

    [[nodiscard]] bool isReady() const override { return m_isReady; }

    void setWatched(bool watched) override;
    Reading read() override;
    Reading catchUp(const KeySet& known) override;
    std::optional<KeySet> startOver() override;
    Grab grab() override;
    LetGo letGo() override;
    void letGoAtOnce() override;
    void write(Destination::Part part, std::span<const input_event> events) override;
    void lightChanged(std::uint16_t light, std::int32_t value) override;

private:
    EvdevKeyboard(InputNode node,
                  VirtualDevice keyboard,
                  std::optional<VirtualDevice> pointer,
                  EvdevKeyboardOwner& owner);

    bool addTo(sd_event& loop);
    void watchLights(InputNode node);
    [[nodiscard]] bool setGrab(bool grabbed) const;
    void keepUnread();
    [[nodiscard]] bool hasUnreadKeyBefore(const timespec& moment) const;
    void serveLights();

    InputNode m_node;
    VirtualDevice m_keyboard;
    std::optional<InputNode> m_shown; ///< the virtual keyboard, as programs see it
    std::optional<VirtualDevice> m_pointer;
    EvdevKeyboardOwner& m_owner;
    OwnedEventSource m_readable;
    OwnedEventSource m_lightsSwitched;
    OwnedEventSource m_settled;
    bool m_isReady = false;
    bool m_isWatched = false;
    bool m_hasHungUp = false;
    bool m_isInLine = false; ///< with what is less urgent than keys
    Lights m_lights;
    std::array<input_event, 64> m_events{};
    std::size_t m_unread = 0; ///< events that were read ahead
    std::vector<input_event> m_madeUp;
};

} // namespace pallistrom
