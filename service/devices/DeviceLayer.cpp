// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/devices/DeviceLayer.h"

#include "platform/Log.h"
#include "platform/Precondition.h"

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

namespace pallistrom {

namespace {

std::string reason(int error) {
    return std::generic_category().message(error);
}

} // namespace

DeviceLayer::DeviceLayer(sd_event& loop, ProgramsKeyboards programs)
    : m_loop(loop), m_programs(programs), m_watch(loop, *this), m_keyboards(*this) {
    const auto woken = [](sd_event_source*, std::uint64_t, void* data) {
        static_cast<DeviceLayer*>(data)->m_keyboards.wake();
        return 0;
    };
    sd_event_source* wake = nullptr;
    // The exact moment: a pause is long enough as it is.
    constexpr std::uint64_t accuracy = 1;
    if (sd_event_add_time(&loop, &wake, CLOCK_MONOTONIC, 0, accuracy, woken, this) < 0) {
        preconditionFailure("there is no timer");
    }
    m_wake.reset(wake);
    sd_event_source_set_enabled(wake, SD_EVENT_OFF);
    sd_event_source_set_priority(wake, EvdevKeyboard::priority);
}

DeviceLayer::~DeviceLayer() = default;

Moment DeviceLayer::now() {
    std::uint64_t microseconds = 0;
    sd_event_now(&m_loop, CLOCK_MONOTONIC, &microseconds);
    return Moment(microseconds);
}

void DeviceLayer::wakeAt(Moment moment) {
    sd_event_source_set_time(m_wake.get(), static_cast<std::uint64_t>(moment.count()));
    sd_event_source_set_enabled(m_wake.get(), SD_EVENT_ONESHOT);
}

void DeviceLayer::lookForKeyboards() {
    m_watch.start();
    if (std::exchange(m_hasToLook, false)) {
        m_watch.look();
    }
}

bool DeviceLayer::canMakeKeyboards() const {
    return VirtualDevice::canBeMade();
}

void DeviceLayer::readable(EvdevKeyboard& keyboard) {
    if (const auto number = numberOf(keyboard)) {
        m_keyboards.serve(*number);
    }
}

void DeviceLayer::ready(EvdevKeyboard& keyboard) {
    if (const auto number = numberOf(keyboard)) {
        m_keyboards.tryAgain(*number);
    }
}

void DeviceLayer::destroyed(EvdevKeyboard& keyboard) {
    const auto of = [&](const Known& each) {
        return each.device == &keyboard;
    };
    m_known.erase(std::remove_if(m_known.begin(), m_known.end(), of), m_known.end());
}

void DeviceLayer::found(const std::string& path, std::string_view place) {
    if (const auto number = numberAt(path)) {
        m_keyboards.tryAgain(*number);
    } else {
        open(path, place);
    }
}

void DeviceLayer::lost(const std::string& path) {
    if (const auto number = numberAt(path)) {
        m_keyboards.remove(*number);
    }
}

void DeviceLayer::open(const std::string& path, std::string_view place) {
    auto node = InputNode::open(path);
    if (!node) {
        if (errno == EACCES || errno == EPERM) {
            m_watch.waitForRights(path);
        } else if (errno != ENOENT && errno != ENODEV && errno != ENXIO) {
            NSLog("Pallistrom: " + path + " cannot be opened: " + reason(errno));
        }
        return;
    }
    const DeviceFacts facts = node->facts(place);
    if (facts.maker == DeviceMaker::ThisService) {
        virtualDeviceFound(std::move(*node), place);
        return;
    }
    switch (classOf(facts, m_programs)) {
    case DeviceClass::LeftAlone:
        break;
    case DeviceClass::Keyboard:
        add(std::move(*node), EvdevKeyboard::Pointer::None);
        break;
    case DeviceClass::KeyboardWithPointer:
        add(std::move(*node), EvdevKeyboard::Pointer::Too);
        break;
    }
}

void DeviceLayer::add(InputNode node, EvdevKeyboard::Pointer pointer) {
    const std::string path = node.path();
    auto device = EvdevKeyboard::make(std::move(node), pointer, m_loop, *this);
    if (!device) {
        NSLog("Pallistrom: there is no virtual keyboard for " + path + ": " + reason(errno));
        m_hasToLook = true; // The next time that somebody wants keyboards.
        return;
    }
    EvdevKeyboard* const keyboard = device.get();
    if (const auto number = m_keyboards.add(std::move(device))) {
        m_known.push_back({keyboard, *number});
    }
}

void DeviceLayer::virtualDeviceFound(InputNode node, std::string_view place) {
    for (const Known& each : m_known) {
        // The event node lies in the folder of the device.
        if (place.starts_with(std::string(each.device->placeOfVirtualKeyboard()) + '/')) {
            each.device->virtualKeyboardIsThere(std::move(node));
            return;
        }
    }
}

std::optional<KeyboardNumber> DeviceLayer::numberAt(const std::string& path) const {
    for (const Known& each : m_known) {
        if (each.device->path() == path) {
            return each.number;
        }
    }
    return std::nullopt;
}

std::optional<KeyboardNumber> DeviceLayer::numberOf(const EvdevKeyboard& keyboard) const {
    for (const Known& each : m_known) {
        if (each.device == &keyboard) {
            return each.number;
        }
    }
    return std::nullopt;
}

} // namespace pallistrom
