// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace pallistrom {

/// A word in a small capsule.
class Badge final : public QLabel {
    Q_OBJECT

public:
    explicit Badge(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace pallistrom
