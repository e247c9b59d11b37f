// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "TestKeyboard.h"

#include <dirent.h>
#include <fcntl.h>
#include <libevdev/libevdev.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

namespace pallistrom {

namespace {

constexpr const char* folder = "/dev/input";

} // namespace

TestKeyboard::TestKeyboard(std::string name) : m_name(std::move(name)) {
    const std::unique_ptr<libevdev, void (*)(libevdev*)> device(libevdev_new(), libevdev_free);
    libevdev_set_name(device.get(), m_name.c_str());
    libevdev_set_id_bustype(device.get(), BUS_USB);
    for (unsigned key = KEY_ESC; key <= KEY_COMPOSE; ++key) {
        libevdev_enable_event_code(device.get(), EV_KEY, key, nullptr);
    }
    libevdev_enable_event_code(device.get(), EV_MSC, MSC_SCAN, nullptr);
    libevdev_uinput* made = nullptr;
    const int error =
        libevdev_uinput_create_from_device(device.get(), LIBEVDEV_UINPUT_OPEN_MANAGED, &made);
    if (error < 0) {
        throw std::system_error(-error, std::generic_category(), "no keyboard can be made");
    }
    m_keyboard.reset(made);
}

TestKeyboard::~TestKeyboard() {
    if (m_output >= 0) {
        ::close(m_output);
    }
}

std::string TestKeyboard::path() const {
    const char* const node = libevdev_uinput_get_devnode(m_keyboard.get());
    return node != nullptr ? node : "";
}

bool TestKeyboard::findOutput(std::chrono::seconds patience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (m_output < 0 && std::chrono::steady_clock::now() < end) {
        m_output = openOutput();
        // Nobody says when a node appears that udev has not been told of.
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return m_output >= 0;
}

int TestKeyboard::openOutput() const {
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder), closedir);
    const std::string own = path();
    // NOLINTNEXTLINE(concurrency-mt-unsafe): nobody else reads from this stream
    while (const dirent* const entry = entries ? readdir(entries.get()) : nullptr) {
        const std::string node = std::string(folder) + '/' + std::data(entry->d_name);
        const int descriptor = node == own || !node.starts_with("/dev/input/event")
                                   ? -1
                                   : ::open(node.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
        if (descriptor < 0) {
            continue;
        }
        std::array<char, 128> itsName{};
        ::ioctl(descriptor, EVIOCGNAME(itsName.size() - 1), itsName.data());
        if (std::string_view(itsName.data()) == m_name) {
            // Of the clock that tells when a key was sent.
            int clock = CLOCK_MONOTONIC;
            ::ioctl(descriptor, EVIOCSCLOCKID, &clock);
            return descriptor;
        }
        ::close(descriptor);
    }
    return -1;
}

void TestKeyboard::send(std::uint16_t key, std::int32_t value) const {
    std::array<input_event, 3> frame{};
    frame[0].type = EV_MSC;
    frame[0].code = MSC_SCAN;
    frame[0].value = key;
    frame[1].type = EV_KEY;
    frame[1].code = key;
    frame[1].value = value;
    if (::write(libevdev_uinput_get_fd(m_keyboard.get()), frame.data(), sizeof(frame)) < 0) {
        throw std::system_error(errno, std::generic_category(), "the keyboard takes no keys");
    }
}

std::optional<input_event> TestKeyboard::next(std::chrono::milliseconds patience) {
    input_event event{};
    for (;;) {
        pollfd waiter{.fd = m_output, .events = POLLIN, .revents = 0};
        if (::poll(&waiter, 1, static_cast<int>(patience.count())) <= 0) {
            return std::nullopt;
        }
        while (::read(m_output, &event, sizeof(event)) == sizeof(event)) {
            if (event.type == EV_KEY && event.value != 2) {
                return event;
            }
        }
    }
}

} // namespace pallistrom
