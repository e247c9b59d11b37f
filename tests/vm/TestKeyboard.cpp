// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "TestKeyboard.h"

#include <libevdev/libevdev-uinput.h>
#include <libevdev/libevdev.h>

#include <initializer_list>
#include <system_error>
#include <tuple>

namespace pallistrom::vm {

namespace {

using Model = std::unique_ptr<libevdev, decltype([](libevdev* device) { libevdev_free(device); })>;

void enable(const Model& model, unsigned type, std::initializer_list<unsigned> codes) {
    for (const unsigned code : codes) {
        libevdev_enable_event_code(model.get(), type, code, nullptr);
    }
}

Model modelOf(const TestKeyboard::Description& description) {
    Model model{libevdev_new()};
    libevdev_set_name(model.get(), description.name.c_str());
    libevdev_set_id_bustype(model.get(), BUS_USB);
    libevdev_set_id_vendor(model.get(), 0x1209);
    libevdev_set_id_product(model.get(), description.product);
    libevdev_set_id_version(model.get(), 0x111);
    // All keys of a keyboard but KEY_RESERVED, and the further row of function keys.
    for (unsigned key = KEY_ESC; key <= KEY_MICMUTE; ++key) {
        enable(model, EV_KEY, {key});
    }
    enable(model, EV_MSC, {MSC_SCAN});
    if (description.repeats == TestKeyboard::Repeats::Kernel) {
        libevdev_enable_event_type(model.get(), EV_REP);
    }
    switch (description.extras) {
    case TestKeyboard::Extras::None:
        break;
    case TestKeyboard::Extras::Lights:
        enable(model, EV_LED, {LED_NUML, LED_CAPSL, LED_SCROLLL});
        break;
    case TestKeyboard::Extras::Pointer:
        enable(model, EV_REL, {REL_X, REL_Y, REL_WHEEL, REL_WHEEL_HI_RES});
        enable(model, EV_KEY, {BTN_LEFT, BTN_RIGHT, BTN_MIDDLE});
        break;
    }
    return model;
}

[[noreturn]] void fail(int error, const char* what) {
    throw std::system_error{-error, std::generic_category(), what};
}

} // namespace

TestKeyboard::TestKeyboard(const Description& description) {
    libevdev_uinput* device = nullptr;
    const int error = libevdev_uinput_create_from_device(
        modelOf(description).get(), LIBEVDEV_UINPUT_OPEN_MANAGED, &device);
    if (error < 0) {
        fail(error, "no keyboard can be made");
    }
    m_device.reset(device);
}

void TestKeyboard::send(EvdevCode key, KeyAction action) {
    m_down[key] = action == KeyAction::Press || (m_down[key] && action == KeyAction::Repeat);
    switch (action) {
    case KeyAction::Press:
        sendEvent(EV_KEY, key, 1);
        break;
    case KeyAction::Repeat:
        sendEvent(EV_KEY, key, 2);
        break;
    case KeyAction::Release:
        sendEvent(EV_KEY, key, 0);
        break;
    }
}

void TestKeyboard::tap(EvdevCode key) {
    press(key);
    release(key);
}

void TestKeyboard::releaseAll() {
    forEachKey(m_down, [this](EvdevCode key) { release(key); });
}

void TestKeyboard::sendEvent(std::uint16_t type, std::uint16_t code, std::int32_t value) {
    for (const auto& [eventType, eventCode, eventValue] :
         {std::tuple{type, code, value},
          std::tuple{std::uint16_t{EV_SYN}, std::uint16_t{SYN_REPORT}, 0}}) {
        const int error =
            libevdev_uinput_write_event(m_device.get(), eventType, eventCode, eventValue);
        if (error < 0) {
            fail(error, "the keyboard does not send");
        }
    }
}

std::filesystem::path TestKeyboard::node() const {
    const char* const path = libevdev_uinput_get_devnode(m_device.get());
    return path == nullptr ? std::filesystem::path{} : std::filesystem::path{path};
}

void TestKeyboard::Unplug::operator()(libevdev_uinput* device) const {
    libevdev_uinput_destroy(device);
}

} // namespace pallistrom::vm
