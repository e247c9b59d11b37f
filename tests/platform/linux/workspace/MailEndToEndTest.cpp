// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ChildProcess.h"
#include "Deadline.h"
#include "Home.h"
#include "MailProgram.h"
#include "Tools.h"
#include "XServer.h"

#include <gtest/gtest.h>

#include <string>

namespace pallistrom::e2e {

namespace {

TEST(Mail, arrivesAtTheMailProgramByteForByteAndIsNotWaitedFor) {
    const std::string missing = missingPrograms({"Xvfb", "xdg-open", OPEN_URL});
    if (!missing.empty()) {
        GTEST_SKIP() << missing;
    }
    const Home home;
    const MailProgram mail{home};
    const Home serverHome;
    const XServer server({.arguments = {"Xvfb", "-screen", "0", "640x480x24"},
                          .environment = serverHome.environment("")});
    const std::string link =
        "mailto:support@pallistrom.invalid?subject=Pallistrom%202.0%20%E2%80%94%20issue%20report"
        "&body=Describe%20what%20happened:%0A%0A%0A---%0A100%25%20%2B%20%26%20%3D%20%23%20%22%27"
        "%5C%24(a)%60b%60%0AmacOS:%2015.1.0";
    ChildProcess opener(
        {.arguments = {OPEN_URL, link}, .environment = home.environment(server.name())});
    EXPECT_EQ(opener.readLine(), "taken");
    EXPECT_EQ(opener.wait(), 0);
    EXPECT_FALSE(mail.hasLink());

    mail.openGate();
    ASSERT_TRUE(waitUntil([&] { return mail.hasLink(); }));
    EXPECT_EQ(mail.link(), link);
}

} // namespace

} // namespace pallistrom::e2e
