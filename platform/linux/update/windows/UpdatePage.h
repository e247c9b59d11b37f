// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace pallistrom {

/// What the window of an update conversation shows at one step: a value, without any widget.
struct UpdatePage {
    enum class Choice : std::uint8_t {
        Cancel,
        Close,
        CopyCommand, ///< the window stays
        SoftwareCentre,
        Skip,
        Later,
        Install,
        Restart,
    };

    struct Button {
        Choice choice;
        std::string title;

        [[nodiscard]] bool operator==(const Button&) const = default;
    };

    std::string headline{};
    std::string text{};            ///< may be empty
    std::string notes{};           ///< may be empty
    std::string command{};         ///< may be empty
    bool showsProgress = false;    ///< beginning with a bar that says nothing of how much
    std::string progressWords{};   ///< below the bar; may be empty
    std::optional<Button> apart{}; ///< stands away from the others
    std::vector<Button> buttons{}; ///< the last stands where the eye ends
    std::optional<Choice> onReturn{};
    std::optional<Choice> onEscape{}; ///< and what closing the window means
};

} // namespace pallistrom
