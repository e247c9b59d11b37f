// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardsUnderTest.h"
#include "TypedKeys.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>

namespace pallistrom {

/// Makes up what happens to the keyboards of a machine: keys on several of them at once, mostly as
/// hands press them, events that are lost, keyboards that are unplugged, busy, late or also a
/// mouse, taps, switches, sessions and applications that come and go, sleep and panic.
class MadeUpDays final : private KeyControl::Observer {
public:
    /// Returns a number below its argument.
    using Choose = std::function<std::size_t(std::size_t)>;

    explicit MadeUpDays(Choose choose);
    ~MadeUpDays() override;

    MadeUpDays(const MadeUpDays&) = delete;
    MadeUpDays& operator=(const MadeUpDays&) = delete;

    /// Makes one more thing happen, and returns what is wrong then.
    Complaint next();

    /// All fingers are lifted, and everything that waits goes out. Returns what is wrong then.
    Complaint end();

    /// Returns how many events the keyboards have sent.
    [[nodiscard]] std::uint64_t events() const { return m_events; }

private:
    void panicked() override {}

    void keyboardsChanged() override {}

    void moveKey();
    void moveKey(FakeHardware& hardware, EvdevCode key, std::int32_t value);
    void serve(FakeHardware& hardware);
    void happenToHardware(FakeHardware& hardware);
    void happenToSession();
    void changeApplication();
    [[nodiscard]] ModifierTable table();
    [[nodiscard]] Complaint complaint();

    [[nodiscard]] bool isOneIn(std::size_t count) { return m_choose(count) == count - 1; }

    Choose m_choose;
    std::array<FakeHardware, 3> m_hardware{
        FakeHardware("first"), FakeHardware("second"), FakeHardware("third")};
    TypedKeys m_typed;
    KeyboardsUnderTest m_machine;
    std::uint64_t m_events = 0;
};

} // namespace pallistrom
