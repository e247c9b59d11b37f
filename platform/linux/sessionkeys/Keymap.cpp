// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sessionkeys/Keymap.h"

#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <cstdarg>

namespace pallistrom::Keymap {

namespace {

struct UnrefContext {
    void operator()(xkb_context* context) const noexcept { xkb_context_unref(context); }
};

// A keymap that cannot be read is told by there being none; nobody wants to know the line.
void logNothing(xkb_context* /*context*/,
                xkb_log_level /*level*/,
                const char* /*format*/,
                std::va_list /*arguments*/) {}

} // namespace

void Unref::operator()(xkb_keymap* keymap) const noexcept {
    xkb_keymap_unref(keymap);
}

Owned read(std::string_view text) {
    text = text.substr(0, std::min(text.find('\0'), text.size()));
    if (text.empty() || text.size() > mostBytes) {
        return nullptr;
    }
    const std::unique_ptr<xkb_context, UnrefContext> context(
        xkb_context_new(static_cast<xkb_context_flags>(XKB_CONTEXT_NO_DEFAULT_INCLUDES |
                                                       XKB_CONTEXT_NO_ENVIRONMENT_NAMES)));
    if (!context) {
        return nullptr;
    }
    xkb_context_set_log_fn(context.get(), logNothing);
    return Owned(xkb_keymap_new_from_buffer(context.get(),
                                            text.data(),
                                            text.size(),
                                            XKB_KEYMAP_FORMAT_TEXT_V1,
                                            XKB_KEYMAP_COMPILE_NO_FLAGS));
}

} // namespace pallistrom::Keymap
