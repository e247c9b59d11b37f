// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "views/style/Tone.h"

#include <QWidget>

namespace pallistrom {

/// A filled circle. It decorates what is said beside it.
class Dot final : public QWidget {
    Q_OBJECT

public:
    explicit Dot(int diameter);

    [[nodiscard]] Tone tone() const { return m_tone; }

    void setTone(Tone tone, double opacity = 1);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Tone m_tone = Tone::Primary;
    double m_opacity = 1;
};

} // namespace pallistrom
