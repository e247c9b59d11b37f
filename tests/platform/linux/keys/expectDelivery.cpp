// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "CheckedDelivery.h"
#include "DeliveryScript.h"
#include "expectOutput.h"

#include <gtest/gtest.h>

namespace pallistrom {

void expectDelivery(const ScriptCase& c, KeyDelivery::Rewritten rewritten) {
    CheckedScript script{.setup = {}, .inputs = DeliveryScript::parse(c.in)};
    script.setup.rewritten = rewritten;
    EXPECT_EQ(script.output(), c.out);
    EXPECT_FALSE(script.broken()) << script.report();
    EXPECT_TRUE(script.leavesNothingDown());
}

} // namespace pallistrom
