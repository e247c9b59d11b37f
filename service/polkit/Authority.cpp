// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/polkit/Authority.h"

#include "pallistrom/Names.h"
#include "platform/Log.h"
#include "service/polkit/AuthorityAnswer.h"

#include <limits>
#include <utility>

namespace pallistrom {

namespace {

constexpr const char* authority = "org.freedesktop.PolicyKit1";
constexpr const char* authorityObject = "/org/freedesktop/PolicyKit1/Authority";
constexpr const char* authorityInterface = "org.freedesktop.PolicyKit1.Authority";
constexpr std::uint32_t allowUserInteraction = 1;
/// People look for their passwords as long as they like.
constexpr std::uint64_t noTimeout = std::numeric_limits<std::uint64_t>::max();

OwnedMessage makeQuestion(sd_bus* bus, const std::string& caller, const std::string& cancellation) {
    OwnedMessage message;
    int result = into(message, [bus](sd_bus_message** made) {
        return sd_bus_message_new_method_call(
            bus, made, authority, authorityObject, authorityInterface, "CheckAuthorization");
    });
    if (result >= 0) {
        result = sd_bus_message_append(message.get(),
                                       "(sa{sv})sa{ss}us",
                                       "system-bus-name",
                                       1,
                                       "name",
                                       "s",
                                       caller.c_str(),
                                       Names::polkitAction.data(),
                                       0,
                                       allowUserInteraction,
                                       cancellation.c_str());
    }
    return result >= 0 ? std::move(message) : nullptr;
}

} // namespace

void Authority::ask(const std::string& caller, Answered answered) {
    auto question = std::make_unique<Question>();
    question->owner = this;
    question->caller = caller;
    question->cancellation = "question-" + std::to_string(++m_count);
    question->answered = std::move(answered);
    const OwnedMessage message = makeQuestion(m_bus, caller, question->cancellation);
    const bool isSent =
        message &&
        into(question->call, [&](sd_bus_slot** slot) {
            return sd_bus_call_async(m_bus, slot, message.get(), told, question.get(), noTimeout);
        }) >= 0;
    if (isSent) {
        m_questions.insert_or_assign(caller, std::move(question));
    } else {
        question->answered(KeyboardInterface::GrantAnswer::Denied);
    }
}

void Authority::drop(const std::string& caller) {
    const auto found = m_questions.find(caller);
    if (found == m_questions.end()) {
        return;
    }
    // Whether that arrives makes no difference to us.
    static_cast<void>(sd_bus_call_method_async(m_bus,
                                               nullptr,
                                               authority,
                                               authorityObject,
                                               authorityInterface,
                                               "CancelCheckAuthorization",
                                               nullptr,
                                               nullptr,
                                               "s",
                                               found->second->cancellation.c_str()));
    m_questions.erase(found);
}

// Once for each kind of trouble: anybody may have a question asked, as often as they like.
void Authority::noteTrouble(const sd_bus_error* error) {
    const std::string trouble = error == nullptr ? "" : error->name;
    if (std::exchange(m_trouble, trouble) != trouble && !trouble.empty()) {
        NSLog("Pallistrom: the grant cannot be asked for: " + trouble);
    }
}

int Authority::told(sd_bus_message* answer, void* question, sd_bus_error* /*error*/) {
    auto& asked = *static_cast<Question*>(question);
    asked.owner->noteTrouble(sd_bus_message_get_error(answer));
    const auto node = asked.owner->m_questions.extract(asked.caller);
    node.mapped()->answered(readAuthorityAnswer(answer));
    return 1;
}

} // namespace pallistrom
