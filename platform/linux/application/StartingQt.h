// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace pallistrom {

/// Stands guard while Qt looks for a display. Qt knows only one answer to finding none, which is to
/// dump core; this makes it one line in the log and the exit status of a failure.
class StartingQt {
public:
    StartingQt();
    StartingQt(const StartingQt&) = delete;
    StartingQt& operator=(const StartingQt&) = delete;
    ~StartingQt();

private:
    QtMessageHandler m_previousHandler;
};

} // namespace pallistrom
