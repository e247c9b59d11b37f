// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FakeBusService.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <unistd.h>

#include <iostream>
#include <string>

// A keyboard service of the tests' own as a program: fake_keyboard_service ACCESS. Writes down what
// it is asked, a line each. Takes lines itself: "access N" changes the access, "grant N" answers
// the request that is open.

namespace {

void obey(pallistrom::FakeBusService& service) {
    std::string order;
    std::uint32_t number = 0;
    if (!(std::cin >> order >> number)) {
        QCoreApplication::quit();
    } else if (order == "access") {
        service.changeAccess(number);
    } else if (order == "grant") {
        service.closeGrant(number);
    }
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    pallistrom::FakeBusService service(
        {.access = static_cast<std::uint32_t>(argc > 1 ? std::stoul(argv[1]) : 0),
         .keepsGrantOpen = true});
    service.tell = [](const std::string& entry) {
        std::cout << entry << std::endl;
    };
    const QSocketNotifier orders(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&orders, &QSocketNotifier::activated, &orders, [&service] {
        // What is read along with a line wakes nobody.
        do {
            obey(service);
        } while (std::cin && std::cin.rdbuf()->in_avail() > 1);
    });
    return QCoreApplication::exec();
}
