// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/application/QtApplication.h"

#include "pallistrom/Names.h"
#include "platform/Log.h"
#include "platform/Workspace.h"
#include "platform/linux/QtText.h"
#include "platform/linux/application/DesktopMessages.h"
#include "platform/linux/application/Successor.h"
#include "platform/linux/statusitem/MenuActions.h"
#include "platform/linux/symbols/Drawing.h"

#include <QIcon>
#include <QStyleFactory>

#include <cstdlib>
#include <utility>

namespace pallistrom {

namespace {

/// As installed, or as it is part of the program.
QIcon applicationIcon() {
    const std::string drawing = "application/" + std::string(Names::applicationId);
    return QIcon::fromTheme(qtText(Names::applicationId), QIcon(Drawing::file(drawing)));
}

/// Where Qt looks when it shows a window of a Wayland session; it takes the token from there once
/// it is used. Qt for X11 leaves it there, for every program that we start.
void setActivationToken(const QByteArray& token) {
    if (!token.isEmpty() && QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) {
        qputenv("XDG_ACTIVATION_TOKEN", token);
    }
}

} // namespace

QtApplication::QtApplication(int& argc, char** argv)
    : m_startedBy(StartedBy::read({argv, static_cast<std::size_t>(argc)})),
      m_application(argc, argv),
      m_requests([this](const ApplicationRequest& request) { serve(request); }),
      m_sessionBus([this](ApplicationRequest request) { m_requests.add(std::move(request)); }),
      m_awaitsFirstRequest(m_startedBy.isBusService) {
    m_startingQt.reset();
    QCoreApplication::setApplicationName(qtText(Names::product));
    QGuiApplication::setDesktopFileName(qtText(Names::applicationId));
    QGuiApplication::setQuitOnLastWindowClosed(false);
    QGuiApplication::setWindowIcon(applicationIcon());
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QObject::connect(&m_firstTurn, &QTimer::timeout, &m_application, [this] { finishLaunching(); });
    m_firstTurn.setSingleShot(true);
}

void QtApplication::setDelegate(const std::weak_ptr<ApplicationDelegate>& delegate) {
    m_delegate = delegate;
}

// No Linux desktop has a dock and a menu bar that an application belongs to before it has windows.
void QtApplication::setActivationPolicy(NSApplicationActivationPolicy /*policy*/) {}

void QtApplication::activateIgnoringOtherApps(bool /*flag*/) {
    m_windowsToFront.request();
}

int QtApplication::run() {
    switch (m_sessionBus.claim(m_startedBy.activationToken)) {
    case SessionBus::Place::Others:
        return EXIT_SUCCESS;
    case SessionBus::Place::Hanging:
        NSLog("Pallistrom: the program runs already in this session, but does not answer");
        return EXIT_FAILURE;
    case SessionBus::Place::Ours:
        break;
    }
    m_colourScheme.emplace();
    // Asked early: the portal's answer takes a turn of the loop, and is there for the first window.
    static_cast<void>(accessibilityDisplayShouldReduceMotion());
    m_firstTurn.start();
    const int status = QCoreApplication::exec();
    if (!m_successor.empty()) {
        m_sessionBus.release();
        Successor::start(m_successor);
        NSLog("Pallistrom: cannot start " + m_successor.string());
        return EXIT_FAILURE;
    }
    return status;
}

void QtApplication::terminate() {
    QCoreApplication::quit();
}

void QtApplication::restart(const std::filesystem::path& program) {
    m_successor = program;
    terminate();
}

void QtApplication::finishLaunching() {
    // A window that is shown at launch belongs to whoever started us.
    setActivationToken(m_startedBy.activationToken);
    if (const auto target = delegate()) {
        target->applicationDidFinishLaunching();
    }
    DesktopMessages::endStartup(m_startedBy.activationToken);
    m_requests.open();
}

void QtApplication::serve(const ApplicationRequest& request) {
    setActivationToken(request.activationToken);
    const bool isFirst = std::exchange(m_awaitsFirstRequest, false);
    if (request.kind == ApplicationRequest::Kind::Action) {
        MenuActions::perform(request.action.toStdString(), request.parameter.toStdString());
    } else if (const auto target = delegate(); target != nullptr && !isFirst) {
        target->applicationShouldHandleReopen();
    }
    DesktopMessages::endStartup(request.activationToken);
}

} // namespace pallistrom
