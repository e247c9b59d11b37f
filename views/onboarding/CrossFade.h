// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QVariantAnimation>
#include <QWidget>

namespace pallistrom {

/// Lets a widget change its looks slowly: lies above it with a picture of what it was, which fades.
/// What is below can be used from the start.
class CrossFade final : public QWidget {
    Q_OBJECT

public:
    /// Takes the picture of `below`, which is to be changed after that. Removes itself in the end.
    static void begin(QWidget& below);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    explicit CrossFade(QWidget& below);

    QPixmap m_before;
    QVariantAnimation m_opacity;
};

} // namespace pallistrom
