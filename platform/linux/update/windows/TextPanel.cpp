// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/windows/TextPanel.h"

#include "platform/linux/update/windows/Paint.h"
#include "platform/linux/update/windows/SlimScrollBar.h"

#include <QEvent>
#include <QFontDatabase>
#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include <algorithm>

namespace pallistrom {

namespace {

constexpr double cornerRadius = 8;
constexpr int padding = 8;
constexpr int mostLines = 12;

int linesOf(const QString& paragraph, const QFont& font, int width) {
    QTextLayout layout(paragraph, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    int lines = 0;
    for (QTextLine line = layout.createLine(); line.isValid() && lines < mostLines;
         line = layout.createLine()) {
        line.setLineWidth(width);
        ++lines;
    }
    layout.endLayout();
    return std::max(lines, 1);
}

} // namespace

TextPanel::TextPanel(const QString& text, Kind kind, QWidget* parent) : QPlainTextEdit(parent) {
    if (kind == Kind::Command) {
        QFont fixed = font();
        fixed.setFamilies(QFontDatabase::systemFont(QFontDatabase::FixedFont).families());
        setFont(fixed);
    }
    setPlainText(text);
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setUndoRedoEnabled(false);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setVerticalScrollBar(new SlimScrollBar(this));
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setViewportMargins(padding, padding, padding, padding);
    document()->setDocumentMargin(0);
    viewport()->setAutoFillBackground(false);
}

void TextPanel::fitHeight(int width) {
    // Counted as if there were a scroll bar: there is never one line too few.
    const int room = width - 2 * padding - verticalScrollBar()->sizeHint().width();
    int lines = 0;
    for (QTextBlock block = document()->firstBlock(); block.isValid() && lines < mostLines;
         block = block.next()) {
        lines += linesOf(block.text(), font(), room);
    }
    setFixedSize(width, std::min(lines, mostLines) * fontMetrics().lineSpacing() + 2 * padding + 1);
}

bool TextPanel::event(QEvent* event) {
    if (event->type() != QEvent::Paint) {
        return QPlainTextEdit::event(event);
    }
    QPainter painter(this);
    const auto colour = [this](Paint::Use use) {
        return Paint::colour(use, palette());
    };
    Paint::fill(painter, rect(), cornerRadius, colour(Paint::Use::PanelFill));
    Paint::outline(painter,
                   rect(),
                   cornerRadius,
                   hasFocus() ? 2 : 0,
                   colour(hasFocus() ? Paint::Use::FocusRing : Paint::Use::PanelEdge));
    return true;
}

void TextPanel::focusInEvent(QFocusEvent* event) {
    QPlainTextEdit::focusInEvent(event);
    update();
}

void TextPanel::focusOutEvent(QFocusEvent* event) {
    QPlainTextEdit::focusOutEvent(event);
    update();
}

} // namespace pallistrom
