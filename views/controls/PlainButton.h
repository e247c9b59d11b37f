// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "views/controls/Focusable.h"

#include <QPushButton>

namespace pallistrom {

/// A button that is only its text.
class PlainButton final : public Focusable<QPushButton> {
    Q_OBJECT

public:
    explicit PlainButton(const QString& title);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace pallistrom
