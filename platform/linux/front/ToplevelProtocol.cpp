// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/ToplevelProtocol.h"

#include "platform/linux/front/CosmicToplevels.h"
#include "platform/linux/front/WlrToplevels.h"

namespace pallistrom {

std::unique_ptr<ToplevelProtocol> ToplevelProtocol::begin(wl_registry* registry,
                                                          const ToplevelGlobals& globals) {
    if (globals.wlrManager) {
        return std::make_unique<WlrToplevels>(registry, *globals.wlrManager);
    }
    if (globals.list && globals.cosmicInfo) {
        return std::make_unique<CosmicToplevels>(registry, *globals.list, *globals.cosmicInfo);
    }
    return nullptr;
}

} // namespace pallistrom
