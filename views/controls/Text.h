// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "views/style/TextStyle.h"
#include "views/style/Tone.h"

#include <QLabel>

namespace pallistrom {

/// A text in one of our styles. It is as wide as its longest line where there is room, and wraps
/// where there is not; it is never cut off.
class Text final : public QLabel {
    Q_OBJECT

public:
    Text(const QString& text, TextStyle style, Tone tone = Tone::Primary);

    [[nodiscard]] Tone tone() const { return m_tone; }

    void setTone(Tone tone);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QSize sizeWithin(int width) const;

    Tone m_tone;
};

} // namespace pallistrom
