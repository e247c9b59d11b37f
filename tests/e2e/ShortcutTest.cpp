// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ShortcutTest.h"

#include "HeldKeys.h"
#include "Screenshot.h"
#include "Tools.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <memory>
#include <ostream>

namespace pallistrom::e2e {

namespace {

/// In none of the texts, so that its arrival tells that all keys before it have arrived.
constexpr char sentinel = 'z';

struct Desks {
    Desks(const std::string& field, const Place& place)
        : withoutProgram{field, place.lines, Keyboard::Faked, Desk::Program::None},
          withProgram{field, place.lines, place.keyboard, Desk::Program::Pallistrom} {}

    Desk withoutProgram;
    Desk withProgram;
};

std::unique_ptr<Desks> desks;
Place placeOfDesks;

TextState withSentinel(TextState state) {
    state.text.insert(static_cast<std::size_t>(state.cursor), 1, sentinel);
    ++state.cursor;
    return state;
}

bool hasSentinel(const TextState& state) {
    return state.text.find(sentinel) != std::string::npos;
}

} // namespace

void PrintTo(const Place& place, std::ostream* out) {
    *out << place.field << (place.lines == Lines::Many ? ", many lines, " : ", ");
    PrintTo(place.keyboard, out);
}

void ShortcutTest::setUpDesks(const Place& place) {
    const std::string field = std::string{FIELD_FOLDER} + '/' + place.field;
    const std::string missing =
        missingPrograms({"Xvfb", "openbox", "xdotool", field, Pallistrom::path()});
    if (!missing.empty()) {
        GTEST_SKIP() << missing;
    }
    if (desks && placeOfDesks == place) {
        return;
    }
    desks.reset();
    desks = std::make_unique<Desks>(field, place);
    placeOfDesks = place;
}

void ShortcutTest::TearDown() {
    if (!desks) {
        return;
    }
    const XConnection connection{desk().display.name()};
    EXPECT_TRUE(waitUntil([&] { return heldKeys(connection).empty(); }));
    EXPECT_EQ(heldKeys(connection), std::vector<std::string>{});
    EXPECT_TRUE(desk().program->isRunning());
    if (HasFailure()) {
        reportFailure();
        desks.reset();
    }
}

void ShortcutTest::reportFailure() {
    std::cout << desk().program->log();
    if (missingPrograms({"import"}).empty()) {
        const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
        std::string picture = std::string{test->test_suite_name()} + '.' + test->name() + ".png";
        std::replace(picture.begin(), picture.end(), '/', '-');
        const auto path = std::filesystem::path{PICTURE_FOLDER} / picture;
        saveScreenshot(desk().display.name(), path);
        std::cout << "The display: " << path << '\n';
    }
}

void ShortcutTest::TearDownTestSuite() {
    desks.reset();
}

Desk& ShortcutTest::desk() {
    return desks->withProgram;
}

void ShortcutTest::switchOnOnly(std::initializer_list<std::string> ids) {
    EXPECT_EQ(desk().program->switchOnOnly(ids), std::vector<std::string>{})
        << "have switches without effect";
}

void ShortcutTest::switchOnAll() {
    switchOnOnly({"ctrlW", "ctrlU", "ctrlK", "altD"});
}

TextState ShortcutTest::withoutProgram(const TextState& start, std::string_view script) {
    Desk& reference = desks->withoutProgram;
    reference.field.set(start);
    reference.keys.play(script);
    reference.keys.type({sentinel});
    TextState state = reference.field.waitFor(hasSentinel);
    EXPECT_TRUE(hasSentinel(state));
    std::erase(state.text, sentinel);
    --state.cursor;
    return state;
}

void ShortcutTest::play(const TextState& start, std::string_view script) {
    desk().field.set(start);
    desk().keys.play(script);
}

void ShortcutTest::expectEnd(const TextState& expected) {
    ASSERT_EQ(desk().field.waitFor(expected), expected);
    desk().keys.type({sentinel});
    EXPECT_EQ(desk().field.waitFor(withSentinel(expected)), withSentinel(expected));
}

} // namespace pallistrom::e2e
