// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QProgressBar>

#include <cstdint>

namespace pallistrom {

/// A progress bar without words. As long as nobody knows how much there is to do, a piece of it
/// wanders, or rests where the user wants no animations.
class ThinProgressBar final : public QProgressBar {
public:
    explicit ThinProgressBar(QWidget* parent);

    /// Shows how much of `all` is `done`; 0 if nobody knows.
    void setDone(std::uint64_t done, std::uint64_t all);

    /// Whether it wakes the program up to move.
    [[nodiscard]] bool isMoving() const { return m_timer.isActive(); }

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void moveOrRest();

    [[nodiscard]] bool isBusy() const { return maximum() == 0; }

    [[nodiscard]] QRectF doneArea() const;

    QBasicTimer m_timer;
    QElapsedTimer m_moving;
};

} // namespace pallistrom
