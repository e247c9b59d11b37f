// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/AccessNews.h"
#include "service/KeyControl.h"
#include "service/ServiceState.h"
#include "service/bus/BusSide.h"
#include "service/clients/UserLog.h"

#include <set>
#include <string>

namespace pallistrom {

/// Carries out what callers ask for. Each call holds for the user whom the caller belongs to; no
/// call can name another.
class CallDesk {
public:
    /// `state` and `keys` outlive this. `granted` is called when a person has said yes.
    CallDesk(ServiceState& state, const KeyControl& keys) : m_state{state}, m_keys{keys} {}

    /// Returns false if there are too many already. If there are, whoever matters less than `user`
    /// has to go.
    [[nodiscard]] bool arrive(BusSide& side, const std::string& caller, UserId user, Moment now);

    /// `side` is where the call came from. `changed` is called for what cannot wait until this
    /// returns, and for what comes afterwards: before a caller is told that its grant is gone, and
    /// once a person has said yes or no.
    void carryOut(BusSide& side,
                  const std::string& caller,
                  PendingCall call,
                  const std::function<void()>& changed);

    void vanish(BusSide& side, const std::string& caller, Moment now);

    /// The connection is over: all callers have vanished.
    void vanishAll(Moment now);

    /// Tells callers whose access has changed.
    void spreadNews(const BusSide& side);

private:
    [[nodiscard]] KeyboardInterface::Access accessOf(const std::string& caller) const;
    void withdrawGrant(UserId user, const std::function<void()>& changed);
    void requestGrant(BusSide& side,
                      const std::string& caller,
                      UserId user,
                      Reply reply,
                      const std::function<void()>& changed);

    ServiceState& m_state;
    const KeyControl& m_keys;
    AccessNews m_news;
    UserLog m_log;
    std::map<UserId, std::string> m_asking; ///< the caller for whom a person is being asked
};

} // namespace pallistrom
