// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace pallistrom {

/// A key as it is printed on a keyboard: "⌃W".
class KeyCap final : public QWidget {
    Q_OBJECT

public:
    explicit KeyCap(const QString& label);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_label;
};

} // namespace pallistrom
