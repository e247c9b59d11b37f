// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sessionkeys/Keymap.h"

#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <cstdarg>

namespace pallistrom::Keymap {

namespace {

// A keymap that cannot be read is told by there being none; nobody wants to know the line.
void logNothing(xkb_context* /*context*/,
                xkb_log_level /*level*/,
                const char* /*format*/,
                std::va_list /*arguments*/) {}

// libxkbcommon 1.5 trips over a list with nothing before its comma. Nobody writes keymaps that way,
// so there is nothing to be lost with them.
bool hasEmptyEntry(std::string_view text) {
    char before = '\0';
    bool isQuoted = false;
    for (const char c : text) {
        if (c == ',' && !isQuoted && (before == '{' || before == ',' || before == '[')) {
            return true;
        }
        isQuoted = isQuoted != (c == '"');
        if (c > ' ') {
            before = c;
        }
    }
    return false;
}

} // namespace

void Unref::operator()(xkb_keymap* keymap) const noexcept {
    xkb_keymap_unref(keymap);
}

void UnrefContext::operator()(xkb_context* context) const noexcept {
    xkb_context_unref(context);
}

Context makeContext() {
    Context context(xkb_context_new(static_cast<xkb_context_flags>(
        XKB_CONTEXT_NO_DEFAULT_INCLUDES | XKB_CONTEXT_NO_ENVIRONMENT_NAMES)));
    if (context) {
        xkb_context_set_log_fn(context.get(), logNothing);
    }
    return context;
}

Owned read(std::string_view text) {
    text = text.substr(0, std::min(text.find('\0'), text.size()));
    if (text.empty() || text.size() > mostBytes || hasEmptyEntry(text)) {
        return nullptr;
    }
    const Context context = makeContext();
    if (!context) {
        return nullptr;
    }
    return Owned(xkb_keymap_new_from_buffer(context.get(),
                                            text.data(),
                                            text.size(),
                                            XKB_KEYMAP_FORMAT_TEXT_V1,
                                            XKB_KEYMAP_COMPILE_NO_FLAGS));
}

} // namespace pallistrom::Keymap
