// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "AccessibleTree.h"

#include <QAccessible>

namespace pallistrom {

namespace {

std::string roleName(QAccessible::Role role) {
    switch (role) {
    case QAccessible::CheckBox:
        return "check box";
    case QAccessible::Button:
        return "button";
    case QAccessible::StaticText:
        return "text";
    case QAccessible::Grouping:
        return "group";
    case QAccessible::Dialog:
        return "dialog";
    case QAccessible::EditableText:
        return "text field";
    case QAccessible::ProgressBar:
        return "progress bar";
    case QAccessible::Client:
    case QAccessible::Window:
    case QAccessible::LayeredPane:
        return {}; // holds others, says nothing
    default:
        return "role " + std::to_string(static_cast<int>(role));
    }
}

std::string describe(const QAccessibleInterface& object) {
    std::string line = roleName(object.role());
    if (line.empty()) {
        return line;
    }
    line += " '" + object.text(QAccessible::Name).toStdString() + "'";
    const QAccessible::State state = object.state();
    if (object.role() == QAccessible::CheckBox) {
        line += state.checked ? " on" : " off";
    }
    if (state.focusable) {
        line += " focusable";
    }
    if (const auto description = object.text(QAccessible::Description); !description.isEmpty()) {
        line += " (" + description.toStdString() + ")";
    }
    return line;
}

void visit(const QAccessibleInterface& object, std::vector<std::string>& lines) {
    if (object.state().invisible) {
        return;
    }
    if (auto line = describe(object); !line.empty()) {
        lines.push_back(std::move(line));
    }
    for (int index = 0; index < object.childCount(); ++index) {
        visit(*object.child(index), lines);
    }
}

} // namespace

std::vector<std::string> accessibleTree(QWidget& window) {
    std::vector<std::string> lines;
    visit(*QAccessible::queryAccessibleInterface(&window), lines);
    return lines;
}

} // namespace pallistrom
