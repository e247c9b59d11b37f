// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>
#include <memory>

namespace pallistrom {

/// A window with a title bar and a close button around one view, as large as the view wants to be.
/// Neither resized nor minimised by the user.
class Window final : public QWidget {
    Q_OBJECT

public:
    explicit Window(std::unique_ptr<QWidget> contentView);

    /// Calls `willClose` with this window each time before it closes, whoever closes it.
    void setWillClose(std::function<void(Window* window)> willClose);

    /// Puts the window in the middle of its screen, where the desktop lets windows do that.
    void center();

    /// Shows the window in front of the others, with the keyboard's focus.
    void makeKeyAndOrderFront();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    std::function<void(Window* window)> m_willClose;
};

/// Destroys a window on a later turn of the loop: it may be the one that is speaking.
struct WindowReleaser {
    void operator()(Window* window) const;
};

using OwnedWindow = std::unique_ptr<Window, WindowReleaser>;

} // namespace pallistrom
