// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/onboarding/StepStack.h"

#include "views/style/localized.h"
#include "views/style/stacks.h"

namespace pallistrom {

StepStack::StepStack(int spacing) : m_column(makeColumn(spacing)) {
    auto* const middle = makeColumn(0, this);
    middle->addStretch();
    middle->addLayout(m_column);
    middle->addStretch();
}

void StepStack::addCentred(QWidget* part) {
    m_column->addWidget(part, 0, Qt::AlignHCenter);
}

void StepStack::addWide(QLayout* part) {
    m_column->addLayout(part);
}

Text* StepStack::addCentredText(std::string_view key, TextStyle style, Tone tone) {
    auto* const text = new Text(localized(key), style, tone);
    text->setAlignment(Qt::AlignCenter);
    m_column->addWidget(text);
    return text;
}

} // namespace pallistrom
