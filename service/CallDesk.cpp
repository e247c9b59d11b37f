// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/CallDesk.h"

#include "service/clients/AccessRule.h"
#include "service/clients/Standing.h"

#include <memory>
#include <type_traits>
#include <utility>

namespace pallistrom {

namespace {

using KeyboardInterface::Access;
using KeyboardInterface::GrantAnswer;

template<typename... Handlers>
struct Overloaded : Handlers... {
    using Handlers::operator()...;
};

template<typename... Handlers>
Overloaded(Handlers...) -> Overloaded<Handlers...>;

std::string_view describe(Access access) {
    switch (access) {
    case Access::Granted:
        return "has access";
    case Access::NotGranted:
        return "has no access: it was not granted";
    case Access::Panicked:
        return "has no access: the panic chord was pressed";
    case Access::NotLocal:
        return "has no access: no session at this machine's keyboard";
    case Access::NoKeyboard:
        return "has no access: no virtual keyboard can be made";
    }
    return {};
}

} // namespace

bool CallDesk::arrive(BusSide& side, const std::string& caller, UserId user, Moment now) {
    Users& users = m_state.users;
    if (users.add(caller, user)) {
        return true;
    }
    const auto other = users.whoMakesRoomFor(user, [this](UserId one) {
        return standingOf(one, m_state.grants.grantOf(one), m_state.login);
    });
    if (other) {
        vanish(side, *other, now);
        side.dropCaller(*other);
    }
    if (other && users.add(caller, user)) {
        return true;
    }
    m_log.say(user, UserLog::About::Connections, "has too many connections; one was refused");
    return false;
}

void CallDesk::carryOut(BusSide& side,
                        const std::string& caller,
                        PendingCall call,
                        const std::function<void()>& changed) {
    const auto user = m_state.users.userOf(caller);
    if (!user) {
        call.reply.tooMuch();
        return;
    }
    Users& users = m_state.users;
    const Reply& reply = call.reply;
    std::visit(Overloaded{
                   [&](Calls::GetAccess) {
                       const Access access = accessOf(caller);
                       m_log.say(*user, UserLog::About::Access, describe(access));
                       m_news.told(caller, access);
                       reply.value(static_cast<std::uint32_t>(access));
                   },
                   [&](Calls::RequestGrant) {
                       requestGrant(side, caller, *user, std::move(call.reply), changed);
                   },
                   [&](Calls::WithdrawGrant) {
                       withdrawGrant(*user, changed);
                       reply.done();
                   },
                   [&](Calls::EndPanic) {
                       m_state.grants.resume(*user);
                       reply.done();
                   },
                   [&](const Calls::SetSession& set) {
                       if (users.setSession(caller, set.id)) {
                           reply.done();
                       } else {
                           reply.tooMuch();
                       }
                   },
                   [&](Calls::SetTap set) {
                       users.setTap(caller, set.on);
                       reply.done();
                   },
                   [&](Calls::SetSwitches set) {
                       users.change(caller, [&](UserWish& wish) { wish.switches = set.switches; });
                       reply.done();
                   },
                   [&](const Calls::SetModifiers& set) {
                       users.change(caller,
                                    [&](UserWish& wish) { wish.modifiers = set.modifiers; });
                       reply.done();
                   },
                   [&](Calls::SetFrontApplication set) {
                       users.change(caller, [&](UserWish& wish) { wish.front = set.kind; });
                       reply.done();
                   },
               },
               call.call);
}

void CallDesk::withdrawGrant(UserId user, const std::function<void()>& changed) {
    if (m_state.grants.grantOf(user)) {
        m_state.grants.withdraw(user);
        // The keys are free before anybody hears of it.
        changed();
        m_log.say(user, UserLog::About::Grant, "has withdrawn the grant");
    }
}

void CallDesk::requestGrant(BusSide& side,
                            const std::string& caller,
                            UserId user,
                            Reply reply,
                            const std::function<void()>& changed) {
    if (m_state.grants.grantOf(user)) {
        reply.value(static_cast<std::uint32_t>(GrantAnswer::Granted));
        return;
    }
    if (!m_asking.emplace(user, caller).second) {
        reply.value(static_cast<std::uint32_t>(GrantAnswer::Busy));
        return;
    }
    // Shared, as a std::function can be copied and a reply cannot.
    const auto shared = std::make_shared<Reply>(std::move(reply));
    side.authority().ask(caller, [this, user, shared, changed](GrantAnswer answer) {
        m_asking.erase(user);
        if (answer == GrantAnswer::Granted) {
            m_log.say(user, UserLog::About::Grant, "was granted that keys are filtered");
            m_state.grants.give(user);
        } else {
            m_log.say(user, UserLog::About::Grant, "was not granted that keys are filtered");
        }
        shared->value(static_cast<std::uint32_t>(answer));
        changed();
    });
}

void CallDesk::vanish(BusSide& side, const std::string& caller, Moment now) {
    const auto user = m_state.users.userOf(caller);
    if (!user) {
        return;
    }
    const auto asking = m_asking.find(*user);
    if (asking != m_asking.end() && asking->second == caller) {
        side.authority().drop(caller);
        m_asking.erase(asking);
    }
    m_news.forget(caller);
    m_state.users.vanish(caller, now);
}

void CallDesk::vanishAll(Moment now) {
    m_asking.clear();
    m_news.forgetAll();
    m_state.users.vanishAll(now);
}

void CallDesk::spreadNews(const BusSide& side) {
    m_news.update([this](const std::string& caller) { return accessOf(caller); },
                  [&](const std::string& caller, Access access) {
                      if (const auto user = m_state.users.userOf(caller)) {
                          m_log.say(*user, UserLog::About::Access, describe(access));
                      }
                      side.tellAccess(caller, access);
                  });
}

Access CallDesk::accessOf(const std::string& caller) const {
    const auto user = m_state.users.userOf(caller);
    if (!user) {
        return Access::NotLocal;
    }
    return pallistrom::accessOf(
        *user, m_state.grants.grantOf(*user), m_state.login, m_keys.canMakeKeyboards());
}

} // namespace pallistrom
