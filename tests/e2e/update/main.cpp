// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/Application.h"
#include "platform/linux/ThisProgram.h"
#include "platform/linux/application/QtApplication.h"
#include "platform/linux/update/UpdateUserDriver.h"

#include <QSocketNotifier>

#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <sstream>
#include <string>

// The update conversation, led by whoever writes to standard input: a step on each line, as
// "offer 2.0" or "progress 10 20". Says what the user answers.

namespace {

using namespace pallistrom;

void say(const std::string& words) {
    std::cout << words << std::endl;
}

UpdateOffer offerOf(const std::string& words) {
    UpdateOffer offer{.newVersion = words.substr(0, words.find(' ')),
                      .currentVersion = "1.0",
                      .notes = "Control-W deletes <b>words</b>.\nSo it did before.",
                      .link = {},
                      .kind = InstallKind::ReplaceItself,
                      .isCritical = words.find("critical") != std::string::npos};
    if (words.find("package") != std::string::npos) {
        offer.kind = InstallKind::Package;
    }
    return offer;
}

void sayAnswer(OfferAnswer answer) {
    switch (answer) {
    case OfferAnswer::Skip:
        return say("skip");
    case OfferAnswer::Later:
        return say("later");
    case OfferAnswer::Install:
        return say("install");
    }
}

class Leader {
public:
    void follow(const std::string& line) {
        const std::size_t space = line.find(' ');
        const std::string step = line.substr(0, space);
        const std::string rest = space == std::string::npos ? "" : line.substr(space + 1);
        if (const auto found = m_steps.find(step); found != m_steps.end()) {
            found->second(rest);
            say("done " + step);
        } else {
            say("what is " + step + '?');
        }
    }

private:
    void showProgress(const std::string& words) {
        std::istringstream numbers(words);
        std::uint64_t received = 0;
        std::uint64_t expected = 0;
        numbers >> received >> expected;
        m_driver->showProgress(received, expected);
    }

    static void sayCancelled() { say("cancelled"); }

    std::unique_ptr<UpdateUserDriver> m_driver = UpdateUserDriver::standardUserDriver();
    std::map<std::string, std::function<void(const std::string&)>> m_steps{
        {"checking",
         [this](const auto& /*words*/) {
             m_driver->showChecking(sayCancelled);
         }},
        {"up-to-date",
         [this](const auto& version) {
             m_driver->showUpToDate(version);
         }},
        {"offer",
         [this](const auto& words) {
             m_driver->showOffer(offerOf(words), sayAnswer);
         }},
        {"download",
         [this](const auto& /*words*/) {
             m_driver->showDownload(sayCancelled);
         }},
        {"progress",
         [this](const auto& words) {
             showProgress(words);
         }},
        {"installing",
         [this](const auto& /*words*/) {
             m_driver->showInstalling();
         }},
        {"installed",
         [this](const auto& version) {
             m_driver->showInstalled(version,
                                     [](bool now) { say(now ? "restart" : "no restart"); });
         }},
        {"package",
         [this](const auto& command) {
             m_driver->showPackageWay(offerOf("2.0"), command);
         }},
        {"failure",
         [this](const auto& reason) {
             m_driver->showFailure(reason);
         }},
        {"front",
         [this](const auto& /*words*/) {
             say(m_driver->bringToFront() ? "there" : "nothing");
         }},
        {"restart",
         [](const auto& /*words*/) {
             qtApplication().restart(ThisProgram::file());
         }},
        {"dismiss",
         [this](const auto& /*words*/) {
             m_driver->dismiss();
         }},
    };
};

} // namespace

int main(int argc, char** argv) {
    Application& application = Application::sharedApplication(argc, argv);
    Leader leader;
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &input, [&] {
        std::string line;
        // Each step waits for its answer, so there is one line at a time.
        if (std::getline(std::cin, line)) {
            leader.follow(line);
        } else {
            application.terminate();
        }
    });
    const int status = application.run();
    std::_Exit(status);
}
