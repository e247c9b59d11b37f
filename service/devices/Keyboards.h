// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/KeyControl.h"
#include "service/devices/Keyboard.h"
#include "service/seam/FilteredKeys.h"

#include <array>
#include <memory>
#include <optional>

namespace pallistrom {

/// What the keyboards need of the program around them.
class KeyboardsHost {
public:
    KeyboardsHost() = default;
    KeyboardsHost(const KeyboardsHost&) = delete;
    KeyboardsHost& operator=(const KeyboardsHost&) = delete;
    virtual ~KeyboardsHost() = default;

    /// Returns the time, which stands still during a turn.
    virtual Moment now() = 0;

    /// Has wake() called at `moment`, in place of any time asked for before.
    virtual void wakeAt(Moment moment) = 0;

    /// Adds the keyboards that are plugged in, and those to come. More than once is once.
    virtual void lookForKeyboards() = 0;

    [[nodiscard]] virtual bool canMakeKeyboards() const = 0;
};

/// All keyboards that are plugged in.
///
/// Decides which are grabbed, and leaves devices and time to others. Each call is a turn: what
/// comes of it has been sent when it returns, but for what waits behind a pause.
class Keyboards final : public KeyControl, public FilteredKeys, private OutputDevices {
public:
    /// `host` outlives the keyboards.
    explicit Keyboards(KeyboardsHost& host);
    Keyboards(const Keyboards&) = delete;
    Keyboards& operator=(const Keyboards&) = delete;
    ~Keyboards() override;

    /// Returns the number by which `device` is known from now on; nothing if there are too many.
    std::optional<KeyboardNumber> add(std::unique_ptr<KeyboardDevice> device);

    /// The keyboard was unplugged. Its number may be given to another.
    void remove(KeyboardNumber number);

    /// Its device has something to read. It may be gone afterwards.
    void serve(KeyboardNumber number);

    /// Its device has become ready, or may no longer be busy.
    void tryAgain(KeyboardNumber number);

    /// The time that was asked for has come.
    void wake();

    void setObserver(Observer* observer) override { m_observer = observer; }

    void prepare() override;
    void setAllowed(bool allowed) override;
    void setModifierTable(const ModifierTable& table) override;
    void setFrontApplication(FrontApplication kind) override;
    void aboutToSleep() override;
    void awake() override;
    [[nodiscard]] bool isGrabbing() const override;
    [[nodiscard]] bool canMakeKeyboards() const override;

    [[nodiscard]] bool mayBeFiltered() const override { return m_isAllowed; }

    void setFilter(KeyFilter* filter) override;

private:
    void write(Destination destination, std::span<const input_event> events) override;

    void beginTurn();
    void endTurn();
    void wantOrNot();
    void follow(KeyboardNumber number, Keyboard::News news);
    void panic();

    template<typename Call>
    void forEach(const Call& call);

    KeyboardsHost& m_host;
    Observer* m_observer = nullptr;
    KeyStream m_stream;
    std::array<std::unique_ptr<Keyboard>, mostKeyboards> m_keyboards;
    bool m_isAllowed = false;
    bool m_hasFilter = false;
    bool m_toldGrabbing = false;
};

} // namespace pallistrom
