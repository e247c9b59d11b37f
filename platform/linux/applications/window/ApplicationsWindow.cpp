// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/window/ApplicationsWindow.h"

#include "platform/linux/QtText.h"
#include "platform/linux/applications/window/ApplicationGroups.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace pallistrom {

namespace {

constexpr int margin = 24;
constexpr int space = 12;
constexpr int widthInCharacters = 92; // So that it grows with the desktop's letters.
constexpr int heightInLines = 36;
constexpr int nameColumn = 0;
constexpr int reasonColumn = 1;
constexpr int applicationRole = Qt::UserRole;

/// Draws a frame around the place of a tick. Styles draw one that cannot be seen on a dark ground.
class TickDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter,
               const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        if (!index.data(Qt::CheckStateRole).isValid()) {
            return;
        }
        QStyleOptionViewItem item = option;
        initStyleOption(&item, index);
        const QRect place = item.widget->style()->subElementRect(
            QStyle::SE_ItemViewItemCheckIndicator, &item, item.widget);
        constexpr float faintness = 0.4F;
        QColor colour = item.palette.color(QPalette::Text);
        colour.setAlphaF(faintness);
        painter->setPen(colour);
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(place.adjusted(0, 0, -1, -1));
    }
};

} // namespace

ApplicationsWindow::ApplicationsWindow(ApplicationKinds& kinds)
    : m_kinds(kinds), m_search(new QLineEdit(this)), m_list(new QTreeWidget(this)) {
    setWindowTitle(QStringLiteral("Applications"));
    auto* const explanation =
        new QLabel(QStringLiteral("Applications with a tick are left alone: while one of them is "
                                  "in front, it gets your keys as you press them."),
                   this);
    explanation->setTextFormat(Qt::PlainText);
    explanation->setWordWrap(true);

    m_search->setPlaceholderText(QStringLiteral("Search"));
    m_search->setAccessibleName(QStringLiteral("Search"));
    m_search->setClearButtonEnabled(true);
    connect(m_search, &QLineEdit::textChanged, this, [this] { showMatches(); });

    m_list->setHeaderLabels({QStringLiteral("Leave alone"), QStringLiteral("Why")});
    m_list->setAccessibleName(QStringLiteral("Applications"));
    m_list->header()->setSectionResizeMode(nameColumn, QHeaderView::ResizeToContents);
    m_list->header()->setSectionsMovable(false);
    m_list->setUniformRowHeights(true);
    m_list->setItemDelegate(new TickDelegate(m_list));
    connect(m_list, &QTreeWidget::itemChanged, this, [this](const QTreeWidgetItem* item) {
        choose(*item);
    });

    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);

    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(space);
    column->addWidget(explanation);
    column->addWidget(m_search);
    column->addWidget(m_list, 1);
    column->addWidget(buttons);
    resize(widthInCharacters * fontMetrics().averageCharWidth(),
           heightInLines * fontMetrics().lineSpacing());
    fill();
    m_list->setFocus();
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
    showMatches();
    for (QTreeWidgetItemIterator item(m_list); *item != nullptr; ++item) {
        if (application.isValid() && (*item)->data(nameColumn, applicationRole) == application) {
            m_list->setCurrentItem(*item);
        }
    }
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
}

} // namespace pallistrom
