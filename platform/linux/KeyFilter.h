// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventTap.h"
#include "platform/linux/KeyEvent.h"

#include <optional>
#include <span>
#include <vector>

namespace pallistrom {

/// What a tap's callback made of one key event.
struct KeyVerdict {
    /// What it posted, in order; goes out before the event itself. Valid until the filter is asked
    /// again.
    std::span<const CGEvent> posted;
    /// The event, changed or not; nothing when it was dropped.
    std::optional<CGEvent> event;
    /// Whether the keys are to go on exactly as they came.
    bool isUntouched = false;
};

/// A tap's callback, with what it posts collected rather than sent: the way to the keys that asks
/// has all of an answer in hand before the first key goes out.
class KeyFilter {
public:
    KeyFilter(CGEventTapCallBack callback, void* userInfo, std::span<const TappedKey> tappedKeys);

    /// All that the callback could ever touch.
    [[nodiscard]] std::span<const TappedKey> tappedKeys() const { return m_tappedKeys; }

    /// Puts a key event to the callback. Not from within the callback.
    KeyVerdict ask(const CGEvent& event);

    /// Returns whether a press of `key`, with nothing held but what it requires, would be touched
    /// now. Asks the callback and throws away what it posts.
    bool wouldTouch(const TappedKey& key);

private:
    CGEventTapCallBack m_callback;
    void* m_userInfo;
    std::vector<TappedKey> m_tappedKeys;
    std::vector<CGEvent> m_posted;
};

} // namespace pallistrom
