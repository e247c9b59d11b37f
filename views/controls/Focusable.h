// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "views/controls/FocusRing.h"

#include <QFocusEvent>

namespace pallistrom {

/// A control `Base` whose keyboard focus shows as a ring around it.
template<class Base>
class Focusable : public Base {
public:
    explicit Focusable(double cornerRadius) : m_cornerRadius(cornerRadius) {}

protected:
    void focusInEvent(QFocusEvent* event) override {
        Base::focusInEvent(event);
        FocusRing::enter(*this, m_cornerRadius, event->reason());
    }

    void focusOutEvent(QFocusEvent* event) override {
        Base::focusOutEvent(event);
        FocusRing::leave(*this);
    }

private:
    double m_cornerRadius;
};

} // namespace pallistrom
