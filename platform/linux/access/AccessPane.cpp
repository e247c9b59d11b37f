// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/access/AccessPane.h"

#include "platform/linux/QtText.h"
#include "platform/linux/TapWays.h"
#include "platform/linux/access/AccessText.h"
#include "platform/linux/access/StatusDot.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QVBoxLayout>

#include <chrono>
#include <utility>

namespace pallistrom {

namespace {

constexpr int margin = 24;
constexpr int smallSpace = 10;
constexpr int largeSpace = 20;
constexpr int textWidthInCharacters = 58; // so that it grows with the desktop's letters

QLabel* makeLabel(QWidget* parent) {
    auto* const label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

} // namespace

AccessPane::AccessPane(std::function<std::optional<Obstacle>()> findObstacle)
    : m_findObstacle(std::move(findObstacle)),
      m_dot(new StatusDot(this)),
      m_headline(makeLabel(this)),
      m_explanation(makeLabel(this)) {
    using namespace std::chrono_literals;
    setWindowTitle(QStringLiteral("Accessibility Access"));
    QFont bold = m_headline->font();
    bold.setBold(true);
    m_headline->setFont(bold);
    m_explanation->setFixedWidth(textWidthInCharacters * fontMetrics().averageCharWidth());

    auto* const line = new QHBoxLayout;
    line->setSpacing(smallSpace);
    line->addWidget(m_dot);
    line->addWidget(m_headline, 1);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);

    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(smallSpace);
    column->addLayout(line);
    column->addWidget(m_explanation);
    column->addSpacing(largeSpace - smallSpace);
    column->addWidget(buttons);
    // As high as the text needs, which changes.
    column->setSizeConstraint(QLayout::SetFixedSize);

    m_timer.setInterval(1500ms);
    m_timer.setTimerType(Qt::CoarseTimer);
    connect(&m_timer, &QTimer::timeout, this, [this] { look(); });
    look();
}

void AccessPane::present() {
    static QPointer<AccessPane> pane;
    if (!pane) {
        pane = new AccessPane(obstacleOfSession);
        pane->setAttribute(Qt::WA_DeleteOnClose);
    }
    pane->show();
    pane->raise();
    pane->activateWindow();
}

void AccessPane::showEvent(QShowEvent* event) {
    look();
    m_timer.start();
    QDialog::showEvent(event);
}

void AccessPane::hideEvent(QHideEvent* event) {
    m_timer.stop();
    QDialog::hideEvent(event);
}

void AccessPane::look() {
    const auto obstacle = m_findObstacle();
    const AccessText text = AccessText::about(obstacle);
    m_dot->setColour(obstacle ? StatusDot::Colour::Orange : StatusDot::Colour::Green);
    m_headline->setText(qtText(text.headline));
    m_explanation->setText(qtText(text.explanation));
}

} // namespace pallistrom
