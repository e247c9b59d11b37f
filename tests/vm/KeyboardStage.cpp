// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "KeyboardStage.h"

#include <gtest/gtest.h>

namespace pallistrom::vm {

KeyboardStage::KeyboardStage(const std::string& program)
    : m_program{program}, m_host{program}, m_keyboard{{.name = "Pallistrom test keyboard"}} {}

std::unique_ptr<KeyboardStage>& KeyboardStage::current() {
    static std::unique_ptr<KeyboardStage> stage;
    return stage;
}

KeyboardStage& KeyboardStage::with(const std::string& program) {
    auto& stage = current();
    if (!stage || stage->m_program != program || !stage->m_host.process().isRunning()) {
        stage.reset();
        stage.reset(new KeyboardStage(program));
    }
    EXPECT_TRUE(stage->keyboard().waitUntilFiltered()) << "keys do not come by way of " << program;
    return *stage;
}

void KeyboardStage::clear() {
    current().reset();
}

} // namespace pallistrom::vm
