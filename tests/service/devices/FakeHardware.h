// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/devices/KeyboardDevice.h"
#include "service/devices/OutputDevices.h"

#include <linux/input.h>

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

namespace pallistrom {

/// What is wrong, if anything.
using Complaint = std::optional<std::string>;

/// What a session sees of a set of keys, and what it would complain of.
class SeenKeys {
public:
    /// Returns whether `value`, as the kernel has them, is news.
    bool see(std::uint16_t key, std::int32_t value);

    [[nodiscard]] const KeySet& down() const { return m_down; }

    void forget() { m_down.reset(); }

private:
    KeySet m_down;
};

class FakeHardware;

/// Sees what passes between the service and its keyboards.
class FakeHardwareWatcher {
public:
    FakeHardwareWatcher() = default;
    FakeHardwareWatcher(const FakeHardwareWatcher&) = delete;
    FakeHardwareWatcher& operator=(const FakeHardwareWatcher&) = delete;
    virtual ~FakeHardwareWatcher() = default;

    /// The service was given `events` of a keyboard that it has grabbed.
    virtual void given(const FakeHardware& hardware, std::span<const input_event> events) = 0;

    /// The service was told that a keyboard is gone.
    virtual void gone(const FakeHardware& hardware) = 0;

    virtual void written(const FakeHardware& hardware, const input_event& event) = 0;
};

/// A keyboard and what the kernel knows of it and of its counterparts: outlives the service's hold
/// of it, as hardware does.
class FakeHardware {
public:
    enum class GrabbedBy : std::uint8_t {
        Nobody,
        Service,
        Another,
    };

    explicit FakeHardware(std::string called = "keyboard") : name(std::move(called)) {}

    /// A key or button goes down, up, or repeats (1, 0 or 2), if it can. Returns whether it could.
    bool key(std::uint16_t code, std::int32_t value);

    /// Sends a frame of its own.
    void send(std::initializer_list<input_event> frame);

    /// Forgets what the service has not read, as the kernel does when that is too much.
    void drop();

    void unplug();

    [[nodiscard]] bool isReadable() const { return isHeard && (!unread.empty() || !isPluggedIn); }

    std::string name;
    bool isPluggedIn = true;
    bool isReady = true;
    bool isHeld = false; ///< the service knows it
    GrabbedBy grabbedBy = GrabbedBy::Nobody;
    bool isHeard = false;
    KeySet down;                     ///< physically
    std::vector<input_event> unread; ///< by the service
    std::vector<input_event> given;  ///< to the service with the last call
    SeenKeys seen;                   ///< of the hardware itself, by the session
    SeenKeys seenOfKeyboard;         ///< of its counterpart
    SeenKeys seenOfPointer;
    std::vector<input_event> keyboardEvents; ///< that came out
    std::vector<input_event> pointerEvents;
    std::vector<std::uint16_t> lights;
    /// A key that goes down just before the next grab, or the next end of one, takes effect.
    std::optional<std::uint16_t> keyInBetween;
    Complaint complaint;     ///< the first
    std::size_t wakeUps = 0; ///< times that it became readable
    FakeHardwareWatcher* watcher = nullptr;

private:
    friend class FakeKeyboard;
    [[nodiscard]] bool hasUnreadKey() const;
    void complain(const std::string& what);
    void write(Destination::Part part, std::span<const input_event> events);
};

/// The service's hold of a keyboard.
class FakeKeyboard final : public KeyboardDevice {
public:
    /// `hardware` outlives this.
    explicit FakeKeyboard(FakeHardware& hardware);

    ~FakeKeyboard() override;

    [[nodiscard]] std::string description() const override { return m_hardware.name; }

    [[nodiscard]] bool isReady() const override { return m_hardware.isReady; }

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
    [[nodiscard]] Reading reading(bool isGone);

    FakeHardware& m_hardware;
};

/// Returns an event.
[[nodiscard]] input_event eventOf(std::uint16_t type, std::uint16_t code, std::int32_t value);

} // namespace pallistrom
