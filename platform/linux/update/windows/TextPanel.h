// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>

#include <cstdint>

namespace pallistrom {

/// Plain text to read and to copy in a panel with round corners. As high as the text, up to a dozen
/// lines; then it scrolls. Nothing in the text means anything: no tag, no address.
class TextPanel final : public QPlainTextEdit {
public:
    enum class Kind : std::uint8_t {
        Notes,
        Command, ///< in letters of one width
    };

    TextPanel(const QString& text, Kind kind, QWidget* parent);

    /// Makes it as high as its text needs in a panel of that width.
    void fitHeight(int width);

protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
};

} // namespace pallistrom
