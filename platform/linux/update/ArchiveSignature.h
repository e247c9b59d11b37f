// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/Ed25519Key.h"

#include <cstdint>
#include <filesystem>

/// The signature of an archive: over its bytes as they are.
namespace pallistrom::ArchiveSignature {

/// Whether `file` has just `length` bytes and `key` has signed them. Takes about a second for 300
/// megabytes, so it is not for the main thread. Nobody else may write into the file meanwhile.
[[nodiscard]] bool isGood(const std::filesystem::path& file,
                          std::uint64_t length,
                          const Ed25519Signature& signature,
                          const Ed25519Key& key);

} // namespace pallistrom::ArchiveSignature
