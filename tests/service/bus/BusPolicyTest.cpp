// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Client.h"
#include "InChildProcess.h"
#include "SystemBus.h"
#include "TemporaryFolder.h"
#include "pallistrom/Names.h"
#include "service/bus/KeyboardObject.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <stdexcept>
#include <string>

// What the files that are installed say of the bus, against what is.

namespace pallistrom {

namespace {

std::string textOf(const std::string& path) {
    std::ifstream stream{path};
    return {std::istreambuf_iterator<char>{stream}, {}};
}

// The policy that is installed, with this test's user in the service's place.
void putPolicy(const std::filesystem::path& file) {
    std::string text = textOf(POLICY_FILE);
    const std::string user = "user=\"pallistrom\"";
    const auto found = text.find(user);
    if (found == std::string::npos) {
        throw std::runtime_error{"the policy speaks of nobody"};
    }
    const passwd* const me = getpwuid(getuid()); // NOLINT(concurrency-mt-unsafe)
    text.replace(found, user.size(), std::string{"user=\""} + me->pw_name + "\"");
    std::ofstream{file} << text;
}

/// The elements of one interface, each with those of its attributes that matter, in order.
std::multiset<std::string> elementsOf(const std::string& text) {
    const auto begin = text.find("<interface name=\"org.pallistrom.Keyboard1\"");
    const auto end = text.find("</interface>", begin);
    if (begin == std::string::npos || end == std::string::npos) {
        return {};
    }
    const std::string part = text.substr(begin, end - begin);
    std::multiset<std::string> elements;
    std::string parent;
    const std::regex element{"<(method|signal|property|arg) ([^>]*)>"};
    const std::regex attribute{"(name|type|direction|access)=\"([^\"]*)\""};
    for (std::sregex_iterator one{part.begin(), part.end(), element}, last; one != last; ++one) {
        std::set<std::string> attributes;
        const std::string list = (*one)[2];
        for (std::sregex_iterator each{list.begin(), list.end(), attribute}; each != last; ++each) {
            attributes.insert(each->str());
        }
        std::string line = (*one)[1];
        for (const std::string& each : attributes) {
            line += " " + each;
        }
        if ((*one)[1] == "arg") {
            line = parent + ": " + line;
        } else {
            parent = line;
        }
        elements.insert(line);
    }
    return elements;
}

} // namespace

TEST(BusPolicy, givesTheNameToTheServicesUserAlone) {
    if (getuid() != 0) {
        GTEST_SKIP() << "only the superuser can connect as somebody else";
    }
    const TemporaryFolder folder;
    putPolicy(folder.path() / "policy.conf");
    const SystemBus bus{folder.path() / "policy.conf"};
    const Loop loop;
    const Connection thief{loop, InChildProcess::nobody};
    EXPECT_THROW(thief.own(Names::keyboardBusName.data()), std::runtime_error);
    const Connection service{loop};
    EXPECT_NO_THROW(service.own(Names::keyboardBusName.data()));
    EXPECT_THROW(service.own("org.pallistrom.Other"), std::runtime_error);
}

TEST(BusPolicy, letsAnybodyCallTheInterfaceAndNothingElse) {
    if (getuid() != 0) {
        GTEST_SKIP() << "only the superuser can connect as somebody else";
    }
    const TemporaryFolder folder;
    putPolicy(folder.path() / "policy.conf");
    const SystemBus bus{folder.path() / "policy.conf"};
    const Loop loop;
    const Connection service{loop};
    service.own(Names::keyboardBusName.data());
    Client client{loop, InChildProcess::nobody};
    const auto allowed = client.call("GetAccess");
    OwnedMessage other;
    ASSERT_GE(into(other,
                   [&](sd_bus_message** made) {
                       return sd_bus_message_new_method_call(client.connection().get(),
                                                             made,
                                                             Names::keyboardBusName.data(),
                                                             "/x",
                                                             "org.example.Other",
                                                             "Do");
                   }),
              0);
    const auto refused = client.send(std::move(other));
    ASSERT_TRUE(loop.runUntil([&] { return allowed->isHere && refused->isHere; }));
    // It has no such object here, but it was reached.
    EXPECT_EQ(allowed->error, "org.freedesktop.DBus.Error.UnknownObject");
    EXPECT_EQ(refused->error, "org.freedesktop.DBus.Error.AccessDenied");
}

TEST(BusInterface, isTheOneThatIsInstalled) {
    const SystemBus bus;
    const Loop loop;
    const Connection service{loop};
    KeyboardObject object{[](const std::string& /*caller*/, const PendingCall& /*call*/) {
    }};
    ASSERT_GE(object.publish(service.get()), 0);
    service.own(Names::keyboardBusName.data());
    const Connection client{loop};
    OwnedMessage call;
    ASSERT_GE(into(call,
                   [&](sd_bus_message** made) {
                       return sd_bus_message_new_method_call(client.get(),
                                                             made,
                                                             Names::keyboardBusName.data(),
                                                             Names::keyboardObject.data(),
                                                             "org.freedesktop.DBus.Introspectable",
                                                             "Introspect");
                   }),
              0);
    std::string text;
    ASSERT_GE(sd_bus_call_async(
                  client.get(),
                  nullptr,
                  call.get(),
                  [](sd_bus_message* answer, void* result, sd_bus_error* /*error*/) {
                      const char* xml = nullptr;
                      if (sd_bus_message_read(answer, "s", &xml) > 0) {
                          *static_cast<std::string*>(result) = xml;
                      }
                      return 1;
                  },
                  &text,
                  0),
              0);
    ASSERT_TRUE(loop.runUntil([&] { return !text.empty(); }));
    EXPECT_EQ(elementsOf(text), elementsOf(textOf(INTERFACE_FILE)));
    EXPECT_GT(elementsOf(text).size(), 10U);
}

} // namespace pallistrom
