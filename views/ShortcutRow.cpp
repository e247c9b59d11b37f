// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/ShortcutRow.h"

#include "views/StateObserver.h"
#include "views/controls/Badge.h"
#include "views/controls/KeyCap.h"
#include "views/controls/Switch.h"
#include "views/controls/Text.h"
#include "views/style/localized.h"
#include "views/style/stacks.h"

namespace pallistrom {

namespace {

constexpr int keyCapToTexts = 12;
constexpr int titleToBadge = 6;
constexpr int titleToSubtitle = 1;

QWidget* makeLabel(const ShortcutDef& shortcut) {
    auto* const titleLine = makeRow(titleToBadge);
    titleLine->addWidget(new Text(verbatim(shortcut.title), TextStyle::Body));
    if (shortcut.recommended) {
        titleLine->addWidget(new Badge(localized("Recommended")));
    }
    titleLine->addStretch();

    auto* const texts = makeColumn(titleToSubtitle);
    texts->addLayout(titleLine);
    texts->addWidget(new Text(verbatim(shortcut.subtitle), TextStyle::Caption, Tone::Secondary));

    auto* const label = new QWidget;
    auto* const row = makeRow(keyCapToTexts, label);
    row->addWidget(new KeyCap(verbatim(shortcut.keyLabel)));
    row->addLayout(texts, 1);
    return label;
}

} // namespace

ShortcutRow::ShortcutRow(const ShortcutDef& shortcut, AppState& state)
    : Toggle(makeLabel(shortcut),
             verbatim(shortcut.title),
             state.binding(shortcut.id),
             Width::Filling),
      m_shortcut(shortcut) {
    control().setAccessibleDescription(verbatim(shortcut.subtitle));
    new StateObserver(
        state, [this] { readAgain(); }, this);
}

} // namespace pallistrom
