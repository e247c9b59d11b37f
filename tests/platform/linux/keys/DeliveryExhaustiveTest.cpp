// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "CatalogueReplacement.h"
#include "Environment.h"
#include "EverySequence.h"

#include <gtest/gtest.h>

#include <iostream>
#include <string>
#include <tuple>
#include <vector>

namespace pallistrom {

// Where GoogleTest looks for it.
static void PrintTo(KeyDelivery::Rewritten rewritten, std::ostream* out) {
    *out << (rewritten == KeyDelivery::Rewritten::Held ? "held" : "tapped");
}

namespace {

using Rewritten = KeyDelivery::Rewritten;
using Lists = DeliverySetup::Lists;

enum class Decisions : std::uint8_t {
    AsWritten,
    OfTheCatalogue,
};

/// A small keyboard in words of DeliveryScript.
struct KeyboardCase {
    std::string name;
    std::size_t length = 0; ///< of the longest sequences
    std::string inputs;
    Decisions decisions = Decisions::AsWritten;
    std::string table = "table:";
};

void PrintTo(const KeyboardCase& c, std::ostream* out) {
    *out << c.name << ": " << c.inputs;
}

DeliveryInput decidedByTheCatalogue(DeliveryInput input, const CheckedDelivery& delivery) {
    if (!delivery.isModifier(input.event.key)) {
        input.change = catalogueReplacement(input.event, delivery.flags());
    }
    return input;
}

/// PALLISTROM_LONGER_SEQUENCES says by how many events they are to be longer.
std::size_t extraLength() {
    return Environment::number("PALLISTROM_LONGER_SEQUENCES", 0);
}

void report(const std::string& what, std::uint64_t count) {
    std::cout << count << ' ' << what << '\n';
    testing::Test::RecordProperty(what, std::to_string(count));
}

void expectUnbroken(const Tried& tried) {
    if (tried.broken) {
        ADD_FAILURE() << tried.broken->shrunk().report();
    }
}

class DeliveryExhaustive : public testing::TestWithParam<std::tuple<KeyboardCase, Rewritten>> {
protected:
    static SmallKeyboard keyboard(Lists lists) {
        const auto& [c, rewritten] = GetParam();
        SmallKeyboard keyboard;
        keyboard.setup = {.table = DeliveryScript::parse(c.table).front().table,
                          .rewritten = rewritten,
                          .lists = lists};
        keyboard.inputs = DeliveryScript::parse(c.inputs);
        if (c.decisions == Decisions::OfTheCatalogue) {
            keyboard.decide = decidedByTheCatalogue;
        }
        return keyboard;
    }
};

TEST_P(DeliveryExhaustive, keepsItsPromisesInEverySequence) {
    const std::size_t length = std::get<KeyboardCase>(GetParam()).length + extraLength();
    const Tried tried = EverySequence::upTo(length, keyboard(Lists::One));
    report("sequences of up to " + std::to_string(length) + " events", tried.sequences);
    expectUnbroken(tried);
}

TEST_P(DeliveryExhaustive, keepsItsPromisesInEverySituation) {
    const Tried tried = EverySequence::ofAnyLength(keyboard(Lists::OneEach));
    report("situations", tried.situations);
    report("events in situations", tried.sequences);
    expectUnbroken(tried);
}

// clang-format off
const std::vector<KeyboardCase> keyboards{
    {"EveryDecision", 5,
     "+ctrl -ctrl +shift -shift +alt -alt "
     "+w ~w -w  +w> ~w> -w>  +w=ctrl+bs ~w=ctrl+bs -w=ctrl+bs "
     "+w>shift+home,bs ~w>shift+home,bs ~w>shift+home,bs* -w>ctrl+bs  +w=shift+home,bs "
     "+bs ~bs -bs"},
    {"MenuOpeners", 5,
     "+alt -alt +super -super +ctrl -ctrl +shift -shift "
     "+x -x  +x> ~x> -x>  +x=ctrl+del ~x=ctrl+del  +x=alt+f4  +x=del  +x>shift+alt+left -x>super+x "
     "+del -del"},
    {"BothHands", 6,
     "+ctrl -ctrl +rctrl -rctrl +shift -shift +rshift -rshift +ralt -ralt "
     "+w -w  +w=ctrl+bs  +w=shift+ctrl+end  +w>shift+home,bs ~w>shift+home,bs"},
    {"AltGrAndCapsLock", 6,
     "+ralt -ralt +caps -caps +ctrl -ctrl +alt -alt "
     "+d -d  +d>  +d=ctrl+del ~d=ctrl+del  +d>alt+f4,bs  +a ~a -a",
     Decisions::AsWritten, "table:ralt=level3"},
    {"SwappedModifiers", 6,
     "+alt -alt +ctrl -ctrl +caps -caps "
     "+w -w  +w>  +w=ctrl+bs ~w=ctrl+bs  +w>shift+home,bs ~w>shift+home,bs  +bs -bs",
     Decisions::AsWritten, "table:alt=control,ctrl=option,caps=control"},
    {"NewTablesAndNewKeyboards", 5,
     "+caps -caps +alt -alt +shift -shift "
     "+w -w  +w>  +w=ctrl+bs ~w=ctrl+bs  +w>shift+home,bs  table: table:caps=control,alt=level3 letgo "
     "down:alt,w"},
    {"Catalogue", 6,
     "+ctrl -ctrl +shift -shift +alt -alt +w ~w -w +k ~k -k +d ~d -d +bs -bs",
     Decisions::OfTheCatalogue},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(,
                         DeliveryExhaustive,
                         testing::Combine(testing::ValuesIn(keyboards),
                                          testing::Values(Rewritten::Held, Rewritten::Tapped)),
                         [](const auto& test) {
                             return std::get<KeyboardCase>(test.param).name +
                                    (std::get<Rewritten>(test.param) == Rewritten::Held ? "Held"
                                                                                        : "Tapped");
                         });

} // namespace

} // namespace pallistrom
