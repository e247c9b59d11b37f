// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/UpdateUserDriver.h"

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

namespace pallistrom {

/// The windows of an update check, and the user before them.
class FakeConversation {
public:
    enum class Window : std::uint8_t {
        None,
        Checking,
        UpToDate,
        Offer,
        Download,
        Installing,
        Installed,
        PackageWay,
        Failure,
    };

    /// Returns the driver that shows these windows. It does not outlive this.
    [[nodiscard]] std::unique_ptr<UpdateUserDriver> makeDriver();

    Window window = Window::None;
    std::vector<Window> history; ///< all that were shown
    UpdateOffer offer;           ///< that was shown last
    std::string text;            ///< of the window, whatever it is
    std::uint64_t received = 0;
    std::uint64_t expected = 0;
    int toFront = 0; ///< how often it was brought there
    int drivers = 0; ///< how many were made

    void cancel();
    void answer(OfferAnswer answer);
    void answerInstalled(bool restartNow);

private:
    class Driver;

    void show(Window shown, std::string shownText = {});

    std::function<void()> m_cancel;
    std::function<void(OfferAnswer)> m_answer;
    std::function<void(bool)> m_answerInstalled;
};

void PrintTo(FakeConversation::Window window, std::ostream* stream);

} // namespace pallistrom
