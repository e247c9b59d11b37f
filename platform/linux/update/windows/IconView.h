// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QPainter>
#include <QWidget>

#include <utility>

namespace pallistrom {

/// An icon that only decorates: assistive technology is told nothing of it.
class IconView final : public QWidget {
public:
    IconView(QIcon icon, int size, QWidget* parent) : QWidget(parent), m_icon(std::move(icon)) {
        setFixedSize(size, size);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        m_icon.paint(&painter, rect());
    }

private:
    QIcon m_icon;
};

} // namespace pallistrom
