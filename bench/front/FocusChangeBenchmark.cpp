// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ChildProcess.h"
#include "EventLoop.h"
#include "FrontStage.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

// What it costs the desktop program that another window comes to the front: processor time of its
// thread, from the compositor's words, which are on the same thread here and count as well, to the
// message that the keyboard service is sent. Beside it what a message alone costs, which is the
// least that anybody could do. Fails above the aim.

namespace {

using namespace pallistrom;
using Microseconds = std::chrono::duration<double, std::micro>;

constexpr Microseconds aim = std::chrono::milliseconds(1);
constexpr int changes = 50; // More would take long: only so many are told in a second.

Microseconds processorTime() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

double medianOf(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

class FocusChange {
public:
    FocusChange() {
        require(m_loop.runUntil([this] { return !m_stage.service().obstacle(); }));
        require(m_stage.start());
        // Not before it is known that the terminal is in front, which is the last thing to be said.
        const Deadline deadline;
        while (!hasHeard("SetFrontApplication 1")) {
            require(!deadline.hasPassed());
            m_loop.drain();
        }
    }

    void measure() {
        for (int i = 0; i < changes; ++i) {
            m_changes.push_back(cost(
                [&] { m_stage.bringToFront(i % 2 == 0 ? m_stage.editor : m_stage.terminal); }));
            m_messages.push_back(cost([&] {
                m_stage.service().setFrontApplication(FrontApplication::EditsBySelection);
            }));
        }
    }

    [[nodiscard]] bool report() const {
        const double ours = medianOf(m_changes);
        const double message = medianOf(m_messages);
        std::printf("%-44s %8.1f us\n", "a change of the window in front", ours);
        std::printf("%-44s %8.1f us\n", "a message to the service alone", message);
        std::printf("%-44s %8.2f\n", "ratio", ours / message);
        const bool isFine = ours < aim.count();
        std::printf("%s\n", isFine ? "The aim, below 1 ms, is reached." : "FAILED: above 1 ms.");
        return isFine;
    }

private:
    static void require(bool isSo) {
        if (!isSo) {
            throw std::runtime_error("the desktop does not come up");
        }
    }

    [[nodiscard]] bool hasHeard(const std::string& entry) {
        while (const auto line = m_service.readLine(Deadline{std::chrono::milliseconds{5}})) {
            if (*line == entry) {
                return true;
            }
        }
        return false;
    }

    // Processor time of `action` and of all that follows from it in this thread; the service hears
    // one message of it.
    template<typename Action>
    double cost(const Action& action) {
        const Microseconds before = processorTime();
        action();
        m_loop.drain();
        Microseconds spent = processorTime() - before;
        const Deadline deadline;
        // Where there were many within a second it is held back, and sent by a timer.
        while (!m_service.readLine(Deadline{std::chrono::milliseconds{100}})) {
            if (deadline.hasPassed()) {
                throw std::runtime_error("the service hears nothing");
            }
            const Microseconds again = processorTime();
            m_loop.drain();
            spent += processorTime() - again;
        }
        return spent.count();
    }

    EventLoop m_loop;
    FrontStage m_stage;
    ChildProcess m_service{{.arguments = {FAKE_KEYBOARD_SERVICE, "0"},
                            .environment = {{"DBUS_SYSTEM_BUS_ADDRESS",
                                             Environment::value("DBUS_SYSTEM_BUS_ADDRESS")}}}};
    std::vector<double> m_changes;
    std::vector<double> m_messages;
};

} // namespace

int main() {
    try {
        FocusChange focus;
        focus.measure();
        return focus.report() ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
}
