// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/ShortcutDef.h"
#include "shell/state/AppState.h"
#include "views/controls/Toggle.h"

namespace pallistrom {

/// A shortcut of the catalogue with its switch, which follows the preferences whoever changes them.
///
/// Another version of the preferences makes another row of it. As nothing but the switch can differ
/// then, the row stays and reads it again: it keeps the keyboard focus, and a switch that is just
/// telling of its change is not pulled away under itself.
class ShortcutRow final : public Toggle {
    Q_OBJECT

public:
    explicit ShortcutRow(const ShortcutDef& shortcut, AppState& state = AppState::shared());

    [[nodiscard]] const ShortcutDef& shortcut() const { return m_shortcut; }

private:
    ShortcutDef m_shortcut;
};

} // namespace pallistrom
