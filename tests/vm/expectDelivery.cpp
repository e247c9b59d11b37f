// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "DeliveryScript.h"
#include "KeyboardStage.h"
#include "PacedKeys.h"
#include "ScriptedDecisions.h"
#include "expectOutput.h"
#include "withoutPauses.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pallistrom {

namespace {

using namespace vm;

// The script's decisions are made in the place of the engine.
std::string play(const std::vector<DeliveryInput>& inputs) {
    KeyboardStage& stage = KeyboardStage::with("scripted_host");
    std::string script = "script";
    for (const DeliveryInput& input : inputs) {
        if (input.kind == DeliveryInput::Kind::Key) {
            script += " " + DeliveryScript::print(input);
        }
    }
    stage.host().tell(script);
    PacedKeys pace;
    stage.keyboard().begin();
    for (const DeliveryInput& input : inputs) {
        switch (input.kind) {
        case DeliveryInput::Kind::Key:
            stage.keyboard().type(pace.next(input));
            break;
        case DeliveryInput::Kind::NewTable:
            stage.host().tell("table " + DeliveryScript::print(input));
            pace.setModifierTable(input.table);
            break;
        case DeliveryInput::Kind::LetGo:
            stage.host().tell("letgo");
            pace.letGo();
            break;
        case DeliveryInput::Kind::TakeOver:
            break;
        }
    }
    const std::string seen = stage.keyboard().end();
    stage.host().tell("table table:");
    return seen;
}

// Returns whether a key is to go down that is down: no kernel passes that on.
bool pressesAnewAfterLettingGo(const std::vector<DeliveryInput>& inputs) {
    KeySet down;
    KeySet letGo;
    for (const DeliveryInput& input : inputs) {
        if (input.kind == DeliveryInput::Kind::LetGo) {
            letGo = down;
        } else if (input.kind == DeliveryInput::Kind::Key) {
            const bool isPress = input.event.action == KeyAction::Press;
            if (isPress && letGo[input.event.key]) {
                return true;
            }
            if (input.event.action != KeyAction::Repeat) {
                down[input.event.key] = isPress;
                letGo.reset(input.event.key);
            }
        }
    }
    return false;
}

// Returns why no real devices could be brought to where this goes; nothing if they can.
std::string whyNot(const std::vector<DeliveryInput>& inputs, KeyDelivery::Rewritten rewritten) {
    if (rewritten == KeyDelivery::Rewritten::Tapped) {
        return "the service holds rewritten keys";
    }
    if (pressesAnewAfterLettingGo(inputs)) {
        return "the kernel passes on no press of what is down";
    }
    for (const DeliveryInput& input : inputs) {
        if (input.kind == DeliveryInput::Kind::TakeOver) {
            return "the service takes over no keyboard of which a key is down";
        }
        if (input.sender == KeyDelivery::Sender::StillSending) {
            return "a repeat does not come so soon";
        }
        if (input.change && !ScriptedDecisions::canDecide(*input.change)) {
            return "no callback can decide " + DeliveryScript::print(input);
        }
    }
    return "";
}

} // namespace

void expectDelivery(const ScriptCase& c, KeyDelivery::Rewritten rewritten) {
    const auto inputs = DeliveryScript::parse(c.in);
    const std::string reason = whyNot(inputs, rewritten);
    if (!reason.empty()) {
        GTEST_SKIP() << reason;
    }
    EXPECT_EQ(play(inputs), withoutPauses(c.out));
}

} // namespace pallistrom
