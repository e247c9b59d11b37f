// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT

// The least that a program of Pallistrom's kind is: a tray icon with a menu, windows with nothing
// in them, a name on the session bus and a key of its own. What desktop_benchmark compares with.

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QLabel>
#include <QMenu>
#include <QPixmap>
#include <QSystemTrayIcon>
#include <QTimer>
#include <QWidget>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <utility>

namespace {

constexpr int menuItems = 12;

/// The keycode of W, on the keyboards of every virtual display.
constexpr xcb_keycode_t keycodeOfW = 25;

/// Shows the window that an action asks for.
class Windows final : public QDBusVirtualObject {
public:
    QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        if (message.member() != QLatin1String("ActivateAction") || message.arguments().isEmpty()) {
            return false;
        }
        connection.send(message.createReply());
        const QString action = message.arguments().constFirst().toString();
        if (action == QLatin1String("showSettings")) {
            show(std::make_unique<QWidget>(), QSize(480, 600));
        } else if (action == QLatin1String("showOnboarding")) {
            show(std::make_unique<QWidget>(), QSize(560, 540));
        } else if (action == QLatin1String("showWord")) {
            show(std::make_unique<QLabel>(QStringLiteral("Word")), QSize(480, 600));
        }
        return true;
    }

private:
    void show(std::unique_ptr<QWidget> window, QSize size) {
        m_window = std::move(window);
        m_window->setFixedSize(size);
        m_window->show();
    }

    std::unique_ptr<QWidget> m_window;
};

QIcon plainIcon() {
    QPixmap pixmap(22, 22);
    pixmap.fill(Qt::gray);
    return {pixmap};
}

/// The mark that the benchmark waits for.
void grabControlW() {
    const auto* const x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 == nullptr) {
        return;
    }
    auto* const connection = x11->connection();
    xcb_grab_key(connection,
                 0,
                 xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root,
                 XCB_MOD_MASK_CONTROL,
                 keycodeOfW,
                 XCB_GRAB_MODE_ASYNC,
                 XCB_GRAB_MODE_ASYNC);
    xcb_flush(connection);
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    Windows windows;
    auto bus = QDBusConnection::sessionBus();
    bus.registerVirtualObject(QStringLiteral("/org/pallistrom/EmptyTray"), &windows);
    if (!bus.registerService(QStringLiteral("org.pallistrom.EmptyTray"))) {
        return EXIT_FAILURE;
    }
    QMenu menu;
    for (int item = 1; item <= menuItems; ++item) {
        menu.addAction(QStringLiteral("Item %1").arg(item));
    }
    QSystemTrayIcon icon(plainIcon());
    icon.setContextMenu(&menu);
    QTimer::singleShot(0, &application, [&icon] {
        icon.show();
        grabControlW();
    });
    return QApplication::exec();
}
