// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Makes plain text of what a feed says, so that nothing in it is ever run, fetched or taken for
/// markup.
namespace pallistrom::PlainNotes {

/// Returns what is to be read in `notes`, which are plain text or simple HTML: paragraphs, breaks
/// and list items become lines, other tags nothing, the usual character references what they mean.
/// Characters that would show nothing, or show what follows backwards, are left out, as are blank
/// lines but for one between others.
[[nodiscard]] std::string of(std::string_view notes);

/// The same of notes that are said to be plain text: a tag in them stands for itself.
[[nodiscard]] std::string ofPlain(std::string_view notes);

/// Returns `text` as one line without any such character.
[[nodiscard]] std::string line(std::string_view text);

} // namespace pallistrom::PlainNotes
