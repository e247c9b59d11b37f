// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>

namespace pallistrom {

/// The one ring of a window: it lies around the control that has the keyboard, outside of its
/// edges, so that no control changes its size or its look for it. It is not shown where the mouse
/// has brought the focus, until a key is pressed there.
class FocusRing final : public QWidget {
    Q_OBJECT

public:
    /// Takes notice of a control that gets the focus. Makes the ring if its window has none.
    static void enter(QWidget& control, double cornerRadius, Qt::FocusReason reason);

    /// Takes notice of a control that loses it.
    static void leave(const QWidget& control);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    explicit FocusRing(QWidget* window);

    static FocusRing* find(const QWidget& control);
    void surround(QWidget& control, double cornerRadius);
    void watch(bool watches);
    void place();

    QPointer<QWidget> m_control;
    double m_cornerRadius = 0;
    bool m_wasBroughtByMouse = false;
};

} // namespace pallistrom
