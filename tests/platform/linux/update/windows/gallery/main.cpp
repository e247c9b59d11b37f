// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/application/DarkPalette.h"
#include "platform/linux/symbols/Drawing.h"
#include "platform/linux/update/windows/UpdatePages.h"
#include "platform/linux/update/windows/UpdateWindow.h"

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QPalette>
#include <QPixmap>

#include <cstdio>
#include <functional>
#include <string>

// Saves pictures of each page of the update conversation, for people to look at: update_gallery
// FOLDER. The scale is that of QT_SCALE_FACTOR.

namespace pallistrom {

namespace {

UpdateOffer offer() {
    return {.newVersion = "1.4",
            .currentVersion = "1.3.2",
            .notes = "• Control-K deletes to the end of the line in text fields of browsers, too.\n"
                     "• A keyboard that is plugged in while the session is locked is found at once "
                     "when it is unlocked.\n"
                     "• The guide can be read by screen readers.\n\n"
                     "Terminals that have been installed since the last login keep their keys.",
            .link = {},
            .kind = InstallKind::ReplaceItself,
            .isCritical = false};
}

UpdateOffer longOffer() {
    UpdateOffer longer = offer();
    longer.newVersion = "20.10.2-nightly.20261121.a3f2c19d77e0b4c1.for-people-who-cannot-wait";
    longer.isCritical = true;
    for (int i = 0; i < 4; ++i) {
        longer.notes += "\n\n" + longer.notes.substr(0, 240);
    }
    return longer;
}

class Gallery {
public:
    explicit Gallery(QString folder) : m_folder(std::move(folder)) {}

    void fill(const QString& look) {
        using enum UpdatePages::SoftwareCentre;
        save("checking", look, UpdatePages::checking());
        save("up-to-date", look, UpdatePages::upToDate("1.4"));
        save("offer", look, UpdatePages::offer(offer()));
        save("offer-long", look, UpdatePages::offer(longOffer()));
        save("download", look, UpdatePages::download("1.4"), [](UpdateWindow& window) {
            constexpr std::uint64_t received = 3'400'000;
            constexpr std::uint64_t expected = 5'100'000;
            window.setProgress(received, expected, UpdatePages::progressText(received, expected));
        });
        save("installing", look, UpdatePages::installing("1.4"));
        save("installed", look, UpdatePages::installed("1.4"));
        save("package",
             look,
             UpdatePages::packageWay(
                 offer(), "sudo apt update && sudo apt install --only-upgrade pallistrom", There));
        save("failure",
             look,
             UpdatePages::failure(UpdatePages::Step::Check,
                                  "The server pallistrom.invalid cannot be found. Is this computer "
                                  "online?"));
    }

private:
    void save(const char* name,
              const QString& look,
              const UpdatePage& page,
              const std::function<void(UpdateWindow&)>& prepare = {}) {
        UpdateWindow window([](UpdatePage::Choice /*choice*/) {});
        window.showPage(page, UpdateWindow::Arrival::Asked);
        if (prepare) {
            prepare(window);
        }
        QApplication::processEvents();
        const QString file =
            QStringLiteral("%1/%2-%3.png").arg(m_folder, QString::fromLatin1(name), look);
        if (!window.grab().save(file)) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
        }
    }

    QString m_folder;
};

} // namespace

} // namespace pallistrom

int main(int argc, char** argv) {
    using namespace pallistrom;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication::setStyle(QStringLiteral("fusion"));
    const QApplication application(argc, argv);
    if (argc != 2 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
        std::fputs("usage: update_gallery FOLDER\n", stderr);
        return 2;
    }
    QGuiApplication::setWindowIcon(QIcon(Drawing::file("application/org.pallistrom.Pallistrom")));
    Gallery gallery(QString::fromLocal8Bit(argv[1]));
    gallery.fill(QStringLiteral("light"));
    QApplication::setPalette(darkPalette(QApplication::palette()));
    gallery.fill(QStringLiteral("dark"));
    return 0;
}
