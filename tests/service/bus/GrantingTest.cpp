// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ServiceTest.h"

#include <filesystem>
#include <fstream>
#include <iterator>

// How a user comes by the grant.

namespace pallistrom {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class ServiceGranting : public ServiceTest {
protected:
    /// Asks for the grant, and waits until the authority has been asked.
    std::shared_ptr<const Outcome> request(Client& client) {
        const std::size_t before = authority->questions().size();
        const auto outcome = client.call("RequestGrant");
        EXPECT_TRUE(loop.runUntil([&] { return authority->questions().size() > before; }));
        return outcome;
    }

    /// Waits for the answer to a request.
    GrantAnswer answerTo(const std::shared_ptr<const Outcome>& outcome) {
        EXPECT_TRUE(loop.runUntil([&] { return outcome->isHere; }));
        EXPECT_EQ(outcome->error, "");
        return static_cast<GrantAnswer>(outcome->value.value_or(99));
    }

    [[nodiscard]] bool hasGrantFile() const {
        return std::filesystem::exists(folder.path() / "grants");
    }
};

/// Of the file of grants, while users come and go.
class ServiceSaving : public ServiceGranting {
protected:
    /// Starts with my keys being filtered.
    void startFiltering(Client& client) {
        start();
        call(client, "SetTap", "b", 1);
        ASSERT_TRUE(keys.isAllowed);
    }

    [[nodiscard]] std::string grantText() const {
        std::ifstream stream{folder.path() / "grants"};
        return {std::istreambuf_iterator<char>{stream}, {}};
    }

    const std::string given = "pallistrom-grants 1\n" + std::to_string(me()) + " given\n";
    const std::string suspended = "pallistrom-grants 1\n" + std::to_string(me()) + " suspended\n";
};

} // namespace

TEST_F(ServiceSaving, comesAfterTheKeysWereLetGo) {
    grantFromBefore(me());
    Client client{loop};
    startFiltering(client);
    std::string then;
    keys.whenForbidden = [&] {
        then = grantText();
    };
    EXPECT_EQ(call(client, "WithdrawGrant").error, "");
    EXPECT_EQ(then, given) << "not yet written when the keys were let go";
    EXPECT_FALSE(keys.isAllowed);
    EXPECT_TRUE(loop.runUntil([&] { return !hasGrantFile(); }));
    EXPECT_TRUE(isLogged("has withdrawn the grant"));
}

TEST_F(ServiceSaving, comesAfterTheKeysWereLetGoInAPanic) {
    grantFromBefore(me());
    Client client{loop};
    startFiltering(client);
    keys.panic();
    EXPECT_FALSE(keys.isAllowed);
    EXPECT_EQ(grantText(), given);
    EXPECT_TRUE(loop.runUntil([&] { return grantText() == suspended; }));
}

TEST_F(ServiceSaving, isNotMissedByAServiceThatEnds) {
    grantFromBefore(me());
    Client client{loop};
    startFiltering(client);
    keys.panic();
    stop();
    EXPECT_EQ(grantText(), suspended);
}

TEST_F(ServiceSaving, comesBeforeTheKeysAreTaken) {
    grantFromBefore(me());
    Client client{loop};
    startFiltering(client);
    keys.panic();
    ASSERT_TRUE(loop.runUntil([&] { return grantText() == suspended; }));
    std::string then;
    keys.whenAllowed = [&] {
        then = grantText();
    };
    EXPECT_EQ(call(client, "EndPanic").error, "");
    EXPECT_EQ(then, given);
}

TEST_F(ServiceSaving, ofAWithdrawalNeedsNoRoomOnTheDisk) {
    grantFromBefore(me());
    grantFromBefore(me() + 1);
    // A folder in the way is as good as a disk that takes no new file.
    std::filesystem::create_directory(folder.path() / "grants.new");
    Client client{loop};
    startFiltering(client);
    EXPECT_EQ(call(client, "WithdrawGrant").error, "");
    stop();
    start();
    Client again{loop};
    EXPECT_EQ(accessOf(again), Access::NotGranted);
    EXPECT_EQ(GrantStore{GrantFile{folder.path()}}.grantOf(me() + 1), Grant::Given);
}

TEST_F(ServiceGranting, asksAPersonInTheNameOfTheConnection) {
    start();
    Client client{loop};
    const auto outcome = request(client);
    ASSERT_THAT(authority->questions(), SizeIs(1));
    const auto& question = authority->questions().front();
    EXPECT_EQ(question.kind, "system-bus-name");
    EXPECT_EQ(question.caller, client.connection().name());
    EXPECT_EQ(question.action, "org.pallistrom.keyboard.filter");
    EXPECT_EQ(question.flags, 1U) << "to ask, not to look up";
    EXPECT_FALSE(outcome->isHere);
    EXPECT_FALSE(hasGrantFile());
}

TEST_F(ServiceGranting, isRememberedAndTold) {
    start();
    Client client{loop};
    EXPECT_EQ(accessOf(client), Access::NotGranted);
    call(client, "SetTap", "b", 1);
    const auto outcome = request(client);
    authority->answer(true, false);
    EXPECT_EQ(answerTo(outcome), GrantAnswer::Granted);
    EXPECT_THAT(keys.calls, ElementsAre("prepare", "allow"));
    ASSERT_TRUE(loop.runUntil([&] { return !client.news().empty(); }));
    EXPECT_THAT(client.news(), ElementsAre(0U));
    EXPECT_TRUE(hasGrantFile());

    stop();
    start();
    Client again{loop};
    EXPECT_EQ(accessOf(again), Access::Granted);
}

TEST_F(ServiceGranting, needsNoPersonTwice) {
    grantFromBefore(me());
    start();
    Client client{loop};
    EXPECT_EQ(answerTo(client.call("RequestGrant")), GrantAnswer::Granted);
    EXPECT_THAT(authority->questions(), IsEmpty());
}

TEST_F(ServiceGranting, canBeRefused) {
    start();
    Client client{loop};
    const auto outcome = request(client);
    authority->answer(false, false);
    EXPECT_EQ(answerTo(outcome), GrantAnswer::Denied);
    EXPECT_EQ(accessOf(client), Access::NotGranted);
    EXPECT_FALSE(hasGrantFile());
}

TEST_F(ServiceGranting, saysWhereNobodyCanBeAsked) {
    start();
    Client client{loop};
    const auto outcome = request(client);
    authority->answer(false, true);
    EXPECT_EQ(answerTo(outcome), GrantAnswer::NoAgent);
    EXPECT_FALSE(hasGrantFile());
}

TEST_F(ServiceGranting, saysWhereThereIsNoAuthority) {
    authority.reset();
    start();
    Client client{loop};
    EXPECT_EQ(answerTo(client.call("RequestGrant")), GrantAnswer::NoAgent);
    EXPECT_TRUE(isLogged("cannot be asked for"));
}

TEST_F(ServiceGranting, isNotGivenByAnAuthorityInTrouble) {
    start();
    Client client{loop};
    const auto outcome = request(client);
    authority->answerWithError("org.freedesktop.PolicyKit1.Error.Failed");
    EXPECT_EQ(answerTo(outcome), GrantAnswer::Denied);
    EXPECT_FALSE(hasGrantFile());
}

TEST_F(ServiceGranting, isNotGivenByAnAuthorityThatDies) {
    start();
    Client client{loop};
    const auto outcome = request(client);
    authority.reset();
    EXPECT_EQ(answerTo(outcome), GrantAnswer::Denied);
    EXPECT_FALSE(hasGrantFile());
}

TEST_F(ServiceGranting, asksOneQuestionAtATime) {
    start();
    Client client{loop};
    Client other{loop};
    const auto outcome = request(client);
    EXPECT_EQ(answerTo(client.call("RequestGrant")), GrantAnswer::Busy);
    EXPECT_EQ(answerTo(other.call("RequestGrant")), GrantAnswer::Busy);
    authority->answer(false, false);
    EXPECT_EQ(answerTo(outcome), GrantAnswer::Denied);

    const auto again = request(other);
    authority->answer(true, false);
    EXPECT_EQ(answerTo(again), GrantAnswer::Granted);
    EXPECT_THAT(authority->questions(), SizeIs(2));
}

TEST_F(ServiceGranting, takesTheQuestionBackWhenTheProgramGoes) {
    start();
    auto client = std::make_unique<Client>(loop);
    request(*client);
    client.reset();
    ASSERT_TRUE(loop.runUntil([&] { return !authority->cancelled().empty(); }));
    EXPECT_THAT(authority->cancelled(), ElementsAre(authority->questions().front().cancellation));
    authority->answer(true, false);
    settle();
    EXPECT_FALSE(hasGrantFile()) << "nobody is there who had asked";

    Client other{loop};
    const auto outcome = request(other);
    authority->answer(true, false);
    EXPECT_EQ(answerTo(outcome), GrantAnswer::Granted);
}

TEST_F(ServiceGranting, holdsOnAFullDiskUntilTheServiceEnds) {
    start();
    // A folder in the way is as good as a disk that takes nothing.
    std::filesystem::create_directory(folder.path() / "grants.new");
    Client client{loop};
    const auto outcome = request(client);
    authority->answer(true, false);
    EXPECT_EQ(answerTo(outcome), GrantAnswer::Granted);
    EXPECT_EQ(accessOf(client), Access::Granted);
    EXPECT_TRUE(isLogged("cannot be written"));
    stop();
    start();
    Client again{loop};
    EXPECT_EQ(accessOf(again), Access::NotGranted);
}

} // namespace pallistrom
