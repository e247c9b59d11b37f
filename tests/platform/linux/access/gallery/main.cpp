// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "keyboardservice/FakeKeyboardService.h"
#include "pallistrom/Names.h"
#include "platform/linux/access/AccessPane.h"
#include "platform/linux/access/GrantSwitch.h"
#include "platform/linux/application/DarkPalette.h"
#include "platform/linux/applications/window/ApplicationsWindow.h"
#include "platform/linux/symbols/Drawing.h"

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QPixmap>
#include <QTemporaryDir>

#include <cstdio>
#include <optional>
#include <string>

// Saves pictures of the access pane in every state, for people to look at: pane_gallery FOLDER. The
// scale is that of QT_SCALE_FACTOR.

namespace pallistrom {

namespace {

using KeyboardInterface::GrantAnswer;

class PaneGallery {
public:
    explicit PaneGallery(QString folder) : m_folder(std::move(folder)) {}

    void fill(const QString& look) {
        save(look, "granted", {}, {});
        save(look, "not-granted", Obstacle::NotGranted, Obstacle::NotGranted);
        save(look, "not-installed", Obstacle::ServiceNotInstalled, Obstacle::ServiceNotInstalled);
        save(look, "x11-not-granted", {}, Obstacle::NotGranted);
        save(look, "x11-not-installed", {}, Obstacle::ServiceNotInstalled);
        save(look, "silent", Obstacle::ServiceSilent, Obstacle::ServiceSilent);
        save(look, "mismatch", Obstacle::ServiceMismatch, Obstacle::ServiceMismatch);
        save(look, "panicked", Obstacle::Panicked, Obstacle::Panicked);
        saveAnswer(look, "asking", {});
        saveAnswer(look, "no-agent", GrantAnswer::NoAgent);
        saveUnknownFront(look);
        saveApplications(look);
    }

private:
    void save(const QString& look,
              const char* name,
              std::optional<Obstacle> session,
              std::optional<Obstacle> service) {
        FakeKeyboardService said;
        said.say(service);
        AccessPane pane(said, {.findObstacle = [session] {
                            return session;
                        }});
        grab(pane, look, name);
    }

    void saveAnswer(const QString& look, const char* name, std::optional<GrantAnswer> answer) {
        FakeKeyboardService service;
        service.requestGrant();
        if (answer) {
            service.close(answer);
        }
        AccessPane pane(service, {.findObstacle = [] {
                            return Obstacle::NotGranted;
                        }});
        pane.show();
        pane.findChild<GrantSwitch*>()->setFocus(Qt::TabFocusReason);
        grab(pane, look, name);
    }

    void saveUnknownFront(const QString& look) {
        FakeKeyboardService service;
        service.say(std::nullopt);
        AccessPane pane(service,
                        {.findObstacle = [] { return std::optional<Obstacle>(); },
                         .knowsWhoIsInFront =
                             [] {
                                 return false;
                             }});
        grab(pane, look, "unknown-front");
    }

    void saveApplications(const QString& look) {
        const QTemporaryDir folder;
        ApplicationChoices choices(folder.path());
        choices.setLeftAlone("gimp", true);
        choices.setLeftAlone("org.inkscape.Inkscape", true);
        ApplicationKinds kinds(DesktopEntries({}), choices);
        for (const std::string name : {"Gimp", "Tk", "firefox", "Emacs", "foot"}) {
            static_cast<void>(kinds.kindOfFront({.instance = name, .name = name}));
        }
        ApplicationsWindow window(kinds);
        grab(window, look, "applications");
    }

    void grab(QWidget& pane, const QString& look, const char* name) {
        pane.show();
        QApplication::processEvents();
        const QString file =
            QStringLiteral("%1/%2-%3.png").arg(m_folder, QString::fromLatin1(name), look);
        if (!pane.grab().save(file)) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
        }
    }

    QString m_folder;
};

} // namespace

} // namespace pallistrom

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication::setStyle(QStringLiteral("fusion"));
    const QApplication application(argc, argv);
    if (argc != 2 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
        std::fputs("usage: pane_gallery FOLDER\n", stderr);
        return 2;
    }
    QApplication::setWindowIcon(QIcon(
        pallistrom::Drawing::file("application/" + std::string(pallistrom::Names::applicationId))));
    pallistrom::PaneGallery gallery(QString::fromLocal8Bit(argv[1]));
    const QPalette light = QApplication::palette();
    gallery.fill(QStringLiteral("light"));
    QApplication::setPalette(pallistrom::darkPalette(light));
    gallery.fill(QStringLiteral("dark"));
    return 0;
}
