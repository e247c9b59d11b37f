// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/Obstacle.h"
#include "platform/linux/keyboardservice/KeyboardInterface.h"

#include <cstdint>
#include <optional>
#include <string_view>

/// What the service's answers mean. They come from outside, so any of them may be nonsense.
namespace pallistrom::ServiceAnswers {

/// Returns what an answer about the access puts in the way; nothing if the service filters.
[[nodiscard]] std::optional<Obstacle> obstacleOfAccess(std::uint32_t access);

/// Returns what an error in the place of an answer puts in the way. `name` is that of the error on
/// the bus.
[[nodiscard]] Obstacle obstacleOfError(std::string_view name);

/// Returns whether an error says that too much was said: the same is to be said again later.
[[nodiscard]] bool isTooMuch(std::string_view errorName);

/// Returns nothing if there is no such answer.
[[nodiscard]] std::optional<KeyboardInterface::GrantAnswer> grantAnswer(std::uint32_t answer);

} // namespace pallistrom::ServiceAnswers
