// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>

namespace pallistrom {

class AppState;

/// Lets a view read the state again after changes. The state speaks before it changes, so reading
/// waits for a later turn of the loop, and any number of changes until then are read once. Belongs
/// to the view: a view that is gone reads nothing.
class StateObserver final : public QObject {
    Q_OBJECT

public:
    StateObserver(const AppState& state, std::function<void()> readAgain, QObject* view);

private:
    void stateWillChange();

    std::function<void()> m_readAgain;
    bool m_isWaiting = false;
};

} // namespace pallistrom
