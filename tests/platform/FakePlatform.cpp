// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FakePlatform.h"

#include "FakeObjects.h"
#include "platform/Precondition.h"

#include <algorithm>
#include <ostream>

namespace pallistrom::fake {

namespace {

Platform* theOne = nullptr;

} // namespace

void PrintTo(const Stroke& stroke, std::ostream* out) {
    *out << (stroke.down ? '+' : '-') << stroke.keyCode << " flags 0x" << std::hex << stroke.flags
         << std::dec;
}

Platform::Platform() {
    precondition(theOne == nullptr, "a second fake platform");
    theOne = this;
}

Platform::~Platform() {
    theOne = nullptr;
}

Platform& Platform::current() {
    precondition(theOne != nullptr, "no fake platform");
    return *theOne;
}

std::unique_ptr<Stroke> Platform::send(CGEventType type, Stroke stroke) const {
    CGEvent event{stroke};
    CGEvent* const result = createdTaps.back().callback(nullptr, type, &event, nullptr);
    precondition(result == nullptr || result == &event, "a callback returned another event");
    return result == nullptr ? nullptr : std::make_unique<Stroke>(result->stroke);
}

void Platform::restartProcess() {
    registeredDefaults.clear();
}

void Platform::schedule(const NSTimerRef& timer) {
    timer->due = m_now + timer->interval;
    m_timers.push_back(timer);
}

void Platform::advance(std::chrono::milliseconds by) {
    const auto end = m_now + by;
    while (true) {
        const auto next = std::min_element(
            m_timers.begin(), m_timers.end(), [](const NSTimerRef& a, const NSTimerRef& b) {
                return a->due < b->due;
            });
        if (next == m_timers.end() || (*next)->due > end) {
            break;
        }
        const NSTimerRef timer = *next;
        m_now = timer->due;
        timer->due += timer->interval;
        ++wakeUps;
        timer->action();
    }
    m_now = end;
}

void Platform::runMainQueue() {
    while (!mainQueue.empty()) {
        const auto block = std::move(mainQueue.front());
        mainQueue.pop_front();
        block();
    }
}

void Platform::chooseMenuItem(std::string_view title) const {
    const NSMenu menu = menus.back(); // The action will replace it.
    const auto item = std::find_if(menu.begin(), menu.end(), [title](const NSMenuItem& each) {
        return !each.isSeparator && each.title == title;
    });
    precondition(item != menu.end() && item->isEnabled, "no such item to choose");
    const auto target = item->target.lock();
    (target ? target : std::shared_ptr<ActionTarget>(delegate))
        ->performAction(item->action, &*item);
}

} // namespace pallistrom::fake
