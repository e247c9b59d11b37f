// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/KWinScript.h"

#include "pallistrom/Names.h"
#include "platform/linux/QtText.h"
#include "platform/linux/front/InstalledFiles.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFile>

#include <utility>

namespace pallistrom {

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds firstWait = 1s;
/// A window manager that took no script until then has none of this kind.
constexpr std::chrono::milliseconds lastWait = 32s;

const QString manager = QStringLiteral("/Scripting");

QDBusMessage kwinCall(const QString& object, const char* interface, const char* member) {
    auto message = QDBusMessage::createMethodCall(QStringLiteral("org.kde.KWin"),
                                                  object,
                                                  QString::fromLatin1(interface),
                                                  QString::fromLatin1(member));
    message.setAutoStartService(false);
    return message;
}

QDBusMessage scriptingCall(const char* member) {
    return kwinCall(manager, "org.kde.kwin.Scripting", member);
}

// By which it is known there; as good a name as any.
QString scriptName() {
    return qtText(Names::frontBusName);
}

} // namespace

KWinScript::KWinScript(QDBusConnection bus) : m_bus(std::move(bus)), m_wait(firstWait) {
    m_retry.setSingleShot(true);
    QObject::connect(&m_retry, &QTimer::timeout, &m_retry, [this] { load(); });
}

KWinScript::~KWinScript() {
    if (m_hasKWin) {
        auto message = scriptingCall("unloadScript");
        message << scriptName();
        m_bus.send(message);
    }
}

void KWinScript::setHasKWin(bool hasKWin) {
    m_hasKWin = hasKWin;
    m_retry.stop();
    m_wait = firstWait;
    if (hasKWin) {
        load();
    }
}

// What a run of ours that was killed has left comes out first: it may be of another version, and it
// says who is in front only when it is started. It is gone by the time that we are answered.
void KWinScript::load() {
    auto message = scriptingCall("unloadScript");
    message << scriptName();
    call(message, [this](const QDBusMessage& reply) {
        if (reply.type() == QDBusMessage::ErrorMessage) {
            tryLater();
        } else {
            loadAnew();
        }
    });
}

void KWinScript::loadAnew() {
    auto message = scriptingCall("loadScript");
    message << QFile::decodeName(InstalledFiles::kwinScript().c_str()) << scriptName();
    call(message, [this](const QDBusMessage& reply) {
        const QDBusPendingReply<int> script(reply);
        if (script.isValid() && script.value() >= 0) {
            run(script.value());
        } else {
            tryLater();
        }
    });
}

// Plasma 6 has its scripts below the manager, Plasma 5 beside it.
void KWinScript::run(int script) {
    const QString number = QString::number(script);
    runAt(manager + QStringLiteral("/Script") + number, [this, number](const QDBusMessage& reply) {
        if (reply.type() == QDBusMessage::ErrorMessage) {
            runAt(QStringLiteral("/") + number, {});
        }
    });
}

void KWinScript::runAt(const QString& object, const Answer& take) {
    call(kwinCall(object, "org.kde.kwin.Script", "run"), take);
}

void KWinScript::tryLater() {
    if (m_hasKWin && m_wait <= lastWait) {
        m_retry.start(m_wait);
        m_wait *= 2;
    }
}

void KWinScript::call(const QDBusMessage& message, const Answer& take) {
    auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message), &m_answers);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, take] {
        watcher->deleteLater();
        if (take) {
            take(watcher->reply());
        }
    });
}

} // namespace pallistrom
