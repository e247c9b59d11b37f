// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/FrontMessage.h"

#include <QVariantList>

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace pallistrom {

namespace {

std::optional<FrontReport> shown(const QString& instance, const QString& name) {
    return FrontMessage::read(QStringLiteral("ShowWindow"), QStringLiteral("ss"), {instance, name});
}

FrontReport window(const std::string& instance, const std::string& name) {
    return FrontReport::of({.instance = instance, .name = name});
}

TEST(FrontMessage, tellsOfAWindow) {
    EXPECT_EQ(shown(QStringLiteral("kitty"), QStringLiteral("work")), window("kitty", "work"));
    EXPECT_EQ(shown(QString(), QString()), window("", ""));
}

TEST(FrontMessage, tellsOfNobody) {
    EXPECT_EQ(FrontMessage::read(QStringLiteral("ShowNobody"), QString(), {}),
              FrontReport::nobody());
}

TEST(FrontMessage, tellsThatNobodyCanTell) {
    EXPECT_EQ(FrontMessage::read(QStringLiteral("Leave"), QString(), {}), FrontReport::unknown());
}

TEST(FrontMessage, namesAnApplicationWithoutTheEndingOfItsEntry) {
    EXPECT_EQ(shown(QStringLiteral("org.gnome.Console.desktop"), QStringLiteral(".desktop")),
              window("org.gnome.Console", ""));
}

TEST(FrontMessage, cutsOffWhatIsTooLong) {
    const auto report = shown(QString(100000, QLatin1Char('x')), QString(100000, QChar(0x20ac)));
    ASSERT_TRUE(report);
    EXPECT_EQ(report->window.instance, std::string(WindowClass::mostBytes, 'x'));
    EXPECT_LE(report->window.name.size(), WindowClass::mostBytes);
}

TEST(FrontMessage, isNothingElse) {
    const auto read = [](const char* member, const char* signature, const QVariantList& arguments) {
        return FrontMessage::read(
            QString::fromLatin1(member), QString::fromLatin1(signature), arguments);
    };
    const QVariant text = QStringLiteral("x");
    EXPECT_FALSE(read("", "", {}));
    EXPECT_FALSE(read("showNobody", "", {}));
    EXPECT_FALSE(read("ShowNobody", "s", {text}));
    EXPECT_FALSE(read("Leave", "s", {text}));
    EXPECT_FALSE(read("ShowWindow", "", {}));
    EXPECT_FALSE(read("ShowWindow", "s", {text}));
    EXPECT_FALSE(read("ShowWindow", "sss", {text, text, text}));
    EXPECT_FALSE(read("ShowWindow", "si", {text, 1}));
    EXPECT_FALSE(read("ShowWindow", "ss", {text}));
}

} // namespace

} // namespace pallistrom
