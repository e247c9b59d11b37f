// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Environment.h"
#include "FrontNews.h"
#include "HardwareKeys.h"
#include "KeyboardStage.h"
#include "Seat.h"
#include "ServiceOnBus.h"
#include "SessionField.h"
#include "SessionProgram.h"
#include "SessionTerminal.h"
#include "SwayControl.h"
#include "Tools.h"
#include "WaylandSession.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <map>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace pallistrom::vm {

namespace {

using Clock = Deadline::Clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr auto field = FrontApplication::TakesEditingKeys;
constexpr auto terminal = FrontApplication::KeepsItsKeys;

/// What a session sees of control-W where it is a shortcut, and where it is none.
constexpr const char* rewritten = "+ctrl +bs -bs -ctrl";
constexpr const char* untouched = "+ctrl +w -w -ctrl";

/// A window that is told from others by sway, and what control-W has to do in it.
class Target {
public:
    explicit Target(std::string criteria) : m_criteria{std::move(criteria)} {}

    Target(const Target&) = delete;
    Target& operator=(const Target&) = delete;
    virtual ~Target() = default;

    [[nodiscard]] std::string focusCommand() const { return '[' + m_criteria + "] focus"; }

    [[nodiscard]] virtual FrontApplication kind() const = 0;

    /// Before a control-W.
    virtual void prepare() {}

    /// After it: whether it did what it does here, and nothing else.
    virtual void expectEffect() = 0;

    /// Takes what was typed so far for right.
    virtual void forgive() {}

    /// At the end: whether nothing was typed here but what was expected.
    virtual void expectNothingElse() {}

private:
    std::string m_criteria;
};

class FieldTarget final : public Target {
public:
    FieldTarget(std::string criteria, SessionField& shown)
        : Target{std::move(criteria)}, m_field{shown} {}

    [[nodiscard]] FrontApplication kind() const override { return field; }

    void prepare() override { m_field.set("alpha beta"); }

    void expectEffect() override { EXPECT_EQ(m_field.waitFor("alpha "), "alpha "); }

private:
    SessionField& m_field;
};

class TerminalTarget final : public Target {
public:
    TerminalTarget(std::string criteria, SessionTerminal& shown)
        : Target{std::move(criteria)}, m_terminal{shown} {}

    [[nodiscard]] FrontApplication kind() const override { return terminal; }

    void expectEffect() override {
        m_bytes += '\x17';
        expectNothingElse();
    }

    void forgive() override { m_bytes = m_terminal.waitFor(""); }

    void expectNothingElse() override { EXPECT_EQ(m_terminal.waitFor(m_bytes), m_bytes); }

private:
    SessionTerminal& m_terminal;
    std::string m_bytes; ///< that it is to have read
};

/// sway with two text fields and two terminals side by side, one of each on X, and the program.
struct Stage {
    Stage() {
        for (Target* const target : {&static_cast<Target&>(third), &static_cast<Target&>(fourth)}) {
            const std::string before = xWindow();
            run(*target);
            static_cast<void>(
                waitUntil([&] { return xWindow() != before; }, WaylandSession::patience()));
            xWindows[target] = xWindow();
        }
    }

    void run(const Target& target) {
        if (!sway.run(target.focusCommand())) {
            throw std::runtime_error{"there is no " + target.focusCommand() + ": " + sway.tree()};
        }
    }

    /// The window in front on X; nothing if that is none of its windows.
    [[nodiscard]] std::string xWindow() const {
        Command command = session.command({"xdotool", "getactivewindow"});
        command.errorFile = "/dev/null";
        return ChildProcess{command}.readLine(WaylandSession::patience()).value_or("");
    }

    /// The X server is told by sway of who has its keyboard, and by another way of the keys: they
    /// can be faster.
    void waitForXServer(Target& target) const {
        if (const auto window = xWindows.find(&target); window != xWindows.end()) {
            EXPECT_TRUE(
                waitUntil([&] { return xWindow() == window->second; }, WaylandSession::patience()));
        }
    }

    ServiceOnBus service{WaylandSession::user()};
    WaylandSession session{WaylandSession::XServer::WhenNeeded};
    FrontNews news;
    SessionProgram program{session};
    SessionField waylandField{session, "field-gtk4"};
    SessionTerminal waylandTerminal{session, {"foot"}};
    SessionField xField{session, "field-gtk3", SessionField::Display::X};
    SessionTerminal xTerminal{session, {"xterm", "-e"}};
    SwayControl sway{session.runtimeFolder()};
    Seat seat{hardwareKeyboard};
    FieldTarget first{R"(app_id="GTK Application")", waylandField};
    TerminalTarget second{"app_id=foot", waylandTerminal};
    FieldTarget third{"class=Field-gtk3", xField};
    TerminalTarget fourth{"class=XTerm", xTerminal};
    std::array<Target*, 4> targets{&first, &second, &third, &fourth};
    std::map<Target*, std::string> xWindows;
};

class FrontSwitches : public testing::Test {
protected:
    static void TearDownTestSuite() { s_stage.reset(); }

    void SetUp() override {
        const std::string missing = e2e::missingPrograms({"sway",
                                                          "foot",
                                                          "xterm",
                                                          "Xwayland",
                                                          "xdotool",
                                                          FIELD_FOLDER "/field-gtk3",
                                                          FIELD_FOLDER "/field-gtk4"});
        if (!missing.empty()) {
            GTEST_SKIP() << missing;
        }
        if (!s_stage) {
            KeyboardStage::clear();
            s_stage = std::make_unique<Stage>();
        }
        stage().run(stage().first);
        ASSERT_TRUE(becomes(rewritten)) << stage().program.log();
        for (Target* const target : stage().targets) {
            target->forgive();
        }
    }

    static Stage& stage() { return *s_stage; }

    static std::string controlW() { return shownBy(stage().seat, "key ctrl+w", 4); }

    // Waits until the session sees this of a control-W.
    [[nodiscard]] static bool becomes(const std::string& wanted) {
        return waitUntil([&] { return controlW() == wanted; }, WaylandSession::patience());
    }

    [[nodiscard]] static FrontNews::Item newsOf(std::size_t count) {
        const auto news = stage().news.waitFor(count, WaylandSession::patience());
        EXPECT_GE(news.size(), count) << "the service is not told";
        return news.size() < count ? FrontNews::Item{} : news.at(count - 1);
    }

    [[nodiscard]] static std::vector<FrontNews::Item> newsSoFar() {
        return stage().news.waitFor(0, Deadline{});
    }

private:
    static inline std::unique_ptr<Stage> s_stage;
};

void print(const char* what, std::vector<Milliseconds> times) {
    std::sort(times.begin(), times.end());
    std::printf("%s: median %.1f ms, longest %.1f ms\n",
                what,
                times.at(times.size() / 2).count(),
                times.back().count());
}

TEST_F(FrontSwitches, haveControlWRightInEachOfAHundred) {
    std::mt19937 random{1}; // NOLINT(cert-msc51-cpp): the same switches each time
    std::size_t at = 0;
    std::size_t told = newsSoFar().size();
    std::vector<Milliseconds> answers;
    std::vector<Milliseconds> pushes;
    int early = 0;
    for (int i = 0; i < 100; ++i) {
        const FrontApplication before = stage().targets.at(at)->kind();
        at = (at + 1 + random() % (stage().targets.size() - 1)) % stage().targets.size();
        Target& target = *stage().targets.at(at);
        target.prepare();

        const auto begin = Clock::now();
        stage().run(target);
        answers.emplace_back(Clock::now() - begin);
        stage().waitForXServer(target);
        const auto pressed = Clock::now();
        const std::string seen = controlW();

        // Exactly one message where another kind has come to the front, and none otherwise.
        bool wasKnown = true;
        if (target.kind() != before) {
            const FrontNews::Item news = newsOf(++told);
            EXPECT_EQ(news.kind, target.kind());
            pushes.emplace_back(news.known - begin);
            wasKnown = news.known < pressed;
        }
        EXPECT_EQ(newsSoFar().size(), told) << i;

        const char* const right = target.kind() == field ? rewritten : untouched;
        if (seen == right) {
            target.expectEffect();
        } else {
            EXPECT_FALSE(wasKnown) << "switch " << i << ": " << seen;
            ++early;
            target.forgive();
        }
        ASSERT_FALSE(HasFailure()) << "switch " << i << ", " << target.focusCommand();
    }
    for (Target* const target : stage().targets) {
        target->expectNothingElse();
    }
    EXPECT_EQ(stage().seat.keysDown(), "");
    print("sway's answer to a change of focus", answers);
    print("from the command to sway until the service goes by it", pushes);
    std::printf("keys pressed before the service could know: %d of 100\n", early);
}

TEST_F(FrontSwitches, endRightWhereTheyComeAllAtOnce) {
    const std::size_t before = newsSoFar().size();
    for (std::size_t i = 0; i < 100; ++i) {
        stage().run(*stage().targets.at(i % 4));
    }
    EXPECT_TRUE(becomes(untouched));
    EXPECT_LE(newsSoFar().size(), before + 100);
    EXPECT_EQ(newsSoFar().back().kind, terminal);

    stage().run(stage().third);
    EXPECT_TRUE(becomes(rewritten));
    EXPECT_EQ(newsSoFar().back().kind, field);
    EXPECT_EQ(stage().seat.keysDown(), "");
}

} // namespace

} // namespace pallistrom::vm
