// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT

// Says what assistive technology is told of the window whose title is the argument, a line for each
// thing on show: role, name, description, states, the middle on the screen, and its left end, with
// tabs between. With a role and a name as further arguments, presses the first such thing instead.

#include <atspi/atspi.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <memory>
#include <span>
#include <string>
#include <utility>

namespace {

struct Unreference {
    void operator()(gpointer object) const { g_object_unref(object); }
};

struct Free {
    void operator()(gpointer memory) const { g_free(memory); }
};

template<typename T>
using Reference = std::unique_ptr<T, Unreference>;

using Accessible = Reference<AtspiAccessible>;

/// The text in one line, and not ours to free any more.
std::string oneLine(gchar* text) {
    const std::unique_ptr<gchar, Free> owner{text};
    std::string line = text != nullptr ? text : "";
    std::replace(line.begin(), line.end(), '\n', ' ');
    return line;
}

bool has(AtspiAccessible* accessible, AtspiStateType state) {
    const Reference<AtspiStateSet> states{atspi_accessible_get_state_set(accessible)};
    return states && atspi_state_set_contains(states.get(), state) != FALSE;
}

std::string statesOf(AtspiAccessible* accessible) {
    constexpr std::array named{std::pair{ATSPI_STATE_CHECKED, "checked"},
                               std::pair{ATSPI_STATE_FOCUSABLE, "focusable"}};
    std::string text;
    for (const auto& [state, name] : named) {
        if (has(accessible, state)) {
            text += (text.empty() ? "" : " ") + std::string{name};
        }
    }
    return text;
}

std::string middleOf(AtspiAccessible* accessible) {
    const Reference<AtspiComponent> component{atspi_accessible_get_component_iface(accessible)};
    if (!component) {
        return "0\t0\t0";
    }
    const std::unique_ptr<AtspiRect, Free> area{
        atspi_component_get_extents(component.get(), ATSPI_COORD_TYPE_SCREEN, nullptr)};
    if (!area) {
        return "0\t0\t0";
    }
    return std::to_string(area->x + area->width / 2) + '\t' +
           std::to_string(area->y + area->height / 2) + '\t' + std::to_string(area->x);
}

template<typename Function>
void forEachChild(AtspiAccessible* accessible, Function function) {
    const int count = atspi_accessible_get_child_count(accessible, nullptr);
    for (int index = 0; index < count; ++index) {
        const Accessible child{atspi_accessible_get_child_at_index(accessible, index, nullptr)};
        if (child) {
            function(child.get());
        }
    }
}

// NOLINTNEXTLINE(misc-no-recursion): it is a tree.
void describe(AtspiAccessible* accessible) {
    if (has(accessible, ATSPI_STATE_SHOWING)) {
        std::cout << oneLine(atspi_accessible_get_role_name(accessible, nullptr)) << '\t'
                  << oneLine(atspi_accessible_get_name(accessible, nullptr)) << '\t'
                  << oneLine(atspi_accessible_get_description(accessible, nullptr)) << '\t'
                  << statesOf(accessible) << '\t' << middleOf(accessible) << '\n';
    }
    forEachChild(accessible, describe);
}

bool press(AtspiAccessible* accessible) {
    const Reference<AtspiAction> action{atspi_accessible_get_action_iface(accessible)};
    return action && atspi_action_do_action(action.get(), 0, nullptr) != FALSE;
}

// NOLINTNEXTLINE(misc-no-recursion): it is a tree.
bool pressFirst(AtspiAccessible* accessible, const std::string& role, const std::string& name) {
    if (has(accessible, ATSPI_STATE_SHOWING) &&
        oneLine(atspi_accessible_get_role_name(accessible, nullptr)) == role &&
        oneLine(atspi_accessible_get_name(accessible, nullptr)) == name) {
        return press(accessible);
    }
    bool isPressed = false;
    forEachChild(accessible, [&](AtspiAccessible* child) {
        isPressed = isPressed || pressFirst(child, role, name);
    });
    return isPressed;
}

} // namespace

int main(int argc, char** argv) {
    const std::span arguments{argv, static_cast<std::size_t>(argc)};
    const bool isToPress = arguments.size() == 4;
    if ((arguments.size() != 2 && !isToPress) || atspi_init() > 1) {
        return 1;
    }
    bool isPressed = false;
    const std::string title = arguments[1];
    const Accessible desktop{atspi_get_desktop(0)};
    forEachChild(desktop.get(), [&](AtspiAccessible* program) {
        forEachChild(program, [&](AtspiAccessible* window) {
            if (oneLine(atspi_accessible_get_name(window, nullptr)) != title) {
                return;
            }
            if (!isToPress) {
                describe(window);
            } else if (!isPressed) {
                isPressed = pressFirst(window, arguments[2], arguments[3]);
            }
        });
    });
    return isToPress && !isPressed ? 1 : 0;
}
