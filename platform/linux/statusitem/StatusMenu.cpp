// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/statusitem/StatusMenu.h"

#include "platform/linux/statusitem/MenuText.h"

#include <QKeyEvent>
#include <QPointer>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <utility>

namespace pallistrom {

namespace {

/// For how long a menu counts as open without any further word. Panels say when they open it; many
/// never say that it is closed, and some say that they open it when they only look at it. Where
/// that is all we are told, a change must not wait for long. A panel that has said once that a menu
/// was closed will say so again, unless it dies.
constexpr std::chrono::seconds openAsFarAsIsKnown{10};
constexpr std::chrono::seconds openUntilToldOtherwise{120};

bool isOn(const NSMenuItem& item) {
    return item.state == NSControlStateValue::NSControlStateValueOn;
}

/// Setters of QAction say nothing to the panel when the value is the old one.
void dress(QAction& action, const NSMenuItem& item) {
    action.setSeparator(item.isSeparator);
    action.setText(MenuText::label(item.title));
    action.setShortcut(MenuText::keys(item.keyEquivalent));
    action.setCheckable(item.isCheckable);
    action.setChecked(item.isCheckable && isOn(item));
    action.setEnabled(item.isEnabled);
}

} // namespace

StatusMenu::StatusMenu(std::function<void(const NSMenuItem&)> choose)
    : m_choose(std::move(choose)) {
    m_openness.setSingleShot(true);
    connect(&m_openness, &QTimer::timeout, this, &StatusMenu::close);
    connect(&m_menu, &QMenu::aboutToShow, this, &StatusMenu::opened);
    connect(&m_menu, &QMenu::aboutToHide, this, [this] {
        m_isToldOfClosing = true;
        close();
    });
    m_menu.installEventFilter(this);
}

void StatusMenu::show(NSMenu menu) {
    if (m_openness.isActive()) {
        m_next = std::move(menu);
    } else {
        apply(std::move(menu));
    }
}

void StatusMenu::opened() {
    // To be opened it must have been closed, whoever did not tell.
    close();
    m_openness.start(m_isToldOfClosing ? openUntilToldOtherwise : openAsFarAsIsKnown);
}

void StatusMenu::close() {
    m_openness.stop();
    if (m_next) {
        apply(*std::exchange(m_next, std::nullopt));
    }
}

void StatusMenu::apply(NSMenu menu) {
    for (const auto& step : menuDifference(m_shown, menu)) {
        apply(step);
    }
    // Also what cannot be seen, targets for example.
    m_shown = std::move(menu);
}

void StatusMenu::apply(const MenuStep& step) {
    const auto place = m_actions.begin() + static_cast<std::ptrdiff_t>(step.index);
    switch (step.kind) {
    case MenuStep::Kind::Insert: {
        auto action = std::make_unique<QAction>();
        connect(action.get(), &QAction::triggered, this, [this, chosenAction = action.get()] {
            chosen(*chosenAction);
        });
        dress(*action, step.item);
        m_menu.insertAction(place != m_actions.end() ? place->get() : nullptr, action.get());
        m_actions.insert(place, std::move(action));
        break;
    }
    case MenuStep::Kind::Remove:
        m_menu.removeAction(place->get());
        // Not at once: it may be the one that is speaking.
        place->release()->deleteLater();
        m_actions.erase(place);
        break;
    case MenuStep::Kind::Change:
        dress(**place, step.item);
        break;
    }
}

void StatusMenu::chosen(const QAction& action) {
    const auto place = std::find_if(m_actions.begin(), m_actions.end(), [&](const auto& known) {
        return known.get() == &action;
    });
    if (place == m_actions.end()) {
        return;
    }
    auto& item = m_shown.at(static_cast<std::size_t>(place - m_actions.begin()));
    // A copy, with the mark that the chooser saw: what follows may bring another menu.
    const NSMenuItem asChosen = item;
    if (item.isCheckable) {
        // Qt has turned the mark already; the next value says whether that was right.
        item.state = action.isChecked() ? NSControlStateValue::NSControlStateValueOn
                                        : NSControlStateValue::NSControlStateValueOff;
    }
    close();
    m_choose(asChosen);
}

bool StatusMenu::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) {
        return QObject::eventFilter(watched, event);
    }
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const QKeySequence pressed(key.keyCombination());
    const auto found = std::find_if(m_actions.begin(), m_actions.end(), [&](const auto& action) {
        return action->isEnabled() && !action->shortcut().isEmpty() &&
               action->shortcut() == pressed;
    });
    if (found == m_actions.end()) {
        return QObject::eventFilter(watched, event);
    }
    // Closing brings in what waited, which may be without this item.
    const QPointer<QAction> action(found->get());
    m_menu.close();
    if (action != nullptr && action->isEnabled()) {
        action->trigger();
    }
    return true;
}

} // namespace pallistrom
