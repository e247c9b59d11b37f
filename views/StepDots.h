// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <cstdint>
#include <vector>

namespace pallistrom {

class Dot;

/// A dot for each step of a guide, the current one highlighted.
class StepDots final : public QWidget {
    Q_OBJECT

public:
    /// `total` must not be negative. A `current` that is no index of a dot highlights none.
    StepDots(std::int64_t current, std::int64_t total);

    void setCurrent(std::int64_t current);

private:
    std::vector<Dot*> m_dots;
};

} // namespace pallistrom
