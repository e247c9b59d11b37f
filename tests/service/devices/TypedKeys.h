// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "FakeHardware.h"

#include <array>
#include <deque>
#include <map>

namespace pallistrom {

/// Watches that keys about which nothing is ever decided come out just as they came in: each once,
/// in their order, none lost. Such keys are all but those of shortcuts, their replacements and
/// modifiers.
class TypedKeys final : public FakeHardwareWatcher {
public:
    void given(const FakeHardware& hardware, std::span<const input_event> events) override;
    void gone(const FakeHardware& hardware) override;
    void written(const FakeHardware& hardware, const input_event& event) override;

    /// All keys go up now, by the service's own doing.
    void letGo();

    /// To be called when nothing waits any more.
    [[nodiscard]] Complaint end() const;

    [[nodiscard]] Complaint complaint() const { return m_complaint; }

private:
    struct Keyboard {
        KeySet down;    ///< since it was grabbed
        KeySet counted; ///< since all keys went up
    };

    struct Expected {
        std::uint16_t key = 0;
        std::int32_t value = 0;

        friend bool operator==(const Expected&, const Expected&) = default;
    };

    void move(const FakeHardware& hardware, std::uint16_t key, std::int32_t value);
    [[nodiscard]] bool isHeld(std::uint16_t key) const;

    std::map<const FakeHardware*, Keyboard> m_keyboards;
    /// Where a key that is down is shown; null if that was unplugged since.
    std::map<std::uint16_t, const FakeHardware*> m_shownOn;
    std::deque<Expected> m_expected;
    Complaint m_complaint;
};

} // namespace pallistrom
