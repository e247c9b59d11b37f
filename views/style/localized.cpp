// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/style/localized.h"

#include "platform/Bundle.h"

namespace pallistrom {

QString localized(std::string_view key) {
    return QString::fromStdString(NSLocalizedString(key));
}

QString verbatim(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace pallistrom
