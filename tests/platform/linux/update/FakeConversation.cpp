// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FakeConversation.h"

#include <array>
#include <ostream>
#include <string_view>
#include <utility>

namespace pallistrom {

class FakeConversation::Driver final : public UpdateUserDriver {
public:
    explicit Driver(FakeConversation& windows) : m_windows(windows) {}

    ~Driver() override { dismiss(); }

    void showChecking(std::function<void()> cancel) override {
        m_windows.show(Window::Checking);
        m_windows.m_cancel = std::move(cancel);
    }

    void showUpToDate(const std::string& currentVersion) override {
        m_windows.show(Window::UpToDate, currentVersion);
    }

    void showOffer(const UpdateOffer& newest, std::function<void(OfferAnswer)> answer) override {
        m_windows.show(Window::Offer);
        m_windows.offer = newest;
        m_windows.m_answer = std::move(answer);
    }

    void showDownload(std::function<void()> cancel) override {
        m_windows.show(Window::Download);
        m_windows.m_cancel = std::move(cancel);
    }

    void showProgress(std::uint64_t soFar, std::uint64_t inAll) override {
        m_windows.received = soFar;
        m_windows.expected = inAll;
    }

    void showInstalling() override { m_windows.show(Window::Installing); }

    void showInstalled(const std::string& newVersion, std::function<void(bool)> answer) override {
        m_windows.show(Window::Installed, newVersion);
        m_windows.m_answerInstalled = std::move(answer);
    }

    void showPackageWay(const UpdateOffer& /*offer*/, const std::string& command) override {
        m_windows.show(Window::PackageWay, command);
    }

    void showFailure(const std::string& reason) override {
        m_windows.show(Window::Failure, reason);
    }

    bool bringToFront() override {
        const bool isOpen = m_windows.window != Window::None;
        m_windows.toFront += isOpen ? 1 : 0;
        return isOpen;
    }

    void dismiss() override { m_windows.show(Window::None); }

private:
    FakeConversation& m_windows;
};

std::unique_ptr<UpdateUserDriver> FakeConversation::makeDriver() {
    ++drivers;
    return std::make_unique<Driver>(*this);
}

// As with windows, what one of them was given is gone with it.
void FakeConversation::show(Window shown, std::string shownText) {
    window = shown;
    text = std::move(shownText);
    m_cancel = nullptr;
    m_answer = nullptr;
    m_answerInstalled = nullptr;
    if (shown != Window::None) {
        history.push_back(shown);
    }
}

void FakeConversation::cancel() {
    m_cancel();
}

void FakeConversation::answer(OfferAnswer answer) {
    m_answer(answer);
}

void FakeConversation::answerInstalled(bool restartNow) {
    m_answerInstalled(restartNow);
}

void PrintTo(FakeConversation::Window window, std::ostream* stream) {
    constexpr std::array<std::string_view, 9> names{"None",
                                                    "Checking",
                                                    "UpToDate",
                                                    "Offer",
                                                    "Download",
                                                    "Installing",
                                                    "Installed",
                                                    "PackageWay",
                                                    "Failure"};
    *stream << names.at(static_cast<std::size_t>(window));
}

} // namespace pallistrom
