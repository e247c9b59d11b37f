// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/LoginToggle.h"

#include "shell/state/AppState.h"
#include "views/StateObserver.h"
#include "views/controls/Text.h"
#include "views/style/localized.h"

namespace pallistrom {

namespace {

constexpr std::string_view title = "Launch Pallistrom at login";

Binding launchAtLogin(AppState& state) {
    return {
        .get = [&state] { return state.launchAtLogin(); },
        .set = [&state](bool enabled) { state.setLaunchAtLogin(enabled); },
    };
}

} // namespace

LoginToggle::LoginToggle(AppState& state, Width width)
    : Toggle(new Text(localized(title), TextStyle::Body),
             localized(title),
             launchAtLogin(state),
             width) {
    new StateObserver(
        state, [this] { readAgain(); }, this);
}

} // namespace pallistrom
