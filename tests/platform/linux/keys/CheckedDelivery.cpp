// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "CheckedDelivery.h"

#include <algorithm>
#include <utility>

namespace pallistrom {

namespace {

using Inputs = std::vector<DeliveryInput>;

void give(KeyDelivery& delivery, const DeliveryInput& input, std::vector<OutputStep>& steps) {
    switch (input.kind) {
    case DeliveryInput::Kind::Key:
        delivery.handle(
            input.event.key, input.event.action, input.replacement(), input.sender, steps);
        break;
    case DeliveryInput::Kind::NewTable:
        delivery.setModifierTable(input.table, steps);
        break;
    case DeliveryInput::Kind::LetGo:
        delivery.releaseAll(steps);
        break;
    case DeliveryInput::Kind::TakeOver:
        delivery.assume(input.down, input.down);
        break;
    }
}

/// Whether a keyboard that was at rest can do what comes next.
class KeyboardAtHand {
public:
    bool canDo(const DeliveryInput& input) {
        if (input.kind == DeliveryInput::Kind::TakeOver) {
            m_down = input.down;
        }
        if (input.kind != DeliveryInput::Kind::Key) {
            return true;
        }
        const bool isDown = m_down[input.event.key];
        const bool isPress = input.event.action == KeyAction::Press;
        if (isDown == isPress) {
            return false;
        }
        m_down[input.event.key] = input.event.action != KeyAction::Release;
        return true;
    }

private:
    KeySet m_down;
};

/// Leaves modifiers untouched, as is promised to a delivery.
void spareModifiers(CheckedScript& script) {
    ModifierTable table = script.setup.table;
    for (DeliveryInput& input : script.inputs) {
        if (input.kind == DeliveryInput::Kind::NewTable) {
            table = input.table;
        } else if (table.modifierOf(input.event.key) != Modifier::None) {
            input.change.reset();
        }
    }
}

bool isPossible(const Inputs& inputs) {
    KeyboardAtHand keyboard;
    return std::all_of(inputs.begin(), inputs.end(), [&](const DeliveryInput& input) {
        return keyboard.canDo(input);
    });
}

void makePossible(Inputs& inputs) {
    KeyboardAtHand keyboard;
    const auto first = std::remove_if(
        inputs.begin(), inputs.end(), [&](const auto& input) { return !keyboard.canDo(input); });
    inputs.erase(first, inputs.end());
}

/// Makes a script shorter and plainer for as long as it breaks some promise.
class Shrinking {
public:
    explicit Shrinking(CheckedScript script)
        : m_script(std::move(script)), m_wasPossible(isPossible(m_script.inputs)) {}

    CheckedScript result() {
        do {
            m_changed = false;
            for (std::size_t size = m_script.inputs.size(); size > 0; size /= 2) {
                leaveOut(size);
            }
            makePlain();
        } while (m_changed);
        return m_script;
    }

private:
    void leaveOut(std::size_t size) {
        for (std::size_t at = 0; at + size <= m_script.inputs.size();) {
            CheckedScript shorter = m_script;
            const auto first = shorter.inputs.begin() + static_cast<std::ptrdiff_t>(at);
            shorter.inputs.erase(first, first + static_cast<std::ptrdiff_t>(size));
            at += takes(shorter) ? 0U : 1U;
        }
    }

    void makePlain() {
        CheckedScript plain = m_script;
        plain.setup.table = ModifierTable::standard();
        if (!(plain.setup.table == m_script.setup.table)) {
            takes(plain);
        }
        for (std::size_t at = 0; at < m_script.inputs.size(); ++at) {
            tryInstead(at, [](DeliveryInput& input) { input.change.reset(); });
            tryInstead(at, [](DeliveryInput& input) { input.sender = KeyDelivery::Sender::Idle; });
        }
    }

    template<typename Change>
    void tryInstead(std::size_t at, const Change& change) {
        CheckedScript plain = m_script;
        change(plain.inputs[at]);
        if (!(plain.inputs[at] == m_script.inputs[at])) {
            takes(plain);
        }
    }

    bool takes(CheckedScript& candidate) {
        if (m_wasPossible) {
            makePossible(candidate.inputs);
        }
        spareModifiers(candidate);
        if (!candidate.broken()) {
            return false;
        }
        m_script = std::move(candidate);
        m_changed = true;
        return true;
    }

    CheckedScript m_script;
    bool m_wasPossible;
    bool m_changed = false;
};

} // namespace

CheckedDelivery::CheckedDelivery(const DeliverySetup& setup)
    : m_lists(setup.lists),
      m_delivery(setup.table, setup.rewritten),
      m_checker(setup.table, setup.rewritten) {}

BrokenPromise CheckedDelivery::put(const DeliveryInput& input) {
    std::vector<OutputStep> steps;
    steps.reserve(32);
    if (m_lists == DeliverySetup::Lists::OneEach) {
        m_checker.startList();
    } else if (m_last) {
        steps.push_back(*m_last);
    }
    const std::size_t known = steps.size();
    give(m_delivery, input, steps);
    if (!steps.empty()) {
        m_last = steps.back();
    }
    return m_checker.watch(input, std::span(steps).subspan(known));
}

BrokenPromise CheckedScript::broken() const {
    CheckedDelivery delivery(setup);
    for (const DeliveryInput& input : inputs) {
        if (const BrokenPromise broken = delivery.put(input)) {
            return broken;
        }
    }
    return std::nullopt;
}

bool CheckedScript::leavesNothingDown() const {
    CheckedScript andLetGo = *this;
    andLetGo.inputs.emplace_back().kind = DeliveryInput::Kind::LetGo;
    return andLetGo.output() == output();
}

CheckedScript CheckedScript::shrunk() const {
    return Shrinking(*this).result();
}

std::string CheckedScript::output() const {
    KeyDelivery delivery(setup.table, setup.rewritten);
    std::string text;
    std::vector<OutputStep> steps;
    for (const DeliveryInput& input : inputs) {
        give(delivery, input, steps);
        if (setup.lists == DeliverySetup::Lists::OneEach) {
            text += (text.empty() ? "" : " | ") + KeyScript::print(steps);
            steps.clear();
        }
    }
    return text + KeyScript::print(steps);
}

std::string CheckedScript::report() const {
    std::string text = setup.rewritten == KeyDelivery::Rewritten::Held ? "held" : "tapped";
    text += setup.lists == DeliverySetup::Lists::One ? ", in one list" : ", in a list for each";
    text += "\n  starts with: " + DeliveryScript::print(setup.table);
    text += "\n  goes in:     " + DeliveryScript::print(inputs);
    text += "\n  goes out:    " + output();
    return text + "\n  broken:      " + std::string(broken().value_or("nothing"));
}

} // namespace pallistrom
