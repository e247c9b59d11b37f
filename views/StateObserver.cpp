// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/StateObserver.h"

#include "platform/RunLoop.h"
#include "shell/state/AppState.h"

#include <QPointer>

#include <utility>

namespace pallistrom {

StateObserver::StateObserver(const AppState& state, std::function<void()> readAgain, QObject* view)
    : QObject(view), m_readAgain(std::move(readAgain)) {
    connect(&state, &AppState::objectWillChange, this, &StateObserver::stateWillChange);
}

void StateObserver::stateWillChange() {
    if (m_isWaiting) {
        return;
    }
    m_isWaiting = true;
    dispatchAsyncOnMainQueue([self = QPointer<StateObserver>(this)] {
        if (self) {
            self->m_isWaiting = false;
            self->m_readAgain();
        }
    });
}

} // namespace pallistrom
