// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/loginitem/LoginItemRules.h"

#include "platform/linux/applications/DesktopEntryLines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

namespace pallistrom {

namespace {

using enum SMAppServiceStatus;
using LoginItemRules::Program;
using LoginItemRules::Session;

// A session with us in /opt/us, another program in /bin/other, and nothing else.
Session sessionOf(std::vector<std::string> desktops = {"XFCE"}) {
    return {
        .desktops = std::move(desktops), .program = "/opt/us", .find = [](const std::string& name) {
            if (name == "/opt/us" || name == "us") {
                return Program::Ours;
            }
            return name == "/bin/other" || name == "sh" ? Program::Other : Program::Missing;
        }};
}

std::string entry(std::string_view rest) {
    return "[Desktop Entry]\nType=Application\n" + std::string(rest);
}

struct Case {
    std::string_view name;
    std::string text;
    SMAppServiceStatus status;
};

void PrintTo(const Case& value, std::ostream* stream) {
    *stream << value.name;
}

class LoginItemStatus : public testing::TestWithParam<Case> {};

TEST_P(LoginItemStatus, followsTheEntry) {
    EXPECT_EQ(LoginItemRules::status(GetParam().text, sessionOf()), GetParam().status)
        << GetParam().text;
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(
    Each,
    LoginItemStatus,
    testing::Values(
        Case{"thatStartsUs", entry("Exec=/opt/us\n"), SMAppServiceStatusEnabled},
        Case{"byAName", entry("Exec=us\nTryExec=us\n"), SMAppServiceStatusEnabled},
        Case{"withArguments", entry("Exec=/opt/us %U\n"), SMAppServiceStatusEnabled},
        Case{"byAnotherCommand", entry("Exec=sh /opt/us\n"), SMAppServiceStatusEnabled},
        Case{"byAShellLine", entry("Exec=sh -c \"sleep 5; us\"\nTryExec=/opt/us\n"), SMAppServiceStatusEnabled},
        Case{"thatNobodyHasHidden", entry("Exec=/opt/us\nHidden=false\nX-GNOME-Autostart-enabled=true\n"), SMAppServiceStatusEnabled},
        Case{"thatIsForUs", entry("Exec=/opt/us\nOnlyShowIn=KDE;XFCE;\n"), SMAppServiceStatusEnabled},
        Case{"thatIsNotForOthers", entry("Exec=/opt/us\nNotShowIn=KDE;\n"), SMAppServiceStatusEnabled},
        Case{"thatIsHiddenInAnotherLanguageOnly", entry("Exec=/opt/us\nHidden[de]=true\n"), SMAppServiceStatusEnabled},
        Case{"thatIsHiddenInAnotherGroupOnly", entry("Exec=/opt/us\n[Other]\nHidden=true\n"), SMAppServiceStatusEnabled},
        Case{"withNonsenseForTruth", entry("Exec=/opt/us\nHidden=maybe\nX-GNOME-Autostart-enabled=\n"), SMAppServiceStatusEnabled},

        Case{"hidden", entry("Exec=/opt/us\nHidden=true\n"), SMAppServiceStatusNotRegistered},
        Case{"switchedOff", entry("Exec=/opt/us\nX-GNOME-Autostart-enabled=false\n"), SMAppServiceStatusNotRegistered},
        Case{"hiddenLater", entry("Exec=/opt/us\nHidden=false\nHidden=true\n"), SMAppServiceStatusNotRegistered},
        Case{"forOthers", entry("Exec=/opt/us\nOnlyShowIn=KDE;\n"), SMAppServiceStatusNotRegistered},
        Case{"forNobody", entry("Exec=/opt/us\nOnlyShowIn=\n"), SMAppServiceStatusNotRegistered},
        Case{"notForUs", entry("Exec=/opt/us\nNotShowIn=XFCE\n"), SMAppServiceStatusNotRegistered},
        Case{"hiddenAndNoLongerWished", entry("Exec=/opt/us\nHidden=true\nX-Pallistrom-LaunchAtLogin=false\n"), SMAppServiceStatusNotRegistered},

        Case{"hiddenThoughWished", entry("Exec=/opt/us\nX-Pallistrom-LaunchAtLogin=true\nHidden=true\n"), SMAppServiceStatusRequiresApproval},
        Case{"switchedOffThoughWished", entry("Exec=/opt/us\nX-Pallistrom-LaunchAtLogin=true\nX-GNOME-Autostart-enabled=false\n"), SMAppServiceStatusRequiresApproval},
        Case{"forOthersThoughWished", entry("Exec=/opt/us\nX-Pallistrom-LaunchAtLogin=true\nOnlyShowIn=KDE;\n"), SMAppServiceStatusRequiresApproval},
        Case{"hiddenThoughWishedAndGone", entry("Exec=/opt/gone\nX-Pallistrom-LaunchAtLogin=true\nHidden=true\n"), SMAppServiceStatusRequiresApproval},

        Case{"ofAnotherProgram", entry("Exec=/bin/other\n"), SMAppServiceStatusNotFound},
        Case{"ofAnotherProgramThatTriesUs", entry("Exec=/bin/other\nTryExec=/opt/us\n"), SMAppServiceStatusNotFound},
        Case{"ofAProgramThatIsGone", entry("Exec=/opt/gone\nX-Pallistrom-LaunchAtLogin=true\n"), SMAppServiceStatusNotFound},
        Case{"thatTriesAProgramThatIsGone", entry("Exec=/opt/us\nTryExec=/opt/gone\n"), SMAppServiceStatusNotFound},
        Case{"byACommandThatIsGone", entry("Exec=gone /opt/us\n"), SMAppServiceStatusNotFound},
        Case{"withoutACommand", entry(""), SMAppServiceStatusNotFound},
        Case{"withAnOpenQuote", entry("Exec=\"/opt/us\n"), SMAppServiceStatusNotFound},
        Case{"ofAnotherType", "[Desktop Entry]\nType=Link\nExec=/opt/us\n", SMAppServiceStatusNotFound},
        Case{"withAnotherGroupFirst", "[Other]\na=b\n[Desktop Entry]\nType=Application\nExec=/opt/us\n", SMAppServiceStatusNotFound},
        Case{"withALineThatIsNone", entry("Exec=/opt/us\nrubbish\n"), SMAppServiceStatusNotFound},
        Case{"withoutAGroup", "Type=Application\nExec=/opt/us\n", SMAppServiceStatusNotFound},
        Case{"thatIsEmpty", "", SMAppServiceStatusNotFound},
        Case{"ofZeros", std::string(100, '\0'), SMAppServiceStatusNotFound}),
    [](const auto& each) { return std::string(each.param.name); });

// clang-format on

TEST(LoginItemStatusWithoutAnEntry, isNotRegistered) {
    EXPECT_EQ(LoginItemRules::status(std::nullopt, sessionOf()), SMAppServiceStatusNotRegistered);
}

TEST(LoginItemStatusInASession, goesByTheFirstDesktopThatIsNamed) {
    const auto text = entry("Exec=/opt/us\nOnlyShowIn=Unity;GNOME;\nNotShowIn=ubuntu;\n");
    const auto status = [&](std::vector<std::string> desktops) {
        return LoginItemRules::status(text, sessionOf(std::move(desktops)));
    };
    EXPECT_EQ(status({"ubuntu", "GNOME"}), SMAppServiceStatusNotRegistered);
    EXPECT_EQ(status({"GNOME", "ubuntu"}), SMAppServiceStatusEnabled);
    EXPECT_EQ(status({}), SMAppServiceStatusNotRegistered);
    EXPECT_EQ(LoginItemRules::status(entry("Exec=us\n"), sessionOf({})), SMAppServiceStatusEnabled);
}

// --- What is written.

std::string valueOf(std::string_view text, std::string_view key) {
    std::string result = "(none)";
    DesktopEntryLines::forEachValue(
        text, DesktopEntryLines::mainGroup, [&](std::string_view name, std::string_view value) {
            result = name == key ? std::string(value) : result;
        });
    return result;
}

TEST(LoginItemText, thatEnablesEnablesWhateverWasThere) {
    const std::vector<std::optional<std::string>> before{
        std::nullopt,
        "",
        "rubbish",
        entry("Exec=/opt/gone\nHidden=true\n"),
        entry("Exec=/opt/us\nX-GNOME-Autostart-enabled=false\n"),
        entry("Exec=/opt/us\nOnlyShowIn=KDE;\n"),
        entry("Exec=/opt/us\nNotShowIn=XFCE;KDE\n"),
        entry("Exec=/opt/us\nOnlyShowIn=KDE;\nNotShowIn=XFCE;\n"),
        "[Desktop Entry]\r\nType=Link\r\nTryExec=gone\r\n[Other]\r\nHidden=true",
    };
    for (const auto& text : before) {
        for (const auto& session : {sessionOf(), sessionOf({}), sessionOf({"a", "XFCE"})}) {
            const auto result = LoginItemRules::textToEnable(text, session);
            EXPECT_EQ(LoginItemRules::status(result, session), SMAppServiceStatusEnabled) << result;
            EXPECT_EQ(valueOf(result, "TryExec"), "/opt/us");
            EXPECT_EQ(valueOf(result, "X-Pallistrom-LaunchAtLogin"), "true");
            EXPECT_EQ(LoginItemRules::textToEnable(result, session), result);
        }
    }
}

TEST(LoginItemText, thatEnablesKeepsWhatOthersHaveWritten) {
    EXPECT_EQ(LoginItemRules::textToEnable("# mine\n"
                                           "[Desktop Entry]\n"
                                           "Type=Application\n"
                                           "Name[de]=Hallo\n"
                                           "Exec = sh -c 'sleep 3; us' /opt/us\n"
                                           "Hidden=true\n"
                                           "\n"
                                           "# Theirs.\n"
                                           "[Desktop Action x]\n"
                                           "Hidden=true\n",
                                           sessionOf()),
              "# mine\n"
              "[Desktop Entry]\n"
              "Type=Application\n"
              "Name[de]=Hallo\n"
              "Exec = sh -c 'sleep 3; us' /opt/us\n"
              "Hidden=false\n"
              "TryExec=/opt/us\n"
              "X-GNOME-Autostart-enabled=true\n"
              "X-Pallistrom-LaunchAtLogin=true\n"
              "\n"
              "# Theirs.\n"
              "[Desktop Action x]\n"
              "Hidden=true\n");
}

TEST(LoginItemText, thatEnablesKeepsTheDesktopsOfOthers) {
    const auto session = sessionOf({"XFCE", "X"});
    const auto only = entry("Exec=/opt/us\nOnlyShowIn=KDE;\n");
    EXPECT_EQ(valueOf(LoginItemRules::textToEnable(only, session), "OnlyShowIn"), "KDE;XFCE;");
    const auto without = entry("Exec=/opt/us\nNotShowIn=X;KDE;XFCE\n");
    EXPECT_EQ(valueOf(LoginItemRules::textToEnable(without, session), "NotShowIn"), "KDE;");
    const auto all = entry("Exec=/opt/us\nNotShowIn=KDE;\n");
    EXPECT_EQ(valueOf(LoginItemRules::textToEnable(all, session), "NotShowIn"), "KDE;");
}

TEST(LoginItemText, writesAnyPathOfTheProgram) {
    for (const std::string path :
         {"/a b/us", R"(/"q"/$x`y`\z/us)", "/100%/us", "/ü/us ", "/n\n/us"}) {
        Session session = sessionOf();
        session.program = path;
        session.find = [&](const std::string& name) {
            return name == path ? Program::Ours : Program::Missing;
        };
        const auto text = LoginItemRules::textToEnable(std::nullopt, session);
        EXPECT_EQ(LoginItemRules::status(text, session), SMAppServiceStatusEnabled) << text;
    }
}

TEST(LoginItemText, isNotNeededOnceWeAreDisabledAndNobodyHasChangedOurs) {
    const auto ours = LoginItemRules::textToEnable(std::nullopt, sessionOf());
    EXPECT_EQ(LoginItemRules::textToDisable(ours, std::nullopt, sessionOf()), std::nullopt);
}

TEST(LoginItemText, thatDisablesKeepsWhatOthersHaveWritten) {
    const auto ours = LoginItemRules::textToEnable(std::nullopt, sessionOf());
    const auto result =
        LoginItemRules::textToDisable(ours + "Comment[de]=Meins\n", std::nullopt, sessionOf());
    ASSERT_TRUE(result);
    EXPECT_EQ(valueOf(*result, "Hidden"), "true");
    EXPECT_EQ(valueOf(*result, "Comment[de]"), "Meins");
    EXPECT_EQ(LoginItemRules::status(*result, sessionOf()), SMAppServiceStatusNotRegistered);
}

TEST(LoginItemText, thatDisablesHidesTheEntryOfTheSystem) {
    const auto system = entry("Exec=/opt/us\nName=System\n");
    const auto ours = LoginItemRules::textToEnable(std::nullopt, sessionOf());
    for (const auto& user : {std::optional<std::string>(), std::optional(ours)}) {
        const auto result = LoginItemRules::textToDisable(user, system, sessionOf());
        ASSERT_TRUE(result);
        EXPECT_EQ(LoginItemRules::status(*result, sessionOf()), SMAppServiceStatusNotRegistered);
    }
}

} // namespace

} // namespace pallistrom
