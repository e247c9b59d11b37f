// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/application/ApplicationRequest.h"

#include <QTimer>

#include <functional>
#include <vector>

namespace pallistrom {

/// Hands requests on from the event loop, in order. However fast they come, the program does only
/// so much for them: what is already waiting is not asked again, few may wait at a time, and
/// between two lots there is a pause.
class RequestQueue {
public:
    /// `serve` is called from the event loop, never from add().
    explicit RequestQueue(std::function<void(const ApplicationRequest&)> serve);

    void add(ApplicationRequest request);

    /// From now on requests are served; those that came before wait until then.
    void open();

private:
    void serveWaiting();

    std::function<void(const ApplicationRequest&)> m_serve;
    std::vector<ApplicationRequest> m_waiting;
    QTimer m_timer; ///< runs out when the next lot may be served
    bool m_isOpen = false;
};

} // namespace pallistrom
