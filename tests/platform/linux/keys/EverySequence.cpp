// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "EverySequence.h"

#include <algorithm>
#include <deque>
#include <string>
#include <unordered_set>

namespace pallistrom::EverySequence {

namespace {

/// A delivery after a sequence.
struct Node {
    CheckedDelivery delivery;
    KeySet down; ///< on the keyboard

    [[nodiscard]] bool canTake(const DeliveryInput& input) const {
        return input.kind != DeliveryInput::Kind::Key ||
               down[input.event.key] == (input.event.action != KeyAction::Press);
    }

    BrokenPromise take(const DeliveryInput& input) {
        if (input.kind == DeliveryInput::Kind::Key) {
            down[input.event.key] = input.event.action != KeyAction::Release;
        } else if (input.kind == DeliveryInput::Kind::TakeOver) {
            down = input.down;
        }
        return delivery.put(input);
    }
};

DeliveryInput decided(const SmallKeyboard& keyboard, std::size_t which, const Node& node) {
    const DeliveryInput& input = keyboard.inputs[which];
    return keyboard.decide ? keyboard.decide(input, node.delivery) : input;
}

class Sequences {
public:
    explicit Sequences(const SmallKeyboard& keyboard) : m_keyboard(keyboard) {}

    Tried upTo(std::size_t length) {
        extend({CheckedDelivery(m_keyboard.setup), {}}, length);
        return m_tried;
    }

private:
    void extend(const Node& node, std::size_t length) {
        for (std::size_t which = 0; which < m_keyboard.inputs.size() && !m_tried.broken; ++which) {
            if (!node.canTake(m_keyboard.inputs[which])) {
                continue;
            }
            m_sequence.push_back(decided(m_keyboard, which, node));
            Node next = node;
            ++m_tried.sequences;
            if (next.take(m_sequence.back())) {
                m_tried.broken = CheckedScript{m_keyboard.setup, m_sequence};
            } else if (length > 1) {
                extend(next, length - 1);
            }
            m_sequence.pop_back();
        }
    }

    const SmallKeyboard& m_keyboard;
    std::vector<DeliveryInput> m_sequence;
    Tried m_tried;
};

/// A situation in few bytes.
class Digest {
public:
    Digest(const Node& node, std::size_t lastInput) {
        const DeliverySituation& now = node.delivery.situation();
        for (const KeySet* keys : {&node.down, &now.held, &now.shown, &now.strangers}) {
            forEachKey(*keys, [this](EvdevCode key) { add(key); });
            add(0);
        }
        const ShownChord chord = now.chord.value_or(ShownChord{});
        for (const std::size_t number : {std::size_t{chord.cause},
                                         std::size_t{chord.chord.key},
                                         chord.chord.modifiers / kCGEventFlagMaskShift,
                                         std::size_t{now.typedLast},
                                         std::size_t{now.toldLast},
                                         std::size_t{now.shownAlone},
                                         node.delivery.flags() / kCGEventFlagMaskAlphaShift,
                                         lastInput}) {
            add(number);
        }
    }

    [[nodiscard]] const std::string& bytes() const { return m_bytes; }

private:
    void add(std::size_t number) {
        m_bytes += static_cast<char>(number % 256);
        m_bytes += static_cast<char>(number / 256);
    }

    std::string m_bytes;
};

class Situations {
public:
    explicit Situations(const SmallKeyboard& keyboard) : m_keyboard(keyboard) {}

    Tried all() {
        reach({CheckedDelivery(m_keyboard.setup), {}}, {});
        for (; !m_waiting.empty() && !m_tried.broken; m_waiting.pop_front()) {
            extend(m_waiting.front());
        }
        m_tried.situations = m_known.size();
        return m_tried;
    }

private:
    /// The way to a situation: the one before, and what happened there.
    struct Way {
        std::size_t before = 0;
        std::size_t which = 0;
    };

    struct Waiting {
        Node node;
        std::size_t way;
    };

    void reach(const Node& node, Way way) {
        if (m_known.insert(Digest(node, way.which).bytes()).second) {
            m_waiting.push_back({node, m_ways.size()});
            m_ways.push_back(way);
        }
    }

    void extend(const Waiting& from) {
        for (std::size_t which = 0; which < m_keyboard.inputs.size() && !m_tried.broken; ++which) {
            if (!from.node.canTake(m_keyboard.inputs[which])) {
                continue;
            }
            Node next = from.node;
            ++m_tried.sequences;
            if (next.take(decided(m_keyboard, which, from.node))) {
                m_tried.broken = scriptOf({from.way, which});
            } else {
                reach(next, {from.way, which});
            }
        }
    }

    [[nodiscard]] CheckedScript scriptOf(Way way) const {
        std::vector<std::size_t> sequence{way.which};
        for (; way.before != 0; way = m_ways[way.before]) {
            sequence.push_back(m_ways[way.before].which);
        }
        CheckedScript script{m_keyboard.setup, {}};
        Node node{CheckedDelivery(m_keyboard.setup), {}};
        std::reverse(sequence.begin(), sequence.end());
        for (const std::size_t which : sequence) {
            script.inputs.push_back(decided(m_keyboard, which, node));
            node.take(script.inputs.back());
        }
        return script;
    }

    const SmallKeyboard& m_keyboard;
    std::unordered_set<std::string> m_known;
    std::vector<Way> m_ways;
    std::deque<Waiting> m_waiting;
    Tried m_tried;
};

} // namespace

Tried upTo(std::size_t length, const SmallKeyboard& keyboard) {
    return Sequences(keyboard).upTo(length);
}

Tried ofAnyLength(const SmallKeyboard& keyboard) {
    return Situations(keyboard).all();
}

} // namespace pallistrom::EverySequence
