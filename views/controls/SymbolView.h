// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Image.h"
#include "views/style/Tone.h"

#include <QImage>
#include <QWidget>

#include <optional>
#include <string_view>

namespace pallistrom {

/// One of the system's symbols, in a colour of ours. It decorates what is said beside it. Where the
/// system has no such symbol, it takes no room.
class SymbolView final : public QWidget {
    Q_OBJECT

public:
    /// `size` is how high it is.
    SymbolView(std::string_view symbolName, int size, Tone tone);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QImage drawn(int height) const;

    std::optional<NSImage> m_symbol;
    int m_size;
    Tone m_tone;
    QSize m_hint;
    QImage m_coverage; ///< as it was last drawn, for the height that it has
};

} // namespace pallistrom
