// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/FeedSignature.h"
#include "platform/linux/update/UpdateChoice.h"
#include "platform/linux/update/VersionOrder.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

using namespace pallistrom;

void expect(bool holds, const char* promise) {
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", promise);
        std::abort();
    }
}

void look(const Appcast& appcast, const UpdateSituation& situation) {
    const auto* const best = UpdateChoice::best(appcast.items, situation);
    if (best == nullptr) {
        return;
    }
    expect(VersionOrder::isOlder(situation.currentVersion, best->version), "it never goes back");
    const auto newest = UpdateChoice::newestVersion(appcast.items, situation);
    expect(!VersionOrder::isOlder(newest, best->version), "what is offered is not newer than all");
    const auto* const archive = UpdateChoice::archiveFor(*best, situation);
    expect(UpdateChoice::isNews(*best, situation) ||
               (archive != nullptr && archive->signature && archive->length > 0 &&
                archive->length <= situation.longestArchive),
           "what is offered can be checked");
}

} // namespace

// The input is a feed.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes are bytes
    const std::string_view feed(reinterpret_cast<const char*>(data), size);
    const AppcastLimits limits{.bytes = 65536, .items = 50, .text = 200, .notes = 400, .depth = 8};
    const Appcast appcast = Appcast::parse(feed, limits);
    expect(appcast.problem.empty() || appcast.items.empty(), "what is refused says nothing");
    expect(appcast.items.size() <= limits.items, "items are bounded");
    for (const auto& item : appcast.items) {
        expect(VersionOrder::isVersion(item.version), "each item has a version");
        expect(item.notes.size() <= limits.notes * 3, "notes are bounded");
        expect(item.notes.find('\0') == std::string::npos, "notes can be seen");
    }
    look(appcast, {.currentVersion = "1", .machine = "x86_64", .longestArchive = 1000});
    look(appcast,
         {.check = UpdateCheck::Asked,
          .currentVersion = "0",
          .systemVersion = "6.1",
          .machine = "aarch64",
          .channels = {"beta"},
          .skippedVersion = "2",
          .now = 1795266000,
          .rollOutGroup = 6,
          .longestArchive = ~std::uint64_t{0}});
    // No key signs by chance.
    const auto key = Ed25519Key::fromBase64("11qYAYKxCrfVS/7TyWQHOg7hcvPapiMlrwIaaPcHURo=");
    expect(!FeedSignature::signedPart(feed, key.value()), "nobody else can sign");
    return 0;
}
