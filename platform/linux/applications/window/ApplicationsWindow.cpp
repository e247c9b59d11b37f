// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/window/ApplicationsWindow.h"

#include "platform/linux/QtText.h"
#include "platform/linux/applications/window/ApplicationGroups.h"
#include "platform/linux/applications/window/TickBox.h"
#include "platform/linux/applications/window/TickDelegate.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <map>

namespace pallistrom {

namespace {

constexpr int margin = 24;
constexpr int space = 12;
constexpr int widthInCharacters = 92; // So that it grows with the desktop's letters.
constexpr int heightInLines = 36;
constexpr int nameColumn = 0;
constexpr int reasonColumn = 1;
constexpr int applicationRole = Qt::UserRole;

} // namespace

ApplicationsWindow::ApplicationsWindow(ApplicationKinds& kinds)
    : m_kinds(kinds),
      m_search(new QLineEdit(this)),
      m_list(new QTreeWidget(this)),
      m_current(new QLabel(this)),
      m_leaveAlone(new TickBox(QStringLiteral("Leave this application alone"), this)) {
    setWindowTitle(QStringLiteral("Applications"));
    auto* const explanation =
        new QLabel(QStringLiteral("Applications with a tick are left alone: while one of them is "
                                  "in front, it gets your keys as you press them."),
                   this);
    explanation->setTextFormat(Qt::PlainText);
    explanation->setWordWrap(true);
    explanation->lower(); // Read before what was made before it.

    m_search->setPlaceholderText(QStringLiteral("Search"));
    m_search->setAccessibleName(QStringLiteral("Search"));
    m_search->setClearButtonEnabled(true);
    connect(m_search, &QLineEdit::textChanged, this, [this] { showMatches(); });

    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(space);
    column->addWidget(explanation);
    column->addWidget(m_search);
    addList(*column);
    addChoice(*column);
    resize(widthInCharacters * fontMetrics().averageCharWidth(),
           heightInLines * fontMetrics().lineSpacing());
    fill();
    m_list->setFocus();
}

void ApplicationsWindow::addList(QVBoxLayout& column) {
    m_list->setHeaderLabels({QStringLiteral("Leave alone"), QStringLiteral("Why")});
    m_list->setAccessibleName(QStringLiteral("Applications"));
    m_list->header()->setSectionResizeMode(nameColumn, QHeaderView::ResizeToContents);
    m_list->header()->setSectionsMovable(false);
    m_list->setUniformRowHeights(true);
    m_list->setItemDelegate(new TickDelegate(m_list));
    connect(m_list, &QTreeWidget::itemChanged, this, [this](const QTreeWidgetItem* item) {
        choose(*item);
    });
    connect(m_list, &QTreeWidget::currentItemChanged, this, [this] { showCurrent(); });
    column.addWidget(m_list, 1);
}

// Ticks in a list are out of reach for who has only assistive technology to press things with.
void ApplicationsWindow::addChoice(QVBoxLayout& column) {
    m_current->setObjectName(QStringLiteral("current"));
    m_current->setTextFormat(Qt::PlainText);
    m_current->setWordWrap(true);
    m_current->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    // Most reasons need no more, and the list keeps its size.
    m_current->setMinimumHeight(2 * m_current->fontMetrics().lineSpacing());
    column.addWidget(m_current);
    // Assistive technology toggles it without a click.
    connect(m_leaveAlone, &TickBox::toggled, this, [this](bool isChecked) {
        m_list->currentItem()->setCheckState(nameColumn, isChecked ? Qt::Checked : Qt::Unchecked);
    });

    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    auto* const row = new QHBoxLayout;
    row->addWidget(m_leaveAlone);
    row->addWidget(buttons);
    column.addLayout(row);
}

void ApplicationsWindow::present() {
    static QPointer<ApplicationsWindow> window;
    if (!window) {
        window = new ApplicationsWindow(ApplicationKinds::ofSession());
        window->setAttribute(Qt::WA_DeleteOnClose);
    }
    window->show();
    window->raise();
    window->activateWindow();
}

void ApplicationsWindow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        fill();
    }
    QDialog::changeEvent(event);
}

void ApplicationsWindow::fill() {
    const QSignalBlocker blocker(m_list); // What is shown here is chosen already.
    const auto* const current = m_list->currentItem();
    const QVariant application =
        current == nullptr ? QVariant() : current->data(nameColumn, applicationRole);
    m_list->clear();
    for (const ApplicationGroup& group : applicationGroups(m_kinds)) {
        addGroup(group);
    }
    setCurrent(application);
    showMatches();
}

// The first of all where there is no such application any more.
void ApplicationsWindow::setCurrent(const QVariant& application) {
    const QTreeWidgetItem* first = m_list->topLevelItem(0);
    QTreeWidgetItem* current = first == nullptr ? nullptr : first->child(0);
    for (QTreeWidgetItemIterator item(m_list); *item != nullptr; ++item) {
        if (application.isValid() && (*item)->data(nameColumn, applicationRole) == application) {
            current = *item;
            break;
        }
    }
    m_list->setCurrentItem(current);
    showCurrent();
}

void ApplicationsWindow::addGroup(const ApplicationGroup& group) {
    if (group.rows.empty()) {
        return;
    }
    auto* const heading = new QTreeWidgetItem(m_list, {qtText(group.title)});
    heading->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    heading->setFirstColumnSpanned(true);
    QFont bold = font();
    bold.setBold(true);
    heading->setFont(nameColumn, bold);
    for (const ApplicationRow& row : group.rows) {
        auto* const item = new QTreeWidgetItem(heading, {qtText(row.title), qtText(row.reason)});
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(nameColumn, row.isLeftAlone ? Qt::Checked : Qt::Unchecked);
        item->setData(nameColumn, applicationRole, qtText(row.application));
        item->setToolTip(nameColumn, qtText(row.application));
        item->setToolTip(reasonColumn, qtText(row.reason));
    }
    heading->setExpanded(true);
}

void ApplicationsWindow::choose(const QTreeWidgetItem& item) {
    m_kinds.choices().setLeftAlone(item.data(nameColumn, applicationRole).toString().toStdString(),
                                   item.checkState(nameColumn) == Qt::Checked);
    showChoices();
}

// One choice can be that of several rows: of an application, and of a pattern that fits it.
void ApplicationsWindow::showChoices() {
    std::map<QString, bool> choices;
    for (const ApplicationGroup& group : applicationGroups(m_kinds)) {
        for (const ApplicationRow& row : group.rows) {
            choices.emplace(qtText(row.application), row.isLeftAlone);
        }
    }
    const QSignalBlocker blocker(m_list);
    for (QTreeWidgetItemIterator item(m_list); *item != nullptr; ++item) {
        const auto choice = choices.find((*item)->data(nameColumn, applicationRole).toString());
        if (choice != choices.end()) {
            (*item)->setCheckState(nameColumn, choice->second ? Qt::Checked : Qt::Unchecked);
        }
    }
    m_list->viewport()->update(); // Nobody told it.
    showCurrent();
}

void ApplicationsWindow::showCurrent() {
    const auto* const item = m_list->currentItem();
    const bool isApplication =
        item != nullptr && item->data(nameColumn, applicationRole).isValid() && !item->isHidden();
    QString text;
    if (isApplication) {
        text = item->text(nameColumn);
        const QString reason = item->text(reasonColumn);
        text += reason.isEmpty() ? QString() : QStringLiteral(": ") + reason;
    }
    const QSignalBlocker blocker(m_leaveAlone); // It is set, and not chosen anew.
    m_current->setText(text);
    m_leaveAlone->setEnabled(isApplication);
    m_leaveAlone->setChecked(isApplication && item->checkState(nameColumn) == Qt::Checked);
    m_leaveAlone->setAccessibleDescription(text);
}

void ApplicationsWindow::showMatches() {
    const QString wanted = m_search->text();
    for (int i = 0; i < m_list->topLevelItemCount(); ++i) {
        QTreeWidgetItem* const heading = m_list->topLevelItem(i);
        bool hasMatch = false;
        for (int j = 0; j < heading->childCount(); ++j) {
            QTreeWidgetItem* const item = heading->child(j);
            const bool isMatch = item->text(nameColumn).contains(wanted, Qt::CaseInsensitive) ||
                                 item->text(reasonColumn).contains(wanted, Qt::CaseInsensitive) ||
                                 item->toolTip(nameColumn).contains(wanted, Qt::CaseInsensitive);
            item->setHidden(!isMatch);
            hasMatch = hasMatch || isMatch;
        }
        heading->setHidden(!hasMatch);
    }
    showCurrent();
}

} // namespace pallistrom
