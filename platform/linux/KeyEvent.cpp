// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/KeyEvent.h"

#include "platform/Precondition.h"

namespace pallistrom {

std::int64_t CGEventGetIntegerValueField(const CGEvent* event, CGEventField field) {
    precondition(field == kCGKeyboardEventKeycode, "an event has no such field");
    return event->keyCode;
}

void CGEventSetIntegerValueField(CGEventRef event, CGEventField field, std::int64_t value) {
    precondition(field == kCGKeyboardEventKeycode, "an event has no such field");
    event->keyCode = value;
}

CGEventFlags CGEventGetFlags(const CGEvent* event) {
    return event->flags;
}

void CGEventSetFlags(CGEventRef event, CGEventFlags flags) {
    event->flags = flags;
}

} // namespace pallistrom
