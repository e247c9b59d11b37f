// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/controls/GroupBox.h"

#include "views/controls/AccessibleRole.h"
#include "views/controls/Text.h"
#include "views/style/Tone.h"
#include "views/style/drawing.h"
#include "views/style/stacks.h"

#include <QPainter>

namespace pallistrom {

namespace {

constexpr int titleToBox = 6;
constexpr QMargins edge(4, 4, 4, 4);
constexpr double cornerRadius = 8;

} // namespace

GroupBox::GroupBox(const QString& title, QLayout* content, int padding) : m_content(new QWidget) {
    auto* const column = makeColumn(titleToBox, this);
    if (!title.isEmpty()) {
        setAccessibleRole(*this, QAccessible::Grouping);
        setAccessibleName(title);
        column->addWidget(new Text(title, TextStyle::Headline));
    }
    content->setContentsMargins(padding, padding, padding, padding);
    m_content->setLayout(content);
    auto* const box = makeColumn(0);
    box->setContentsMargins(edge);
    box->addWidget(m_content);
    column->addLayout(box);
}

void GroupBox::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QRectF box = m_content->geometry().marginsAdded(edge);
    fillRounded(painter, box, cornerRadius, colourOf(Tone::Panel, palette()));
    strokeRounded(painter, box, cornerRadius, colourOf(Tone::PanelBorder, palette()));
}

} // namespace pallistrom
