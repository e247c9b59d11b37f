// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace pallistrom {

/// A box around things that belong together, with its title above it, if it has one.
class GroupBox final : public QWidget {
    Q_OBJECT

public:
    /// `padding` is the room left around the content.
    GroupBox(const QString& title, QLayout* content, int padding);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* m_content;
};

} // namespace pallistrom
