// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11Tap.h"

#include "ActiveWindow.h"
#include "ChildProcess.h"
#include "Environment.h"
#include "HeldKeys.h"
#include "Home.h"
#include "KeyGrab.h"
#include "Keys.h"
#include "RecordedLog.h"
#include "Tools.h"
#include "VirtualDisplay.h"
#include "XConnection.h"
#include "XServer.h"
#include "platform/EventTap.h"
#include "platform/linux/KeyFilter.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pallistrom {

namespace {

using e2e::KeyCombination;

constexpr KeyCombination controlW{.keysym = 'w', .modifiers = XCB_MOD_MASK_CONTROL};
constexpr KeyCombination controlU{.keysym = 'u', .modifiers = XCB_MOD_MASK_CONTROL};
constexpr CGEventFlags optionOrCommand = kCGEventFlagMaskAlternate | kCGEventFlagMaskCommand;

bool switchedOn = true;
int questions = 0;

CGEventRef
rewriteAll(CGEventTapProxy /*proxy*/, CGEventType /*type*/, CGEventRef event, void* /*userInfo*/) {
    ++questions;
    if (switchedOn) {
        CGEventSetIntegerValueField(event, kCGKeyboardEventKeycode, 51);
    }
    return event;
}

// To a key without modifiers: those that are held go up for it, and down again.
CGEventRef
rewriteToPlain(CGEventTapProxy proxy, CGEventType type, CGEventRef event, void* userInfo) {
    CGEventSetFlags(event, 0);
    return rewriteAll(proxy, type, event, userInfo);
}

bool hasExtension(const e2e::XConnection& connection, std::string_view name) {
    const e2e::XReply<xcb_query_extension_reply_t> reply(xcb_query_extension_reply(
        connection,
        xcb_query_extension(connection, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr));
    return reply->present != 0;
}

// What all programs together want to be told of.
std::uint32_t selectionsOnRoot(const e2e::XConnection& connection) {
    const e2e::XReply<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
        connection, xcb_get_window_attributes(connection, connection.rootWindow()), nullptr));
    return reply->all_event_masks;
}

Command server(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"Xvfb", "-screen", "0", "300x200x24"});
    return {.arguments = std::move(arguments),
            .environment = {{"PATH", Environment::value("PATH")}}};
}

class X11TapTest : public testing::Test {
protected:
    void SetUp() override {
        if (const std::string missing = e2e::missingPrograms({"Xvfb", "setxkbmap"});
            !missing.empty()) {
            GTEST_SKIP() << missing;
        }
        switchedOn = true;
        Environment::unset("WAYLAND_DISPLAY");
        static_cast<void>(RecordedLog::take());
    }

    void startServer(std::vector<std::string> arguments = {}) {
        m_server.emplace(server(std::move(arguments)));
        Environment::set("DISPLAY", m_server->name());
    }

    void stopServer() { m_server.reset(); }

    // A connection of somebody else.
    [[nodiscard]] e2e::XConnection connect() const { return e2e::XConnection(m_server->name()); }

    void setLayout(const std::string& layout) const {
        run({.arguments = {"setxkbmap", layout},
             .environment = e2e::Home().environment(m_server->name())});
    }

    // Serves the tap, as the run loop does, until `condition` holds.
    template<typename Condition>
    [[nodiscard]] bool serveUntil(Condition condition) {
        return waitUntil([&] {
            tap.serve();
            return condition();
        });
    }

    const std::vector<TappedKey> keys{
        {.keyCode = 13, .required = kCGEventFlagMaskControl, .forbidden = optionOrCommand},
        {.keyCode = 32, .required = kCGEventFlagMaskControl, .forbidden = optionOrCommand}};
    KeyFilter filter{rewriteAll, nullptr, keys};
    const std::string keeper = "XTerm";
    FrontApplication inFront = FrontApplication::TakesEditingKeys;
    X11Tap tap{[this](const WindowClass& window) {
        return window.name == keeper ? FrontApplication::KeepsItsKeys : inFront;
    }};

private:
    std::optional<e2e::XServer> m_server;
};

TEST_F(X11TapTest, runsOnARealServer) {
    startServer();
    EXPECT_TRUE(tap.canRun());
    EXPECT_FALSE(tap.isRunning());
    EXPECT_TRUE(tap.start(filter));
    EXPECT_TRUE(tap.isRunning());
    EXPECT_TRUE(isGrabbed(connect(), controlW));
    tap.stop();
    EXPECT_FALSE(tap.isRunning());
    EXPECT_FALSE(isGrabbed(connect(), controlW));
    EXPECT_TRUE(RecordedLog::take().empty());
}

TEST_F(X11TapTest, cannotRunWithoutADisplay) {
    Environment::unset("DISPLAY");
    EXPECT_EQ(tap.obstacle(), Obstacle::NoDisplay);
    Environment::set("DISPLAY", ":65000");
    EXPECT_FALSE(tap.canRun());
    Environment::set("DISPLAY", "no display at all");
    EXPECT_FALSE(tap.canRun());
    EXPECT_FALSE(tap.start(filter));
    EXPECT_TRUE(RecordedLog::take().empty());
}

TEST_F(X11TapTest, cannotRunWithoutXTest) {
    startServer({"-extension", "XTEST"});
    EXPECT_EQ(tap.obstacle(), Obstacle::NoXTest);
    EXPECT_FALSE(tap.start(filter));
    EXPECT_TRUE(RecordedLog::take().empty());
}

TEST_F(X11TapTest, doesNotEvenConnectInAWaylandSession) {
    startServer();
    Environment::set("WAYLAND_DISPLAY", "wayland-0");
    EXPECT_EQ(tap.obstacle(), Obstacle::WaylandSession);
    Environment::unset("WAYLAND_DISPLAY");
    EXPECT_EQ(tap.obstacle(), std::nullopt);
}

TEST_F(X11TapTest, noticesThatTheServerGoesAwayAndFindsTheNextOne) {
    startServer();
    ASSERT_TRUE(tap.start(filter));
    stopServer();
    EXPECT_TRUE(serveUntil([this] { return !tap.isRunning(); }));
    EXPECT_FALSE(tap.canRun());

    startServer();
    EXPECT_TRUE(tap.canRun());
    EXPECT_TRUE(tap.start(filter));
    EXPECT_TRUE(isGrabbed(connect(), controlW));
}

TEST_F(X11TapTest, grabsOnlyWhatTheFilterWouldTouch) {
    startServer();
    switchedOn = false;
    ASSERT_TRUE(tap.start(filter));
    EXPECT_FALSE(isGrabbed(connect(), controlW));
    switchedOn = true;
    tap.filterChanged();
    EXPECT_TRUE(isGrabbed(connect(), controlW));
    switchedOn = false;
    tap.filterChanged();
    EXPECT_FALSE(isGrabbed(connect(), controlW));
}

TEST_F(X11TapTest, grabsNothingWhileTheApplicationInFrontIsLeftAlone) {
    startServer();
    const e2e::XConnection other = connect();
    bringToFront(other, "Gedit");
    inFront = FrontApplication::KeepsItsKeys;
    ASSERT_TRUE(tap.start(filter));
    EXPECT_FALSE(isGrabbed(connect(), controlW));
    inFront = FrontApplication::EditsBySelection;
    tap.filterChanged();
    EXPECT_TRUE(isGrabbed(connect(), controlW));
}

TEST_F(X11TapTest, treatsNobodyInFrontLikeTheWindowBefore) {
    startServer();
    ASSERT_TRUE(tap.start(filter));
    const e2e::XConnection other = connect();
    EXPECT_TRUE(isGrabbed(other, controlW)) << "there was none yet";
    bringToFront(other, keeper);
    ASSERT_TRUE(serveUntil([&] { return !isGrabbed(other, controlW); }));

    bringNobodyToFront(other);
    tap.filterChanged();
    EXPECT_FALSE(isGrabbed(other, controlW));
    bringToFront(other, "Gedit");
    EXPECT_TRUE(serveUntil([&] { return isGrabbed(other, controlW); }));
}

TEST_F(X11TapTest, hearsNothingBetweenTwoStarts) {
    startServer();
    ASSERT_TRUE(tap.start(filter));
    const e2e::XConnection other = connect();
    tap.stop();
    EXPECT_FALSE(isGrabbed(other, controlW));
    EXPECT_EQ(selectionsOnRoot(other), 0U) << "the server would go on telling";

    ASSERT_TRUE(tap.start(filter));
    EXPECT_TRUE(isGrabbed(other, controlW));
    EXPECT_NE(selectionsOnRoot(other), 0U);
}

TEST_F(X11TapTest, grabsWithEveryModifierThatDoesNotMatterAndNoneThatForbids) {
    startServer();
    ASSERT_TRUE(tap.start(filter));
    const e2e::XConnection other = connect();
    for (unsigned state = 0; state < 256; ++state) {
        // Of the usual map: Mod1 is Alt, Mod4 is Super.
        const bool isOurs =
            (state & XCB_MOD_MASK_CONTROL) != 0 && (state & (XCB_MOD_MASK_1 | XCB_MOD_MASK_4)) == 0;
        const KeyCombination combination{'w', static_cast<std::uint16_t>(state)};
        EXPECT_EQ(isGrabbed(other, combination), isOurs) << state;
    }
}

TEST_F(X11TapTest, leavesAShortcutToTheProgramThatOwnsItAndSaysSoOnce) {
    startServer();
    const e2e::XConnection other = connect();
    // One of the many combinations is enough.
    const auto taken = xcb_grab_key_checked(other,
                                            0,
                                            other.rootWindow(),
                                            XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_SHIFT,
                                            other.keycodeOf('w'),
                                            XCB_GRAB_MODE_ASYNC,
                                            XCB_GRAB_MODE_ASYNC);
    ASSERT_EQ(xcb_request_check(other, taken), nullptr);

    EXPECT_TRUE(tap.start(filter));
    EXPECT_FALSE(isGrabbed(other, controlW));
    EXPECT_TRUE(isGrabbed(other, controlU)) << "only the one is without";
    EXPECT_EQ(RecordedLog::take().size(), 1U);
    tap.filterChanged();
    EXPECT_TRUE(RecordedLog::take().empty());

    xcb_ungrab_key(other, XCB_GRAB_ANY, other.rootWindow(), XCB_MOD_MASK_ANY);
    static_cast<void>(other.keycodeOf('w')); // An answer says that all before it has been done.
    tap.filterChanged();
    EXPECT_TRUE(isGrabbed(other, controlW));
}

// At a display with a keyboard of its own, beside which no program makes keys up.
class X11TapAtAKeyboardTest : public X11TapTest {
protected:
    void SetUp() override {
        X11TapTest::SetUp();
        if (const auto missing = e2e::missingPrograms({"openbox"}); !missing.empty()) {
            GTEST_SKIP() << missing;
        }
        m_display.emplace();
        Environment::set("DISPLAY", m_display->name());
    }

    void play(const std::string& script) const {
        e2e::Keys(m_display->name(), e2e::Keyboard::Device).play(script);
    }

    [[nodiscard]] std::vector<std::string> held() const {
        return e2e::heldKeys(e2e::XConnection(m_display->name()));
    }

    // Presses the shortcut, and lets go of its key alone.
    void fireWithControlHeld() {
        const int before = questions;
        play("+ctrl +w -w");
        ASSERT_TRUE(serveUntil([&] { return questions > before; }));
    }

    KeyFilter plain{rewriteToPlain, nullptr, keys};

private:
    std::optional<e2e::VirtualDisplay> m_display;
};

TEST_F(X11TapAtAKeyboardTest, leavesNoKeyDownWhenItStopsWhileItsModifierIsHeld) {
    ASSERT_TRUE(tap.start(plain));
    fireWithControlHeld();

    tap.stop();
    play("-ctrl");
    EXPECT_TRUE(waitUntil([&] { return held().empty(); }));
}

TEST_F(X11TapAtAKeyboardTest, doesNotLetGoOfAModifierThatIsHeldAgain) {
    ASSERT_TRUE(tap.start(plain));
    fireWithControlHeld();
    const std::vector<std::string> control = held();
    ASSERT_FALSE(control.empty());

    // All of this before the tap hears of any: the last key says that the server has it.
    play("-ctrl +ctrl +x");
    const auto isHeldWithAnother = [&] {
        return held().size() > control.size();
    };
    ASSERT_TRUE(waitUntil(isHeldWithAnother));
    tap.filterChanged();
    play("-x");
    ASSERT_TRUE(waitUntil(std::not_fn(isHeldWithAnother)));
    EXPECT_EQ(held(), control);

    play("-ctrl");
    EXPECT_TRUE(serveUntil([&] { return held().empty(); }));
}

TEST_F(X11TapTest, staysOnThePhysicalKeyWhateverTheLayout) {
    startServer();
    ASSERT_TRUE(tap.start(filter));
    for (const std::string layout : {"fr", "us(dvorak)", "us"}) {
        setLayout(layout);
        EXPECT_TRUE(serveUntil([this] {
            const e2e::XConnection other = connect();
            const auto attempt = xcb_grab_key_checked(other,
                                                      0,
                                                      other.rootWindow(),
                                                      XCB_MOD_MASK_CONTROL,
                                                      25, // The key beside Q on a US keyboard.
                                                      XCB_GRAB_MODE_ASYNC,
                                                      XCB_GRAB_MODE_ASYNC);
            const e2e::XReply<xcb_generic_error_t> error(xcb_request_check(other, attempt));
            return error != nullptr;
        })) << layout;
    }
}

TEST_F(X11TapTest, runsOnAServerWithoutXkb) {
    startServer({"-extension", "XKEYBOARD"});
    if (hasExtension(connect(), "XKEYBOARD")) {
        GTEST_SKIP() << "this server cannot do without";
    }
    EXPECT_TRUE(tap.start(filter));
    EXPECT_TRUE(isGrabbed(connect(), controlW));
}

} // namespace

} // namespace pallistrom
