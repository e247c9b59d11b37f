// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "views/controls/Focusable.h"

#include <QPushButton>

#include <cstdint>

namespace pallistrom {

/// A button with a bezel.
class PushButton final : public Focusable<QPushButton> {
    Q_OBJECT

public:
    enum class Kind : std::uint8_t {
        Standard,
        Default, ///< what Return presses: filled with the accent colour
        Large,
    };

    explicit PushButton(const QString& title, Kind kind = Kind::Standard);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Kind m_kind;
};

} // namespace pallistrom
