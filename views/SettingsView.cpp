// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/SettingsView.h"

#include "engine/ShortcutLibrary.h"
#include "platform/Bundle.h"
#include "views/AccessibilityStatusPill.h"
#include "views/LoginToggle.h"
#include "views/ShortcutRow.h"
#include "views/StateObserver.h"
#include "views/controls/GroupBox.h"
#include "views/controls/PushButton.h"
#include "views/controls/SymbolView.h"
#include "views/controls/Text.h"
#include "views/openAccessibilitySettings.h"
#include "views/style/localized.h"
#include "views/style/stacks.h"

#include <QEvent>

#include <utility>

namespace pallistrom {

namespace {

constexpr int windowWidth = 480;
constexpr int columnPadding = 24;
constexpr int columnSpacing = 18;
constexpr int headerSpacing = 12;
constexpr int headerSymbolSize = 30;
constexpr int titleToTagline = 1;
constexpr int permissionPadding = 6;
constexpr int listSpacing = 12;
constexpr int groupPadding = 8;
constexpr int rowSpacing = 8;

QLayout* makeHeader() {
    auto* const titles = makeColumn(titleToTagline);
    titles->addStretch();
    titles->addWidget(new Text(localized("Pallistrom"), TextStyle::Title2Bold));
    titles->addWidget(new Text(
        localized("Terminal-style editing, everywhere"), TextStyle::Caption, Tone::Secondary));
    titles->addStretch();

    auto* const header = makeRow(headerSpacing);
    header->addWidget(new SymbolView("delete.left.fill", headerSymbolSize, Tone::Tint));
    header->addLayout(titles, 1);
    return header;
}

QWidget* makeShortcutsGroup(AppState& state) {
    auto* const rows = makeColumn(listSpacing);
    for (const ShortcutDef& shortcut : ShortcutLibrary::all) {
        rows->addWidget(new ShortcutRow(shortcut, state));
    }
    return new GroupBox(localized("Shortcuts"), rows, groupPadding);
}

QWidget* makeGeneralGroup(AppState& state) {
    auto* const content = makeColumn(0);
    content->addWidget(new LoginToggle(state, Toggle::Width::Filling));
    return new GroupBox(localized("General"), content, groupPadding);
}

} // namespace

SettingsView::SettingsView(AppState& state,
                           std::function<void()> onReplayOnboarding,
                           std::function<void()> onQuit)
    : m_state(state),
      m_onReplayOnboarding(std::move(onReplayOnboarding)),
      m_onQuit(std::move(onQuit)),
      m_appVersion(
          verbatim(objectForInfoDictionaryKey(CFBundleShortVersionString).value_or("1.0"))),
      m_open(new PushButton(localized("Open Settings…"))) {
    auto* const column = makeColumn(columnSpacing, this);
    column->setContentsMargins(columnPadding, columnPadding, columnPadding, columnPadding);
    column->addLayout(makeHeader());
    column->addWidget(makePermissionGroup());
    column->addWidget(makeShortcutsGroup(state));
    column->addWidget(makeGeneralGroup(state));
    column->addLayout(makeFooter());
    new StateObserver(
        state, [this] { readAgain(); }, this);
    readAgain();
}

QWidget* SettingsView::makePermissionGroup() {
    auto* const row = makeRow(rowSpacing);
    row->addWidget(new AccessibilityStatusPill(m_state));
    row->addStretch();
    row->addWidget(m_open);
    connect(m_open, &QPushButton::clicked, this, &openAccessibilitySettings);
    return new GroupBox(QString(), row, permissionPadding);
}

QLayout* SettingsView::makeFooter() {
    auto* const replay = new PushButton(localized("Replay Onboarding"));
    auto* const quit = new PushButton(localized("Quit Pallistrom"));
    auto* const version =
        new Text(QLatin1Char('v') + m_appVersion, TextStyle::Caption, Tone::Secondary);
    auto* const footer = makeRow(rowSpacing);
    footer->addWidget(replay);
    footer->addStretch();
    footer->addWidget(version);
    footer->addStretch();
    footer->addWidget(quit);
    connect(replay, &QPushButton::clicked, this, [this] { m_onReplayOnboarding(); });
    connect(quit, &QPushButton::clicked, this, [this] { m_onQuit(); });
    return footer;
}

void SettingsView::readAgain() {
    m_open->setVisible(!m_state.isTrusted());
    fitHeight();
}

bool SettingsView::event(QEvent* event) {
    const bool isHandled = QWidget::event(event);
    if (event->type() == QEvent::LayoutRequest) {
        fitHeight();
    }
    return isHandled;
}

void SettingsView::fitHeight() {
    setFixedSize(windowWidth, layout()->totalHeightForWidth(windowWidth));
}

} // namespace pallistrom
