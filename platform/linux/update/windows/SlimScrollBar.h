// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollBar>

namespace pallistrom {

/// An upright scroll bar that is no more than its thumb.
class SlimScrollBar final : public QScrollBar {
public:
    explicit SlimScrollBar(QWidget* parent) : QScrollBar(Qt::Vertical, parent) {}

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace pallistrom
