// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/access/AccessPane.h"

#include "pallistrom/Names.h"
#include "platform/linux/QtText.h"
#include "platform/linux/TapWays.h"
#include "platform/linux/access/AccessText.h"
#include "platform/linux/access/GrantSwitch.h"
#include "platform/linux/access/StatusDot.h"
#include "platform/linux/applications/window/ApplicationsWindow.h"
#include "platform/linux/front/FrontAdvice.h"
#include "platform/linux/front/GnomeExtension.h"
#include "platform/linux/keyboardservice/KeyboardService.h"
#include "platform/linux/keyboardservice/SessionService.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <chrono>
#include <utility>

namespace pallistrom {

namespace {

constexpr int margin = 24;
constexpr int smallSpace = 10;
constexpr int largeSpace = 20;
constexpr int iconSize = 48;
constexpr int textWidthInCharacters = 58; // so that it grows with the desktop's letters

QLabel* makeLabel(QWidget* parent, const QString& name) {
    auto* const label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

void makeBold(QLabel& label) {
    QFont bold = label.font();
    bold.setBold(true);
    label.setFont(bold);
}

} // namespace

AccessPane::AccessPane(KeyboardService& service, Questions questions)
    : m_service(service),
      m_questions(std::move(questions)),
      m_switch(new GrantSwitch(this)),
      m_dot(new StatusDot(this)),
      m_headline(makeLabel(this, QStringLiteral("headline"))),
      m_explanation(makeLabel(this, QStringLiteral("explanation"))),
      m_advice(makeLabel(this, QStringLiteral("advice"))),
      m_switchOnExtension(new QPushButton(QStringLiteral("Switch On the Extension"), this)) {
    using namespace std::chrono_literals;
    setWindowTitle(QStringLiteral("Accessibility Access"));
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(smallSpace);
    addApplication(*column);
    addStatus(*column);
    addButtons(*column);
    // As high as the text needs, which changes.
    column->setSizeConstraint(QLayout::SetFixedSize);

    m_timer.setInterval(1500ms);
    m_timer.setTimerType(Qt::CoarseTimer);
    connect(&m_timer, &QTimer::timeout, this, [this] { look(); });
    connect(&m_service, &KeyboardService::changed, this, [this] { look(); });
    connect(m_switch, &QAbstractButton::clicked, this, [this] { clicked(); });
    // Assistive technology toggles without a click.
    connect(m_switch, &QAbstractButton::toggled, this, [this] {
        clicked();
        look();
    });
    look();
}

AccessPane::~AccessPane() = default;

void AccessPane::addApplication(QVBoxLayout& column) {
    auto* const icon = new QLabel(this);
    icon->setPixmap(
        QApplication::windowIcon().pixmap(QSize(iconSize, iconSize), devicePixelRatioF()));
    auto* const name = makeLabel(this, QStringLiteral("name"));
    name->setText(qtText(Names::product));
    makeBold(*name);
    m_switch->setAccessibleName(name->text());

    auto* const row = new QHBoxLayout;
    row->setSpacing(smallSpace);
    row->addWidget(icon);
    row->addWidget(name, 1);
    row->addWidget(m_switch);
    column.addLayout(row);
    auto* const line = new QFrame(this);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    column.addWidget(line);
}

void AccessPane::addStatus(QVBoxLayout& column) {
    makeBold(*m_headline);
    m_explanation->setFixedWidth(textWidthInCharacters * fontMetrics().averageCharWidth());
    // A command that it names can be copied.
    m_explanation->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* const row = new QHBoxLayout;
    row->setSpacing(smallSpace);
    row->addWidget(m_dot);
    row->addWidget(m_headline, 1);
    column.addLayout(row);
    column.addWidget(m_explanation);
    column.addWidget(m_advice);
    column.addWidget(m_switchOnExtension, 0, Qt::AlignLeft);
    connect(m_switchOnExtension, &QPushButton::clicked, this, [this] { m_extension->switchOn(); });
    column.addSpacing(largeSpace - smallSpace);
}

void AccessPane::addButtons(QVBoxLayout& column) {
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    auto* const applications =
        buttons->addButton(QStringLiteral("Applications…"), QDialogButtonBox::ActionRole);
    connect(applications, &QPushButton::clicked, this, [] { ApplicationsWindow::present(); });
    column.addWidget(buttons);
}

void AccessPane::present() {
    static QPointer<AccessPane> pane;
    if (!pane) {
        pane = new AccessPane(keyboardService(),
                              {.findObstacle = obstacleOfSession,
                               .knowsWhoIsInFront = pallistrom::knowsWhoIsInFront});
        pane->setAttribute(Qt::WA_DeleteOnClose);
    }
    if (pane->isVisible()) {
        pane->opened();
    }
    pane->show();
    pane->raise();
    pane->activateWindow();
}

void AccessPane::showEvent(QShowEvent* event) {
    opened();
    m_timer.start();
    QDialog::showEvent(event);
}

void AccessPane::hideEvent(QHideEvent* event) {
    m_timer.stop();
    QDialog::hideEvent(event);
}

void AccessPane::opened() {
    m_service.lookAgain();
    if (m_service.obstacle() == Obstacle::Panicked) {
        m_service.endPanic();
    }
    look();
}

void AccessPane::clicked() {
    const auto obstacle = m_service.obstacle();
    if (!obstacle) {
        m_service.withdrawGrant();
    } else if (obstacle == Obstacle::Panicked) {
        m_service.endPanic();
    } else {
        m_service.requestGrant();
    }
}

void AccessPane::look() {
    const AccessState state{.session = m_questions.findObstacle(),
                            .service = m_service.obstacle(),
                            .request = m_service.request()};
    const AccessText text = AccessText::about(state);
    m_dot->setColour(state.session ? StatusDot::Colour::Orange : StatusDot::Colour::Green);
    m_headline->setText(qtText(text.headline));
    m_explanation->setText(qtText(text.explanation));
    const QSignalBlocker blocker(m_switch); // It shows how things are, and wants nothing.
    m_switch->setChecked(!state.service || state.request.isOpen);
    m_switch->setEnabled(!state.service || state.service == Obstacle::NotGranted ||
                         state.service == Obstacle::Panicked);
    m_switch->setAccessibleDescription(m_headline->text() + QStringLiteral(". ") +
                                       m_explanation->text());
    advise();
}

// Of no interest where keys are not filtered.
void AccessPane::advise() {
    const bool isAmiss = !m_service.obstacle() && !m_questions.knowsWhoIsInFront();
    if (isAmiss && !m_extension) {
        m_extension =
            std::make_unique<GnomeExtension>(QDBusConnection::sessionBus(), [this] { advise(); });
    }
    const FrontAdvice advice = isAmiss ? FrontAdvice::about(m_extension->state()) : FrontAdvice{};
    m_advice->setText(qtText(advice.text));
    m_advice->setVisible(!advice.text.empty());
    m_switchOnExtension->setVisible(advice.offersTheExtension);
}

} // namespace pallistrom
