// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/portal/PortalSetting.h"

#include <QVariant>

namespace pallistrom {

/// Follows the desktop's wish for dark windows, which the settings portal tells. A desktop that
/// gave dark colours already is left alone, and so is one that has no portal. Waits for nobody.
class ColourScheme {
public:
    /// Starts asking. The application object is there, and outlives this.
    ColourScheme();

private:
    void apply(const QVariant& scheme);

    PortalSetting m_setting;
    bool m_isDark = false; ///< whether the palette is one of ours
};

} // namespace pallistrom
