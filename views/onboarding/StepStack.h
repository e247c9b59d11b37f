// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "views/controls/Text.h"

#include <QWidget>

#include <string_view>

class QLayout;
class QVBoxLayout;

namespace pallistrom {

/// What the steps of the guide have in common: their parts one below the other, in the middle of
/// the room there is.
class StepStack : public QWidget {
    Q_OBJECT

protected:
    explicit StepStack(int spacing);

    /// Adds a part in its own size, in the middle.
    void addCentred(QWidget* part);

    /// Adds a part as wide as the step.
    void addWide(QLayout* part);

    /// Adds a text whose lines are centred.
    Text* addCentredText(std::string_view key, TextStyle style, Tone tone = Tone::Primary);

private:
    QVBoxLayout* m_column;
};

} // namespace pallistrom
