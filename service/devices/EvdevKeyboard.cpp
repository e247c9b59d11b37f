// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/devices/EvdevKeyboard.h"

#include <sys/epoll.h>
#include <sys/ioctl.h>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <utility>

namespace pallistrom {

namespace {

// For programs to open a device that they have just been told of.
constexpr std::uint64_t settlingTime = 1'000'000;

timespec now() {
    timespec moment{};
    clock_gettime(CLOCK_MONOTONIC, &moment);
    return moment;
}

bool isBefore(const input_event& event, const timespec& moment) {
    return event.input_event_sec < moment.tv_sec ||
           (event.input_event_sec == moment.tv_sec &&
            event.input_event_usec < moment.tv_nsec / 1000);
}

// Reads a set as the kernel writes it.
template<typename Set, std::size_t Size>
Set setOf(const std::array<unsigned char, Size>& bits) {
    Set set;
    for (std::size_t at = 0; at < set.size(); ++at) {
        set[at] = ((bits.at(at / 8) >> (at % 8)) & 1) != 0;
    }
    return set;
}

input_event lightEvent(std::uint16_t light, std::int32_t value) {
    input_event event{};
    event.type = EV_LED;
    event.code = light;
    event.value = value;
    return event;
}

} // namespace

std::unique_ptr<EvdevKeyboard>
EvdevKeyboard::make(InputNode node, Pointer pointer, sd_event& loop, EvdevKeyboardOwner& owner) {
    auto keyboard = VirtualDevice::standingInFor(node.device(), Destination::Part::Keyboard);
    std::optional<VirtualDevice> second;
    if (keyboard && pointer == Pointer::Too) {
        second = VirtualDevice::standingInFor(node.device(), Destination::Part::Pointer);
    }
    if (!keyboard || (pointer == Pointer::Too && !second)) {
        return nullptr;
    }
    std::unique_ptr<EvdevKeyboard> result(
        new EvdevKeyboard(std::move(node), std::move(*keyboard), std::move(second), owner));
    return result->addTo(loop) ? std::move(result) : nullptr;
}

EvdevKeyboard::EvdevKeyboard(InputNode node,
                             VirtualDevice keyboard,
                             std::optional<VirtualDevice> pointer,
                             EvdevKeyboardOwner& owner)
    : m_node(std::move(node)),
      m_keyboard(std::move(keyboard)),
      m_pointer(std::move(pointer)),
      m_owner(owner) {}

EvdevKeyboard::~EvdevKeyboard() {
    m_owner.destroyed(*this);
}

bool EvdevKeyboard::addTo(sd_event& loop) {
    const auto served = [](sd_event_source*, int, std::uint32_t events, void* data) {
        auto& keyboard = *static_cast<EvdevKeyboard*>(data);
        keyboard.m_hasHungUp = (events & (EPOLLHUP | EPOLLERR)) != 0;
        keyboard.m_owner.readable(keyboard);
        return 0;
    };
    const auto settled = [](sd_event_source*, std::uint64_t, void* data) {
        auto& keyboard = *static_cast<EvdevKeyboard*>(data);
        keyboard.m_isReady = true;
        keyboard.m_owner.ready(keyboard);
        return 0;
    };
    sd_event_source* readable = nullptr;
    sd_event_source* timer = nullptr;
    const bool added =
        sd_event_add_io(&loop, &readable, m_node.descriptor(), EPOLLIN, served, this) >= 0 &&
        sd_event_add_time(&loop, &timer, CLOCK_MONOTONIC, 0, 0, settled, this) >= 0;
    m_readable.reset(readable);
    m_settled.reset(timer);
    if (!added) {
        errno = ENOMEM;
        return false;
    }
    sd_event_source_set_priority(readable, priority);
    sd_event_source_set_enabled(timer, SD_EVENT_OFF);
    setWatched(false);
    return true;
}

void EvdevKeyboard::virtualKeyboardIsThere(InputNode node) {
    if (!m_shown) {
        watchLights(std::move(node));
    }
    if (!m_isReady) {
        sd_event_source_set_time_relative(m_settled.get(), settlingTime);
        sd_event_source_set_enabled(m_settled.get(), SD_EVENT_ONESHOT);
    }
}

// On its node and not where it is made: there the kernel tells of each key as well, by its scan
// code.
void EvdevKeyboard::watchLights(InputNode node) {
    const auto switched = [](sd_event_source*, int, std::uint32_t, void* data) {
        static_cast<EvdevKeyboard*>(data)->serveLights();
        return 0;
    };
    node.hear(InputNode::Types{}.set(EV_LED));
    sd_event_source* lights = nullptr;
    if (sd_event_add_io(sd_event_source_get_event(m_readable.get()),
                        &lights,
                        node.descriptor(),
                        EPOLLIN,
                        switched,
                        this) < 0) {
        return;
    }
    m_shown.emplace(std::move(node));
    m_lightsSwitched.reset(lights);
    sd_event_source_set_priority(lights, priority + 1);
    sd_event_source_set_enabled(lights, m_isWatched ? SD_EVENT_ON : SD_EVENT_OFF);
}

std::string EvdevKeyboard::description() const {
    return std::string(libevdev_get_name(&m_node.device())) + " (" + m_node.path() + ")";
}

// What is typed while nobody wants it is not ours to see, and wakes nobody.
void EvdevKeyboard::setWatched(bool watched) {
    m_isWatched = watched;
    m_node.hear(watched ? InputNode::Types{}.set() : InputNode::Types{});
    for (sd_event_source* const source : {m_readable.get(), m_lightsSwitched.get()}) {
        if (source != nullptr) {
            sd_event_source_set_enabled(source, watched ? SD_EVENT_ON : SD_EVENT_OFF);
        }
    }
}

KeyboardDevice::Reading EvdevKeyboard::read() {
    if (m_unread == 0) {
        keepUnread();
    }
    const std::size_t count = std::exchange(m_unread, 0);
    return {.events = {m_events.data(), count}, .isGone = count == 0 && m_hasHungUp};
}

// One read a turn, and a keyboard that fills it, as none does under anybody's fingers, stands in
// line with everything else.
void EvdevKeyboard::keepUnread() {
    const auto size = ::read(m_node.descriptor(), m_events.data(), sizeof(m_events));
    m_unread = size > 0 ? static_cast<std::size_t>(size) / sizeof(input_event) : 0;
    m_hasHungUp = m_hasHungUp || (size < 0 && errno != EAGAIN && errno != EINTR);
    const bool isFull = m_unread == m_events.size();
    if (isFull != m_isInLine) {
        m_isInLine = isFull;
        constexpr std::int64_t lessUrgent = SD_EVENT_PRIORITY_NORMAL;
        sd_event_source_set_priority(m_readable.get(), isFull ? lessUrgent : priority);
    }
}

KeyboardDevice::Reading EvdevKeyboard::catchUp(const KeySet& known) {
    m_unread = 0;
    m_madeUp.clear();
    // The library has not seen what we read, and knows the rest.
    for (unsigned key = 0; key < known.size(); ++key) {
        libevdev_set_event_value(&m_node.device(), EV_KEY, key, known[key] ? 1 : 0);
    }
    input_event event{};
    int status = libevdev_next_event(&m_node.device(), LIBEVDEV_READ_FLAG_FORCE_SYNC, &event);
    while (status == LIBEVDEV_READ_STATUS_SYNC) {
        status = libevdev_next_event(&m_node.device(), LIBEVDEV_READ_FLAG_SYNC, &event);
        // Lights have changed for us as for the session, which sees to them.
        if (status == LIBEVDEV_READ_STATUS_SYNC && event.type != EV_LED) {
            m_madeUp.push_back(event);
        }
    }
    m_hasHungUp = m_hasHungUp || (status < 0 && status != -EAGAIN);
    return {.events = m_madeUp, .isGone = m_madeUp.empty() && m_hasHungUp};
}

std::optional<KeySet> EvdevKeyboard::startOver() {
    constexpr int readsOfAnyKeyboard = 16;
    int reads = 0;
    do {
        keepUnread();
    } while (m_unread > 0 && ++reads < readsOfAnyKeyboard);
    m_unread = 0;

    // This takes the keys that it tells of out of what is still to be read.
    std::array<unsigned char, (KEY_CNT + 7) / 8> bits{};
    if (::ioctl(m_node.descriptor(), EVIOCGKEY(bits.size()), bits.data()) < 0) {
        return std::nullopt;
    }
    return setOf<KeySet>(bits);
}

KeyboardDevice::Grab EvdevKeyboard::grab() {
    if (!setGrab(true)) {
        return errno == EBUSY ? Grab::Busy : Grab::Gone;
    }
    const timespec since = now();
    keepUnread();
    if (hasUnreadKeyBefore(since)) {
        // The session has seen it of this device, and is to see its release of it too.
        letGoAtOnce();
        return Grab::NotAtRest;
    }
    std::array<unsigned char, (LED_CNT + 7) / 8> lit{};
    ::ioctl(m_node.descriptor(), EVIOCGLED(lit.size()), lit.data());
    m_lights.start(setOf<Lights::Lit>(lit));
    return Grab::Done;
}

KeyboardDevice::LetGo EvdevKeyboard::letGo() {
    const timespec until = now();
    m_unread = 0;
    if (!setGrab(false)) {
        return LetGo::Done; // It is gone, as the next to ask for it will see.
    }
    keepUnread();
    if (hasUnreadKeyBefore(until) && setGrab(true)) {
        return LetGo::NotAtRest;
    }
    m_unread = 0;
    return LetGo::Done;
}

void EvdevKeyboard::letGoAtOnce() {
    m_unread = 0;
    [[maybe_unused]] const bool isStillThere = setGrab(false);
}

bool EvdevKeyboard::setGrab(bool grabbed) const {
    return ::ioctl(m_node.descriptor(), EVIOCGRAB, grabbed ? 1 : 0) == 0;
}

bool EvdevKeyboard::hasUnreadKeyBefore(const timespec& moment) const {
    return std::any_of(
        m_events.begin(),
        m_events.begin() + static_cast<std::ptrdiff_t>(m_unread),
        [&](const input_event& event) { return event.type == EV_KEY && isBefore(event, moment); });
}

void EvdevKeyboard::write(Destination::Part part, std::span<const input_event> events) {
    if (part == Destination::Part::Keyboard) {
        m_keyboard.write(events);
    } else if (m_pointer) {
        m_pointer->write(events);
    }
}

void EvdevKeyboard::lightChanged(std::uint16_t light, std::int32_t value) {
    if (m_lights.changedOnKeyboard(light, value != 0)) {
        m_keyboard.write(std::array{lightEvent(light, value), input_event{}});
    }
}

void EvdevKeyboard::serveLights() {
    std::array<input_event, 16> events{};
    const auto size = ::read(m_shown->descriptor(), events.data(), sizeof(events));
    const std::size_t count = size > 0 ? static_cast<std::size_t>(size) / sizeof(input_event) : 0;
    for (const input_event& event : std::span(events).first(count)) {
        if (event.type == EV_LED && m_lights.switchedBySession(event.code, event.value != 0)) {
            const std::array change{lightEvent(event.code, event.value), input_event{}};
            [[maybe_unused]] const auto written =
                ::write(m_node.descriptor(), change.data(), sizeof(change));
        }
    }
}

} // namespace pallistrom
