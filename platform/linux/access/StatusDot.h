// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <cstdint>

namespace pallistrom {

/// A small disc, green or orange. What it says stands in words beside it.
class StatusDot final : public QWidget {
public:
    enum class Colour : std::uint8_t { Green, Orange };

    explicit StatusDot(QWidget* parent);

    void setColour(Colour colour);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Colour m_colour = Colour::Orange;
};

} // namespace pallistrom
