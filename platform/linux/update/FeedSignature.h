// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/Ed25519Key.h"

#include <optional>
#include <string_view>

/// The signature at the end of a feed: an XML comment, after which nothing but white space comes,
///
///     <!-- sparkle-signatures:
///     edSignature: BASE64
///     length: N
///     -->
///
/// where N says how many bytes from the start of the feed are signed. Between these and the comment
/// there may be white space.
namespace pallistrom::FeedSignature {

/// Returns the part of `feed` that `key` has signed, which is all that may be read of it; nothing
/// if the feed is not signed, not in just this form, or by somebody else.
[[nodiscard]] std::optional<std::string_view> signedPart(std::string_view feed,
                                                         const Ed25519Key& key);

} // namespace pallistrom::FeedSignature
