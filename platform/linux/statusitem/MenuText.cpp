// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/statusitem/MenuText.h"

#include "platform/linux/QtText.h"

namespace pallistrom::MenuText {

QString label(std::string_view title) {
    QString text = qtText(title);
    text.replace(QLatin1Char('&'), QLatin1String("&&"));
    // A panel takes it for the mark of an access key and swallows it, and no spelling of it gets
    // past Qt. This letter looks like it.
    constexpr QChar lowMacron(0x02CD);
    text.replace(QLatin1Char('_'), lowMacron);
    return text;
}

QKeySequence keys(std::string_view keyEquivalent) {
    const QString character = qtText(keyEquivalent);
    if (character.size() != 1) {
        return {};
    }
    // Qt counts keys by their capital letters.
    return {QKeyCombination(Qt::CTRL, static_cast<Qt::Key>(character.front().toUpper().unicode()))};
}

} // namespace pallistrom::MenuText
