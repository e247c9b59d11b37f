// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <libevdev/libevdev-uinput.h>
#include <libevdev/libevdev.h>
#include <sys/epoll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <thread>

// The least that anybody can do who stands between a keyboard and the session: waits for what a
// keyboard sends, and passes it on. It is what the service is measured against, and no more: it
// knows no shortcuts, takes what is down for up, and ends when anything goes wrong.
//
//     grab_forward_floor /dev/input/eventN
int main(int argc, char** argv) {
    const int keyboard = argc == 2 ? ::open(argv[1], O_RDWR | O_CLOEXEC | O_NONBLOCK) : -1;
    libevdev* device = nullptr;
    libevdev_uinput* output = nullptr;
    if (keyboard < 0 || libevdev_new_from_fd(keyboard, &device) < 0 ||
        libevdev_uinput_create_from_device(device, LIBEVDEV_UINPUT_OPEN_MANAGED, &output) < 0) {
        std::perror("grab_forward_floor");
        return 1;
    }
    // For whoever measures, to open the output.
    std::this_thread::sleep_for(std::chrono::seconds{1});

    const int waiter = epoll_create1(EPOLL_CLOEXEC);
    epoll_event interest{};
    interest.events = EPOLLIN;
    epoll_ctl(waiter, EPOLL_CTL_ADD, keyboard, &interest);
    if (::ioctl(keyboard, EVIOCGRAB, 1) < 0) {
        std::perror("grab_forward_floor");
        return 1;
    }
    const int out = libevdev_uinput_get_fd(output);
    std::array<input_event, 64> events{};
    // What was typed before the grab has gone its own way.
    while (::read(keyboard, events.data(), sizeof(events)) > 0) {
    }
    while (epoll_wait(waiter, &interest, 1, -1) > 0) {
        const auto size = ::read(keyboard, events.data(), sizeof(events));
        if (size <= 0 || ::write(out, events.data(), static_cast<std::size_t>(size)) != size) {
            return 1;
        }
    }
    return 1;
}
