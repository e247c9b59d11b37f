// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Application.h"
#include "platform/linux/application/ColourScheme.h"
#include "platform/linux/application/RequestQueue.h"
#include "platform/linux/application/SessionBus.h"
#include "platform/linux/application/StartedBy.h"
#include "platform/linux/application/StartingQt.h"
#include "platform/linux/application/WindowsToFront.h"

#include <QApplication>
#include <QTimer>

#include <filesystem>
#include <memory>
#include <optional>

namespace pallistrom {

/// The application on a Linux desktop: one process per session, which a later start only brings to
/// the front. Closing windows never ends it.
class QtApplication final : public Application {
public:
    /// Ends the program if there is no display.
    QtApplication(int& argc, char** argv);

    void setDelegate(const std::weak_ptr<ApplicationDelegate>& delegate) override;
    void setActivationPolicy(NSApplicationActivationPolicy policy) override;
    void activateIgnoringOtherApps(bool flag) override;
    int run() override;
    void terminate() override;

    /// Ends as terminate() does, and goes on as `program`, a newer version of this one.
    void restart(const std::filesystem::path& program);

    /// The delegate; null if there is none (any more).
    [[nodiscard]] std::shared_ptr<ApplicationDelegate> delegate() const {
        return m_delegate.lock();
    }

    /// Whether somebody asked for the program just now, and did not only log in.
    [[nodiscard]] bool isAskedFor() const { return m_startedBy.isAskedFor(); }

private:
    void finishLaunching();
    void serve(const ApplicationRequest& request);

    StartedBy m_startedBy; ///< read before Qt tidies the environment
    std::optional<StartingQt> m_startingQt{std::in_place};
    QApplication m_application;
    std::optional<ColourScheme> m_colourScheme;
    WindowsToFront m_windowsToFront;
    RequestQueue m_requests;
    SessionBus m_sessionBus;
    QTimer m_firstTurn; ///< fires once, as soon as the loop runs
    std::weak_ptr<ApplicationDelegate> m_delegate;
    std::filesystem::path m_successor; ///< empty if there is none
    bool m_awaitsFirstRequest;         ///< the one for which the bus started the process
};

/// Returns the one application object. It is a programming error if none was made.
QtApplication& qtApplication();

} // namespace pallistrom
