// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/onboarding/ShortcutsStep.h"

#include "engine/ShortcutLibrary.h"
#include "views/ShortcutRow.h"
#include "views/style/localized.h"
#include "views/style/stacks.h"

namespace pallistrom {

namespace {

constexpr int spacing = 14;
constexpr int titleToSubtitle = 4;
constexpr int rowToRow = 10;

} // namespace

ShortcutsStep::ShortcutsStep() : StepStack(spacing) {
    auto* const titles = makeColumn(titleToSubtitle);
    titles->addWidget(new Text(localized("Choose your shortcuts"), TextStyle::Title2Bold));
    titles->addWidget(new Text(localized("You can change these anytime from the menu bar."),
                               TextStyle::Subheadline,
                               Tone::Secondary));
    addWide(titles);

    auto* const rows = makeColumn(rowToRow);
    for (const ShortcutDef& shortcut : ShortcutLibrary::all) {
        rows->addWidget(new ShortcutRow(shortcut));
    }
    addWide(rows);
}

} // namespace pallistrom
