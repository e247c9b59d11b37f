// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "expectOutput.h"

#include "ScriptedSession.h"

#include <gtest/gtest.h>

namespace pallistrom {

void expectOutput(const ScriptCase& c, KeyDelivery::Rewritten rewritten) {
    ScriptedSession session(rewritten);
    EXPECT_EQ(session.play(c.in), c.out);
    EXPECT_EQ(session.letGo(), "") << "left down";
}

} // namespace pallistrom
