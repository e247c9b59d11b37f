// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "DeliveryScript.h"

#include "CheckedDelivery.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <string>

namespace pallistrom {

namespace {

TEST(DeliveryScript, isReadAsItIsPrinted) {
    const std::string script = "+ctrl +w=ctrl+bs ~w>shift+home,bs* +x> -x= letgo table: "
                               "table:caps=control,ralt=level3 -w=super+left +d>shift+ctrl+alt+del "
                               "down: down:enter,ctrl";
    EXPECT_EQ(DeliveryScript::print(DeliveryScript::parse(script)), script);
}

TEST(DeliveryScript, saysWhatWasDecided) {
    const auto inputs = DeliveryScript::parse("+w ~w=ctrl+bs* +x>");
    ASSERT_EQ(inputs.size(), 3U);
    EXPECT_FALSE(inputs[0].replacement());
    EXPECT_EQ(inputs[1].event, (KeyScript::Event{KEY_W, KeyAction::Repeat}));
    EXPECT_EQ(inputs[1].sender, KeyDelivery::Sender::StillSending);
    EXPECT_TRUE(inputs[1].replacement()->isTheKeyItself);
    EXPECT_EQ(inputs[1].change->chords,
              (std::vector{LinuxChord{KEY_BACKSPACE, kCGEventFlagMaskControl}}));
    EXPECT_FALSE(inputs[2].replacement()->isTheKeyItself);
    EXPECT_TRUE(inputs[2].replacement()->chords.empty());
}

TEST(DeliveryScript, saysWhichKeysAreDownOfAKeyboardThatIsTakenOver) {
    const auto inputs = DeliveryScript::parse("down:enter,ctrl");
    ASSERT_EQ(inputs.size(), 1U);
    EXPECT_EQ(inputs[0].kind, DeliveryInput::Kind::TakeOver);
    EXPECT_EQ(inputs[0].down, KeySet().set(KEY_ENTER).set(KEY_LEFTCTRL));
}

TEST(DeliveryScript, saysWhichModifiersASessionHas) {
    const auto inputs = DeliveryScript::parse("table:caps=control,super=none");
    ASSERT_EQ(inputs.size(), 1U);
    EXPECT_EQ(inputs[0].table.modifierOf(KEY_CAPSLOCK), Modifier::Control);
    EXPECT_EQ(inputs[0].table.modifierOf(KEY_LEFTMETA), Modifier::None);
    EXPECT_EQ(inputs[0].table.modifierOf(KEY_LEFTALT), Modifier::Option);
}

} // namespace

} // namespace pallistrom
