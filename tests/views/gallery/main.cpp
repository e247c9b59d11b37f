// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FakePlatform.h"
#include "LongerTexts.h"
#include "engine/Preferences.h"
#include "engine/ShortcutLibrary.h"
#include "platform/linux/bundle/WindowTexts.h"
#include "shell/state/AppState.h"
#include "views/OnboardingView.h"
#include "views/SettingsView.h"
#include "views/controls/PushButton.h"
#include "views/controls/Switch.h"

#include <QApplication>
#include <QDir>
#include <QPalette>
#include <QPixmap>

#include <cstdio>
#include <string>

// Saves pictures of both windows in every state, with the symbols and the texts of Linux, for
// people to look at: view_gallery FOLDER. The scale is that of QT_SCALE_FACTOR.

namespace pallistrom {

namespace {

QPalette darkPalette() {
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(0x24, 0x24, 0x27));
    palette.setColor(QPalette::Base, QColor(0x1c, 0x1c, 0x1e));
    palette.setColor(QPalette::WindowText, QColor(0xf0, 0xf0, 0xf2));
    palette.setColor(QPalette::Text, QColor(0xf0, 0xf0, 0xf2));
    palette.setColor(QPalette::Button, QColor(0x33, 0x33, 0x36));
    palette.setColor(QPalette::ButtonText, QColor(0xf0, 0xf0, 0xf2));
    palette.setColor(QPalette::Highlight, QColor(0x3b, 0x82, 0xf6));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

class Gallery {
public:
    explicit Gallery(QString folder) : m_folder(std::move(folder)) {
        m_platform.reducesMotion = true;
        m_platform.infoDictionary["CFBundleShortVersionString"] = PROJECT_VERSION;
        for (const std::string_view key : windowTexts()) {
            m_platform.localizedStrings[std::string(key)] = WindowTexts::localized(key, "Linux");
        }
        Preferences::registerDefaults(ShortcutLibrary::all);
    }

    void fill() {
        const QPalette light = QApplication::palette();
        savePictures(QStringLiteral("light"));
        QApplication::setPalette(darkPalette());
        savePictures(QStringLiteral("dark"));
        QApplication::setPalette(light);
        lengthenTexts(m_platform);
        savePictures(QStringLiteral("long"));
    }

private:
    void savePictures(const QString& look) {
        for (const bool trusted : {false, true}) {
            m_platform.trusted = trusted;
            AppState::shared().refresh();
            saveOnboarding(look, trusted);
            saveSettings(look, trusted);
        }
    }

    void saveOnboarding(const QString& look, bool trusted) {
        OnboardingView view(AppState::shared(), [] {});
        view.show();
        QApplication::processEvents(); // Until it is in front, nothing in it has the focus.
        for (std::int64_t step = 0; step <= OnboardingView::lastStep; ++step) {
            if (step == 1 || !trusted) {
                save(view, look, QStringLiteral("onboarding-%1").arg(step), trusted);
            }
            auto* const primary = view.findChild<PushButton*>(QStringLiteral("primary"));
            if (step == 0) {
                focus(*primary);
                save(view, look, QStringLiteral("onboarding-button"), trusted);
                primary->clearFocus();
            }
            primary->click();
        }
    }

    void saveSettings(const QString& look, bool trusted) {
        SettingsView view(
            AppState::shared(), [] {}, [] {});
        view.show();
        save(view, look, QStringLiteral("settings"), trusted);
        focus(*view.findChild<Switch*>());
        save(view, look, QStringLiteral("settings-switch"), trusted);
        focus(*view.findChildren<PushButton*>().last());
        save(view, look, QStringLiteral("settings-button"), trusted);
    }

    /// As Tab does, also where the control has the focus already.
    static void focus(QWidget& control) {
        control.clearFocus();
        control.setFocus(Qt::TabFocusReason);
    }

    void save(QWidget& view, const QString& look, const QString& name, bool trusted) {
        m_platform.runMainQueue();
        QApplication::processEvents();
        const QString file =
            QStringLiteral("%1/%2-%3-%4.png")
                .arg(m_folder,
                     name,
                     trusted ? QStringLiteral("granted") : QStringLiteral("waiting"),
                     look);
        if (!view.grab().save(file)) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
        }
    }

    fake::Platform m_platform;
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
        std::fputs("usage: view_gallery FOLDER\n", stderr);
        return 2;
    }
    pallistrom::Gallery(QString::fromLocal8Bit(argv[1])).fill();
    return 0;
}
