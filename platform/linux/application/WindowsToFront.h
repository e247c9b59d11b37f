// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>

namespace pallistrom {

/// Brings the program's windows to the front, even if another program is being used: those that are
/// shown, and one that is shown or raised in the same turn of the loop, which then is the one that
/// gets the keyboard.
class WindowsToFront final : public QObject {
public:
    WindowsToFront();

    void request();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void bringToFront();

    QTimer m_endOfTurn;
    QPointer<QWidget> m_front; ///< the window that was shown or raised last
};

} // namespace pallistrom
