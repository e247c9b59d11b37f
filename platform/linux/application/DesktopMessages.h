// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QWidget>

/// What an X11 desktop is told beside what Qt tells it. On others, nothing is said.
namespace pallistrom::DesktopMessages {

/// Has the window manager give the keyboard to a window of ours, on the user's behalf.
void activate(WId window);

/// Says that the start to which `startupId` belongs is over, which ends a busy pointer.
void endStartup(const QByteArray& startupId);

} // namespace pallistrom::DesktopMessages
