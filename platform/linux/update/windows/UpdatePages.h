// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/UpdateUserDriver.h"
#include "platform/linux/update/windows/UpdatePage.h"

#include <cstdint>
#include <string>
#include <string_view>

/// The pages of the update conversation, in its order.
namespace pallistrom::UpdatePages {

/// What can fail, as far as the user was told of it.
enum class Step : std::uint8_t { Check, Download, Installation };

/// Whether the desktop has a program that shows and updates what is installed.
enum class SoftwareCentre : std::uint8_t { Missing, There };

[[nodiscard]] UpdatePage checking();
[[nodiscard]] UpdatePage upToDate(std::string_view currentVersion);
[[nodiscard]] UpdatePage offer(const UpdateOffer& offer);
[[nodiscard]] UpdatePage download(std::string_view newVersion);
[[nodiscard]] UpdatePage installing(std::string_view newVersion);
[[nodiscard]] UpdatePage installed(std::string_view newVersion);
[[nodiscard]] UpdatePage
packageWay(const UpdateOffer& offer, const std::string& command, SoftwareCentre softwareCentre);
[[nodiscard]] UpdatePage failure(Step step, const std::string& reason);

/// Returns what stands below the bar of the download. `expected` is 0 if nobody knows.
[[nodiscard]] std::string progressText(std::uint64_t received, std::uint64_t expected);

} // namespace pallistrom::UpdatePages
