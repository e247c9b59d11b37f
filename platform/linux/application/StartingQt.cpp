// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/application/StartingQt.h"

#include "platform/Log.h"

#include <QString>

#include <cstdlib>
#include <string>

namespace pallistrom {

namespace {

// Only while a StartingQt lives, and Qt calls its handler from one thread then.
std::string firstWarning;

std::string onOneLine(const QString& message) {
    return message.simplified().toStdString();
}

void handleMessage(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
    if (type == QtFatalMsg) {
        NSLog("Pallistrom: there is no display to run on: " +
              (firstWarning.empty() ? onOneLine(message) : firstWarning));
        // Qt aborts as soon as this returns. There is nothing yet that would have to be put away.
        std::_Exit(EXIT_FAILURE);
    }
    if (type != QtDebugMsg && firstWarning.empty()) {
        firstWarning = onOneLine(message);
    }
}

} // namespace

StartingQt::StartingQt() : m_previousHandler(qInstallMessageHandler(handleMessage)) {
    firstWarning.clear();
}

StartingQt::~StartingQt() {
    qInstallMessageHandler(m_previousHandler);
}

} // namespace pallistrom
