// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/windows/UpdatePage.h"

#include <QDialog>

#include <cstdint>
#include <functional>
#include <string>

class QLabel;
class QVBoxLayout;

namespace pallistrom {

class ThinProgressBar;

/// The one window of an update conversation. Shows one page at a time, and says which of the page's
/// choices the user has made; after one that ends the page it waits, greyed out, for what comes
/// next. Closing it, or Escape, is the page's safe choice.
///
/// Where it comes up unasked it leaves the keyboard to the program in front, and what is typed for
/// that one answers nothing here, even if the desktop gives it the focus: Return counts only once
/// the user has turned to the window.
class UpdateWindow final : public QDialog {
public:
    enum class Arrival : std::uint8_t {
        Asked,   ///< comes to the front
        Unasked, ///< stays behind
    };

    /// `choose` may be called from within the window's own event handlers.
    explicit UpdateWindow(std::function<void(UpdatePage::Choice)> choose);

    /// Takes the place of the page before, and shows the window if it is hidden.
    void showPage(const UpdatePage& page, Arrival arrival);

    /// Of a page with progress: how far it is, and in words.
    void setProgress(std::uint64_t done, std::uint64_t all, const std::string& words);

    void bringToFront();

    /// QDialog's name for Escape and for the close button.
    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void build();
    void addTexts(QVBoxLayout& column, int width);
    void addProgress(QVBoxLayout& column);
    [[nodiscard]] QLayout* makeButtons();
    void choose(UpdatePage::Choice choice);
    void focusFirst(Arrival arrival);
    void applyQuietColour();

    std::function<void(UpdatePage::Choice)> m_choose;
    UpdatePage m_page;
    QWidget* m_content = nullptr; ///< all that the page shows; it belongs to the window
    QLabel* m_headline = nullptr; ///< these belong to the content
    QLabel* m_text = nullptr;
    QLabel* m_progressWords = nullptr;
    ThinProgressBar* m_progress = nullptr;
};

} // namespace pallistrom
