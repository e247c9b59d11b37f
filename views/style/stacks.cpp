// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/style/stacks.h"

namespace pallistrom {

namespace {

template<class Layout>
Layout* make(int spacing, QWidget* owner) {
    auto* const layout = new Layout(owner);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    return layout;
}

} // namespace

QVBoxLayout* makeColumn(int spacing, QWidget* owner) {
    return make<QVBoxLayout>(spacing, owner);
}

QHBoxLayout* makeRow(int spacing, QWidget* owner) {
    return make<QHBoxLayout>(spacing, owner);
}

} // namespace pallistrom
