// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/windows/UpdatePages.h"

#include "pallistrom/Names.h"
#include "platform/linux/update/windows/PlainWords.h"

namespace pallistrom::UpdatePages {

namespace {

using Choice = UpdatePage::Choice;
using Button = UpdatePage::Button;

const Button cancelButton{Choice::Cancel, "Cancel"};
const Button closeButton{Choice::Close, "Close"};

std::string productOf(std::string_view version) {
    std::string text(Names::product);
    if (!version.empty()) {
        text += ' ';
        text += PlainWords::shortened(version);
    }
    return text;
}

std::string textOf(const UpdateOffer& offer) {
    std::string text = productOf(offer.newVersion) + " is ready";
    if (!offer.currentVersion.empty()) {
        text += "; you have " + PlainWords::shortened(offer.currentVersion);
    }
    text += '.';
    return offer.isCritical ? text + " It mends something that matters: please do not put it off."
                            : text;
}

std::string_view headlineOf(Step step) {
    switch (step) {
    case Step::Check:
        return "Could not look for updates";
    case Step::Download:
        return "Could not download the update";
    case Step::Installation:
        return "Could not install the update";
    }
    return {};
}

std::string withTenth(std::uint64_t bytes, std::uint64_t unit) {
    const std::uint64_t tenths = bytes / (unit / 10);
    return std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10);
}

std::string amount(std::uint64_t bytes) {
    constexpr std::uint64_t kilo = 1'000;
    constexpr std::uint64_t mega = 1'000 * kilo;
    constexpr std::uint64_t giga = 1'000 * mega;
    if (bytes >= giga) {
        return withTenth(bytes, giga) + " GB";
    }
    return bytes >= mega ? withTenth(bytes, mega) + " MB" : std::to_string(bytes / kilo) + " kB";
}

} // namespace

UpdatePage checking() {
    return {.headline = "Checking for updates…",
            .showsProgress = true,
            .buttons = {cancelButton},
            .onEscape = Choice::Cancel};
}

UpdatePage upToDate(std::string_view currentVersion) {
    return {.headline = "You're up to date",
            .text = productOf(currentVersion) + " is the newest version there is.",
            .buttons = {{Choice::Close, "OK"}},
            .onReturn = Choice::Close,
            .onEscape = Choice::Close};
}

UpdatePage offer(const UpdateOffer& offer) {
    UpdatePage page{.headline = "A new version of " + std::string(Names::product) + " is here",
                    .text = textOf(offer),
                    .notes = offer.notes,
                    .buttons = {{Choice::Later, "Remind Me Later"}, {Choice::Install, {}}},
                    .onReturn = Choice::Install,
                    .onEscape = Choice::Later};
    page.buttons.back().title =
        offer.kind == InstallKind::ReplaceItself ? "Install Update" : "Get Update";
    if (!offer.isCritical) {
        page.apart = {Choice::Skip, "Skip This Version"};
    }
    return page;
}

UpdatePage download(std::string_view newVersion) {
    return {.headline = "Downloading " + productOf(newVersion) + "…",
            .showsProgress = true,
            .progressWords = "Connecting…",
            .buttons = {cancelButton},
            .onEscape = Choice::Cancel};
}

UpdatePage installing(std::string_view newVersion) {
    return {.headline = "Installing " + productOf(newVersion) + "…",
            .text = "Your shortcuts keep working meanwhile.",
            .showsProgress = true};
}

UpdatePage installed(std::string_view newVersion) {
    return {.headline = productOf(newVersion) + " is installed",
            .text = "It takes over as soon as " + std::string(Names::product) +
                    " starts again, which takes a moment.",
            .buttons = {{Choice::Later, "Later"}, {Choice::Restart, "Restart Now"}},
            .onReturn = Choice::Restart,
            .onEscape = Choice::Later};
}

UpdatePage
packageWay(const UpdateOffer& offer, const std::string& command, SoftwareCentre softwareCentre) {
    const bool hasCentre = softwareCentre == SoftwareCentre::There;
    const std::string product(Names::product);
    UpdatePage page{.headline = "Get " + productOf(offer.newVersion),
                    .text = product + " was installed as a package, so your system updates it, " +
                            "along with everything else",
                    .command = command,
                    .buttons = {closeButton},
                    .onReturn = Choice::Close,
                    .onEscape = Choice::Close};
    page.text += command.empty() ? "." : ". You can also do it right away in a terminal:";
    if (!command.empty()) {
        page.apart = {Choice::CopyCommand, "Copy Command"};
    }
    if (hasCentre) {
        page.buttons.push_back({Choice::SoftwareCentre, "Open Software Centre"});
        page.onReturn = Choice::SoftwareCentre;
    }
    return page;
}

UpdatePage failure(Step step, const std::string& reason) {
    return {.headline = std::string(headlineOf(step)),
            .text = reason,
            .buttons = {closeButton},
            .onReturn = Choice::Close,
            .onEscape = Choice::Close};
}

std::string progressText(std::uint64_t received, std::uint64_t expected) {
    return expected == 0 ? amount(received) : amount(received) + " of " + amount(expected);
}

} // namespace pallistrom::UpdatePages
