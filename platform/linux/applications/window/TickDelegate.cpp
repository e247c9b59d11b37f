// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/window/TickDelegate.h"

#include "platform/linux/applications/window/TickBox.h"

#include <QStyle>
#include <QWidget>

namespace pallistrom {

QSize TickDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    constexpr int space = 6;
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, space);
}

void TickDelegate::paint(QPainter* painter,
                         const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    if (!index.data(Qt::CheckStateRole).isValid()) {
        return;
    }
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    TickBox::drawFrame(*painter,
                       item.widget->style()->subElementRect(
                           QStyle::SE_ItemViewItemCheckIndicator, &item, item.widget),
                       item.palette);
}

} // namespace pallistrom
