// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/FrontApplication.h"
#include "platform/linux/front/FrontReport.h"

#include <functional>
#include <optional>

namespace pallistrom {

/// What becomes of the reports about the window in front where they have gaps.
///
///     report      application()
///     a window    what the window is; keeps its keys, if the keyboard is in a terminal in it
///     nobody      as at the last window; takes editing keys if there was none yet
///     unknown     keeps its keys, if the last window did; otherwise nothing
///
/// Nobody is in front for a moment whenever another window comes there, and for as long as a
/// launcher, a menu of the desktop or its overview has the keyboard. Those are no windows. What is
/// typed into them is best treated as it was a moment ago: a change back and forth would be wrong
/// in the terminal that comes after.
///
/// A source that fails with a terminal in front leaves one there, as far as anybody knows: a
/// control-W too few deletes nothing, one too many may be the wrong thing in a shell.
class FrontRule {
public:
    using Classify = std::function<FrontApplication(const WindowClass& window)>;

    /// `classify` tells what a window is.
    explicit FrontRule(Classify classify);

    void take(const FrontReport& report);

    /// Found anew each time: the user may have said something else of the application since.
    [[nodiscard]] std::optional<FrontApplication> application() const;

private:
    Classify m_classify;
    FrontReport::Kind m_kind = FrontReport::Kind::Unknown; ///< of the last report
    FrontReport m_last; ///< the last one of a window; unknown if there was none
};

} // namespace pallistrom
