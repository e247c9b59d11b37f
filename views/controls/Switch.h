// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "views/controls/Focusable.h"

#include <QCheckBox>
#include <QVariantAnimation>

namespace pallistrom {

/// A track with a knob that slides. On assistive technology's side it is a check box.
class Switch final : public Focusable<QCheckBox> {
    Q_OBJECT

public:
    Switch();

    /// Shows a value that was changed elsewhere, at once.
    void showValue(bool isOn);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    [[nodiscard]] bool hitButton(const QPoint& position) const override;
    void nextCheckState() override;

private:
    /// Returns where the knob is, from 0 (off) to 1 (on).
    [[nodiscard]] double position() const;

    QVariantAnimation m_slide;
};

} // namespace pallistrom
