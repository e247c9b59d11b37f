// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace pallistrom {

/// A thin line from edge to edge.
class Divider final : public QWidget {
    Q_OBJECT

public:
    Divider();

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace pallistrom
