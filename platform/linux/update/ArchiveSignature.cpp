// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/ArchiveSignature.h"

#include <QFile>

namespace pallistrom::ArchiveSignature {

bool isGood(const std::filesystem::path& file,
            std::uint64_t length,
            const Ed25519Signature& signature,
            const Ed25519Key& key) {
    QFile archive(file);
    if (length == 0 || !archive.open(QIODevice::ReadOnly | QIODevice::Unbuffered) ||
        static_cast<std::uint64_t>(archive.size()) != length) {
        return false;
    }
    // The signature is over the whole, so all of it has to be in sight at once. The mapping ends
    // with the file object.
    const auto* const bytes = archive.map(0, archive.size());
    return bytes != nullptr && key.hasSigned({bytes, length}, signature);
}

} // namespace pallistrom::ArchiveSignature
