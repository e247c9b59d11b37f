// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QCheckBox>

namespace pallistrom {

/// A track with a knob. A click asks for a change and changes nothing: what the switch shows is set
/// by whoever knows what has become of it. On assistive technology's side it is a check box.
class GrantSwitch final : public QCheckBox {
    Q_OBJECT

public:
    explicit GrantSwitch(QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    [[nodiscard]] bool hitButton(const QPoint& position) const override;

    void nextCheckState() override {}
};

} // namespace pallistrom
