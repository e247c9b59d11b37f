// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sessionkeys/WaylandSessionKeysWatch.h"

#include "Environment.h"
#include "EventLoop.h"
#include "FakeCompositor.h"
#include "FileDescriptor.h"
#include "TemporaryFolder.h"
#include "TestKeymap.h"
#include "platform/linux/sessionkeys/Keymap.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <array>
#include <limits>
#include <optional>
#include <string>

namespace pallistrom {

namespace {

class WaylandSessionKeysWatchTest : public testing::Test {
protected:
    void SetUp() override {
        if (keymapText("us", "").empty()) {
            GTEST_SKIP() << "not installed: xkeyboard-config";
        }
        Environment::unset("WAYLAND_SOCKET");
        Environment::set("WAYLAND_DISPLAY", m_socket);
        m_compositor.emplace(m_socket);
        m_compositor->offerSeat();
    }

    void begin() {
        m_watch.emplace([this] { ++m_changes; });
        EXPECT_EQ(m_watch->modifiers(), ModifierTable::standard());
    }

    [[nodiscard]] bool waitForChanges(int changes) {
        return m_loop.runUntil([&] { return m_changes == changes; });
    }

    [[nodiscard]] Modifier capsLock() const {
        return m_watch->modifiers().modifierOf(KEY_CAPSLOCK);
    }

    EventLoop m_loop;
    TemporaryFolder m_folder;
    std::filesystem::path m_socket = m_folder.path() / "wayland";
    std::optional<FakeCompositor> m_compositor;
    std::optional<WaylandSessionKeysWatch> m_watch;
    int m_changes = 0;
};

TEST_F(WaylandSessionKeysWatchTest, followsTheKeymap) {
    m_compositor->setKeymap(keymapText("us", "ctrl:nocaps"));
    begin();
    ASSERT_TRUE(waitForChanges(1));
    EXPECT_EQ(capsLock(), Modifier::Control);

    m_compositor->setKeymap(keymapText("de", ""));
    ASSERT_TRUE(waitForChanges(2));
    EXPECT_EQ(capsLock(), Modifier::CapsLock);
    EXPECT_EQ(m_watch->modifiers().modifierOf(KEY_RIGHTALT), Modifier::Level3);
}

TEST_F(WaylandSessionKeysWatchTest, tellsOnlyOfModifiersThatHaveMoved) {
    m_compositor->setKeymap(keymapText("us", "ctrl:nocaps"));
    begin();
    ASSERT_TRUE(waitForChanges(1));
    m_compositor->setKeymap(keymapText("us", "ctrl:nocaps,compose:menu"));
    m_loop.drain();
    m_compositor->setKeymap(keymapText("us", ""));
    ASSERT_TRUE(waitForChanges(2));
    EXPECT_EQ(capsLock(), Modifier::CapsLock);
}

TEST_F(WaylandSessionKeysWatchTest, keepsTheTableWhenTheCompositorGoesAndAsksTheNextOne) {
    m_compositor->setKeymap(keymapText("us", "ctrl:nocaps"));
    begin();
    ASSERT_TRUE(waitForChanges(1));
    m_compositor.reset();
    m_loop.drain();
    EXPECT_EQ(capsLock(), Modifier::Control);

    m_compositor.emplace(m_socket);
    m_compositor->setKeymap(keymapText("us", "caps:super"));
    m_compositor->offerSeat();
    ASSERT_TRUE(waitForChanges(2));
    EXPECT_EQ(capsLock(), Modifier::Command);
}

// Each is followed by a good one, which shows that the bad one has been passed by.
TEST_F(WaylandSessionKeysWatchTest, keepsTheTableWhateverElseComesForAKeymap) {
    begin();
    const std::string good = keymapText("us", "ctrl:nocaps");
    const std::string other = keymapText("us", "");
    m_compositor->setKeymap(other);
    m_loop.drain();
    const auto expectGoodIsTaken = [&] {
        m_compositor->setKeymap(good);
        EXPECT_TRUE(m_loop.runUntil([&] { return capsLock() == Modifier::Control; }));
        m_compositor->setKeymap(other);
        EXPECT_TRUE(m_loop.runUntil([&] { return capsLock() == Modifier::CapsLock; }));
    };
    expectGoodIsTaken();

    m_compositor->setKeymap("xkb_keymap {");
    m_loop.drain();
    expectGoodIsTaken();
    // Files that are shorter than they are said to be, and longer than any keymap is.
    m_compositor->setKeymap(good, static_cast<std::uint32_t>(good.size() + 100));
    m_loop.drain();
    m_compositor->setKeymap(good, std::numeric_limits<std::uint32_t>::max());
    m_loop.drain();
    m_compositor->setKeymap(good, 0);
    m_loop.drain();
    EXPECT_EQ(capsLock(), Modifier::CapsLock);
    expectGoodIsTaken();
    // A pipe that nobody writes to, a folder, and a file that cannot be read.
    std::array<int, 2> pipes{};
    ASSERT_EQ(pipe2(pipes.data(), O_CLOEXEC), 0);
    const FileDescriptor reading{pipes[0]};
    const FileDescriptor writing{pipes[1]};
    m_compositor->sendKeymapFile(reading.get(), 100);
    const FileDescriptor folder{open("/", O_DIRECTORY | O_RDONLY | O_CLOEXEC)};
    m_compositor->sendKeymapFile(folder.get(), 100);
    const FileDescriptor unreadable{
        open((m_folder.path() / "file").c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600)};
    m_compositor->sendKeymapFile(unreadable.get(), 100);
    m_loop.drain();
    expectGoodIsTaken();
}

} // namespace

} // namespace pallistrom
