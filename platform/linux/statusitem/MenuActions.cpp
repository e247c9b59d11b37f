// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/statusitem/MenuActions.h"

#include "platform/linux/application/QtApplication.h"

#include <algorithm>
#include <utility>

namespace pallistrom::MenuActions {

namespace {

NSMenu menuOnShow;

/// Whether a target was named at all, be it gone or not.
bool namesTarget(const NSMenuItem& item) {
    const std::weak_ptr<ActionTarget> none;
    return item.target.owner_before(none) || none.owner_before(item.target);
}

bool answersTo(const NSMenuItem& item, std::string_view name, std::string_view parameter) {
    std::string_view selector = item.action;
    if (!selector.empty() && selector.back() == ':') {
        selector.remove_suffix(1);
    }
    return item.isEnabled && !selector.empty() && selector == name &&
           item.representedObject == parameter;
}

} // namespace

void setMenu(NSMenu menu) {
    menuOnShow = std::move(menu);
}

void perform(const NSMenuItem& item) {
    if (item.action.empty() || !item.isEnabled) {
        return;
    }
    const std::shared_ptr<ActionTarget> target =
        namesTarget(item) ? item.target.lock() : qtApplication().delegate();
    if (target != nullptr) {
        target->performAction(item.action, &item);
    }
}

void perform(std::string_view name, std::string_view parameter) {
    const auto found = std::find_if(menuOnShow.begin(), menuOnShow.end(), [&](const auto& item) {
        return answersTo(item, name, parameter);
    });
    if (found != menuOnShow.end()) {
        // A copy: the action may set another menu.
        const NSMenuItem item = *found;
        perform(item);
    }
}

} // namespace pallistrom::MenuActions
