// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/controls/Toggle.h"

#include "views/controls/Switch.h"
#include "views/style/stacks.h"

#include <QMouseEvent>
#include <QSignalBlocker>

#include <utility>

namespace pallistrom {

namespace {

constexpr int labelToSwitch = 8;

} // namespace

Toggle::Toggle(QWidget* label, const QString& name, Binding binding, Width width)
    : m_binding(std::move(binding)), m_switch(new Switch) {
    m_switch->setAccessibleName(name);
    auto* const row = makeRow(labelToSwitch, this);
    row->addWidget(label, width == Width::Filling ? 1 : 0);
    row->addWidget(m_switch);
    // Not clicked(): assistive technology toggles without a click.
    connect(m_switch, &QCheckBox::toggled, this, &Toggle::write);
    readAgain();
}

void Toggle::readAgain() {
    const QSignalBlocker isNoChangeOfOurs(m_switch);
    m_switch->showValue(m_binding.get());
}

// Where the change is refused, nobody publishes anything: so look at what has come of it.
void Toggle::write(bool isOn) {
    m_binding.set(isOn);
    readAgain();
}

void Toggle::mousePressEvent(QMouseEvent* event) {
    event->setAccepted(event->button() == Qt::LeftButton);
}

void Toggle::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
        m_switch->click();
    }
}

} // namespace pallistrom
