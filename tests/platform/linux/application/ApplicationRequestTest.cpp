// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/application/ApplicationRequest.h"

#include <QDBusVariant>
#include <QVariantMap>

#include <gtest/gtest.h>

namespace pallistrom {

namespace {

using Kind = ApplicationRequest::Kind;

std::optional<ApplicationRequest> activate(const QVariantMap& platformData) {
    return ApplicationRequest::read(
        QStringLiteral("Activate"), QStringLiteral("a{sv}"), {platformData});
}

std::optional<ApplicationRequest> action(const QString& name, const QVariantList& parameters) {
    return ApplicationRequest::read(QStringLiteral("ActivateAction"),
                                    QStringLiteral("sava{sv}"),
                                    {name, QVariant(parameters), QVariantMap()});
}

TEST(ApplicationRequest, isReadFromActivate) {
    const auto request = activate({});
    ASSERT_TRUE(request);
    EXPECT_EQ(request->kind, Kind::Activate);
    EXPECT_TRUE(request->activationToken.isEmpty());
}

TEST(ApplicationRequest, isReadFromOpenAsIfNothingWereToBeOpened) {
    const auto request = ApplicationRequest::read(
        QStringLiteral("Open"),
        QStringLiteral("asa{sv}"),
        {QStringList{QStringLiteral("file:///etc/passwd")}, QVariantMap()});
    ASSERT_TRUE(request);
    EXPECT_EQ(request->kind, Kind::Activate);
}

TEST(ApplicationRequest, isReadFromAnActionWithOrWithoutParameter) {
    const auto plain = action(QStringLiteral("quit"), {});
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain->kind, Kind::Action);
    EXPECT_EQ(plain->action, QStringLiteral("quit"));
    EXPECT_TRUE(plain->parameter.isEmpty());

    const QString id = QStringLiteral("ctrlW");
    for (const auto& parameter : {QVariant(id), QVariant::fromValue(QDBusVariant(id))}) {
        const auto toggle = action(QStringLiteral("toggleShortcut"), {parameter});
        ASSERT_TRUE(toggle);
        EXPECT_EQ(toggle->parameter, id);
    }
}

TEST(ApplicationRequest, isNoneIfTheParametersAreNotOneText) {
    EXPECT_FALSE(action(QStringLiteral("quit"), {5}));
    EXPECT_FALSE(action(QStringLiteral("quit"), {QStringLiteral("a"), QStringLiteral("b")}));
}

TEST(ApplicationRequest, isNoneForOtherCallsAndOtherTypes) {
    const auto read = [](const char* member, const char* signature, const QVariantList& arguments) {
        return ApplicationRequest::read(
            QString::fromLatin1(member), QString::fromLatin1(signature), arguments);
    };
    EXPECT_FALSE(read("Quit", "", {}));
    EXPECT_FALSE(read("Activate", "", {}));
    EXPECT_FALSE(read("Activate", "s", {QString()}));
    EXPECT_FALSE(read("Activate", "a{sv}", {}));
    EXPECT_FALSE(read("Activate", "a{ss}", {QVariantMap()}));
    EXPECT_FALSE(read("Open", "a{sv}", {QVariantMap()}));
    EXPECT_FALSE(read("ActivateAction", "ssa{sv}", {QString(), QString(), QVariantMap()}));
    EXPECT_FALSE(read("activate", "a{sv}", {QVariantMap()}));
}

TEST(ApplicationRequest, bringsTheTokenAlong) {
    const QString wayland = QStringLiteral("wayland-token");
    const QString x11 = QStringLiteral("launcher-1_TIME123");
    EXPECT_EQ(activate({{QStringLiteral("desktop-startup-id"), x11}})->activationToken,
              x11.toUtf8());
    EXPECT_EQ(activate({{QStringLiteral("desktop-startup-id"), x11},
                        {QStringLiteral("activation-token"), wayland}})
                  ->activationToken,
              wayland.toUtf8());
}

TEST(ApplicationRequest, takesNothingForATokenThatCannotBeOne) {
    const auto tokenOf = [](const QVariant& value) {
        return activate({{QStringLiteral("activation-token"), value}})->activationToken;
    };
    EXPECT_EQ(tokenOf(5), QByteArray());
    EXPECT_EQ(tokenOf(QString()), QByteArray());
    EXPECT_EQ(tokenOf(QStringLiteral("two words")), QByteArray());
    EXPECT_EQ(tokenOf(QStringLiteral("line\nfeed")), QByteArray());
    EXPECT_EQ(tokenOf(QString(1, QChar(u'\0'))), QByteArray());
    EXPECT_EQ(tokenOf(QStringLiteral("é")), QByteArray());
    EXPECT_EQ(tokenOf(QString(2000, QLatin1Char('a'))), QByteArray());
}

} // namespace

} // namespace pallistrom
