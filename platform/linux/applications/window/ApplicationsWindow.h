// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/applications/ApplicationKinds.h"

#include <QDialog>

class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace pallistrom {

struct ApplicationGroup;

/// The window in which the user says which applications the shortcuts leave alone. A tick counts at
/// once. It looks anew at what there is to choose whenever it becomes the active window.
class ApplicationsWindow final : public QDialog {
public:
    /// `kinds` outlive the window.
    explicit ApplicationsWindow(ApplicationKinds& kinds);

    /// Opens the one window of this session, or brings it to the front.
    static void present();

protected:
    void changeEvent(QEvent* event) override;

private:
    void fill();
    void addGroup(const ApplicationGroup& group);
    void choose(const QTreeWidgetItem& item);
    void showMatches();

    ApplicationKinds& m_kinds;
    QLineEdit* m_search; ///< both belong to the window, as its children
    QTreeWidget* m_list;
};

} // namespace pallistrom
