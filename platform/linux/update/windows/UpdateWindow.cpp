// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/windows/UpdateWindow.h"

#include "platform/linux/QtText.h"
#include "platform/linux/update/windows/ActionButton.h"
#include "platform/linux/update/windows/IconView.h"
#include "platform/linux/update/windows/Paint.h"
#include "platform/linux/update/windows/PlainWords.h"
#include "platform/linux/update/windows/TextPanel.h"
#include "platform/linux/update/windows/ThinProgressBar.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

#include <utility>

namespace pallistrom {

namespace {

using Choice = UpdatePage::Choice;

constexpr int margin = 24;
constexpr int iconSize = 56;
constexpr int iconToTexts = 16;
constexpr int headlineToText = 4;
constexpr int textToPanel = 12;
constexpr int textsToButtons = 20;
constexpr int buttonSpacing = 8 - 2 * ActionButton::ringRoom;
constexpr int textWidthInCharacters = 56; // so that it grows with the desktop's letters
constexpr double headlineScale = 1.25;

QLabel* makeLabel(const std::string& text, QWidget* parent, int width) {
    auto* const label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setFixedWidth(width);
    label->setText(qtText(PlainWords::breakable(text)));
    label->setAccessibleName(qtText(text));
    return label;
}

QFont headlineFont(QFont font) {
    font.setBold(true);
    if (font.pixelSize() > 0) {
        font.setPixelSize(qRound(font.pixelSize() * headlineScale));
    } else {
        font.setPointSizeF(font.pointSizeF() * headlineScale);
    }
    return font;
}

bool endsPage(Choice choice) {
    return choice != Choice::CopyCommand;
}

} // namespace

UpdateWindow::UpdateWindow(std::function<void(Choice)> choose) : m_choose(std::move(choose)) {
    setWindowTitle(QStringLiteral("Software Update"));
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                   Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    setAttribute(Qt::WA_QuitOnClose, false);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void UpdateWindow::showPage(const UpdatePage& page, Arrival arrival) {
    m_page = page;
    build();
    if (isVisible()) {
        focusFirst(Arrival::Asked);
        return;
    }
    setAttribute(Qt::WA_ShowWithoutActivating, arrival == Arrival::Unasked);
    adjustSize();
    QRect frame = rect();
    frame.moveCenter(screen()->availableGeometry().center());
    move(frame.topLeft());
    focusFirst(arrival);
    if (arrival == Arrival::Asked) {
        bringToFront();
    } else {
        show();
    }
}

void UpdateWindow::bringToFront() {
    if (focusWidget() == m_headline) {
        focusFirst(Arrival::Asked);
    }
    show();
    raise();
    activateWindow();
}

// Everything anew: pages have little in common, and none lives long.
void UpdateWindow::build() {
    delete std::exchange(m_content, nullptr);
    m_progress = nullptr;
    m_progressWords = nullptr;
    m_content = new QWidget(this);

    auto* const icon = new IconView(windowIcon(), iconSize, m_content);
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(0);
    addTexts(*texts, textWidthInCharacters * fontMetrics().averageCharWidth());
    if (m_page.showsProgress) {
        addProgress(*texts);
    }
    texts->addStretch();
    auto* const row = new QHBoxLayout;
    row->setSpacing(iconToTexts);
    row->setContentsMargins(ActionButton::ringRoom, 0, ActionButton::ringRoom, 0);
    row->addWidget(icon, 0, Qt::AlignTop);
    row->addLayout(texts, 1);

    auto* const column = new QVBoxLayout(m_content);
    constexpr int side = margin - ActionButton::ringRoom;
    column->setContentsMargins(side, margin, side, side);
    column->setSpacing(0);
    column->addLayout(row);
    if (m_page.apart || !m_page.buttons.empty()) {
        column->addSpacing(textsToButtons - ActionButton::ringRoom);
        column->addLayout(makeButtons());
    }
    layout()->addWidget(m_content);
    applyQuietColour();
    m_content->show();
}

void UpdateWindow::addTexts(QVBoxLayout& column, int width) {
    m_headline = makeLabel(m_page.headline, m_content, width);
    m_headline->setObjectName(QStringLiteral("headline"));
    m_headline->setFont(headlineFont(font()));
    column.addWidget(m_headline);
    m_text = makeLabel(m_page.text, m_content, width);
    m_text->setVisible(!m_page.text.empty());
    if (!m_page.text.empty()) {
        column.addSpacing(headlineToText);
        column.addWidget(m_text);
    }
    const auto addPanel = [&](const std::string& text, TextPanel::Kind kind, const QString& name) {
        if (!text.empty()) {
            auto* const panel = new TextPanel(qtText(text), kind, m_content);
            panel->setAccessibleName(name);
            panel->fitHeight(width);
            column.addSpacing(textToPanel);
            column.addWidget(panel);
        }
    };
    addPanel(m_page.notes, TextPanel::Kind::Notes, QStringLiteral("What is new"));
    addPanel(m_page.command, TextPanel::Kind::Command, QStringLiteral("Command"));
}

void UpdateWindow::addProgress(QVBoxLayout& column) {
    m_progress = new ThinProgressBar(m_content);
    m_progress->setAccessibleName(qtText(m_page.headline));
    column.addSpacing(textToPanel);
    column.addWidget(m_progress);
    if (!m_page.progressWords.empty()) {
        m_progressWords = makeLabel(m_page.progressWords, m_content, m_headline->width());
        column.addSpacing(textToPanel / 2);
        column.addWidget(m_progressWords);
    }
}

QLayout* UpdateWindow::makeButtons() {
    auto* const row = new QHBoxLayout;
    row->setSpacing(buttonSpacing);
    const auto add = [&](const UpdatePage::Button& wanted) {
        auto* const button = new ActionButton(qtText(wanted.title), m_content);
        connect(button, &QPushButton::clicked, this, [this, choice = wanted.choice, button] {
            if (choice == Choice::CopyCommand) {
                button->setText(QStringLiteral("Copied"));
            }
            choose(choice);
        });
        button->setAutoDefault(m_page.onReturn.has_value());
        button->setDefault(m_page.onReturn == wanted.choice);
        row->addWidget(button);
    };
    if (m_page.apart) {
        add(*m_page.apart);
    }
    row->addStretch();
    for (const UpdatePage::Button& button : m_page.buttons) {
        add(button);
    }
    return row;
}

void UpdateWindow::setProgress(std::uint64_t done, std::uint64_t all, const std::string& words) {
    if (m_progress != nullptr && m_progressWords != nullptr) {
        m_progress->setDone(done, all);
        m_progressWords->setText(qtText(words));
        m_progressWords->setAccessibleName(qtText(words));
    }
}

void UpdateWindow::reject() {
    hide();
    if (m_page.onEscape) {
        choose(*m_page.onEscape);
    }
}

void UpdateWindow::choose(Choice choice) {
    if (choice == Choice::CopyCommand) {
        QGuiApplication::clipboard()->setText(qtText(m_page.command));
    }
    if (endsPage(choice)) {
        m_content->setEnabled(false);
        m_page.onEscape.reset();
    }
    m_choose(choice);
}

void UpdateWindow::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!(isReturn && focusWidget() == m_headline)) {
        QDialog::keyPressEvent(event);
    }
}

// Where nobody has asked, the keyboard is with the headline, to which no key means anything.
void UpdateWindow::focusFirst(Arrival arrival) {
    const auto buttons = m_content->findChildren<QPushButton*>();
    if (arrival == Arrival::Unasked || buttons.empty()) {
        m_headline->setFocus();
    } else {
        buttons.back()->setFocus();
    }
}

void UpdateWindow::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (m_content == nullptr) {
        return;
    }
    if (event->type() == QEvent::PaletteChange) {
        applyQuietColour();
    } else if (event->type() == QEvent::FontChange) {
        build();
        focusFirst(Arrival::Asked);
    }
}

void UpdateWindow::applyQuietColour() {
    const QColor quiet = Paint::colour(Paint::Use::QuietWords, palette());
    for (QLabel* const label : {m_text, m_progressWords}) {
        if (label != nullptr) {
            QPalette colours = label->palette();
            colours.setColor(QPalette::WindowText, quiet);
            label->setPalette(colours);
        }
    }
}

} // namespace pallistrom
