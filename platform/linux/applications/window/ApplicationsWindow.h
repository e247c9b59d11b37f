// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/applications/ApplicationKinds.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QVBoxLayout;
class QTreeWidget;
class QTreeWidgetItem;

namespace pallistrom {

struct ApplicationGroup;
class TickBox;

/// The window in which the user says which applications the shortcuts leave alone. A tick counts at
/// once, be it made in the list or below it, where all is said of the application that is chosen
/// there: first the one that was in front. It looks anew at what there is to choose whenever it
/// becomes the active window.
class ApplicationsWindow final : public QDialog {
public:
    /// `kinds` outlive the window.
    explicit ApplicationsWindow(ApplicationKinds& kinds);

    /// Opens the one window of this session, or brings it to the front.
    static void present();

protected:
    void changeEvent(QEvent* event) override;

private:
    void addList(QVBoxLayout& column);
    void addChoice(QVBoxLayout& column);
    void fill();
    void addGroup(const ApplicationGroup& group);
    void setCurrent(const QVariant& application);
    void choose(const QTreeWidgetItem& item);
    void showChoices();
    void showCurrent();
    void showMatches();

    ApplicationKinds& m_kinds;
    QLineEdit* m_search; ///< these belong to the window, as its children
    QTreeWidget* m_list;
    QLabel* m_current;
    TickBox* m_leaveAlone; ///< of the current application
};

} // namespace pallistrom
