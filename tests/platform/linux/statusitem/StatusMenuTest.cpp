// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/statusitem/StatusMenu.h"

#include "OffscreenApplication.h"
#include "statusitem/MenuItems.h"

#include <QKeyEvent>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pallistrom {

namespace {

using MenuItems::Mark;
using Strings = std::vector<std::string>;

/// Counts what a panel would be told: every change of an action, and those that come and go.
class Panel : public QObject {
public:
    explicit Panel(QMenu& menu) {
        menu.installEventFilter(this);
        for (QAction* const action : menu.actions()) {
            connect(action, &QAction::changed, this, [this] { ++news; });
        }
    }

    int news = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::ActionAdded || event->type() == QEvent::ActionRemoved) {
            ++news;
        }
        return QObject::eventFilter(watched, event);
    }
};

class StatusMenuTest : public testing::Test {
protected:
    // Here no event loop runs that would delete later what is to be deleted later.
    void TearDown() override {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void open() { Q_EMIT status.menu().aboutToShow(); }

    void close() { Q_EMIT status.menu().aboutToHide(); }

    Strings titles() {
        Strings texts;
        for (const QAction* const action : status.menu().actions()) {
            texts.push_back(action->isSeparator() ? "-" : action->text().toStdString());
        }
        return texts;
    }

    QAction& action(qsizetype index) { return *status.menu().actions().at(index); }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QCoreApplication::sendEvent(&status.menu(), &event);
    }

    OffscreenApplication application;
    Strings chosen;
    StatusMenu status{[this](const NSMenuItem& item) {
        chosen.push_back(item.action + ' ' + item.representedObject);
        whenChosen();
    }};
    std::function<void()> whenChosen = [] {
    };
};

TEST_F(StatusMenuTest, showsTheItemsOfItsValue) {
    status.show(MenuItems::usual());
    EXPECT_EQ(titles(),
              (Strings{"Shortcuts",
                       "Shortcut ctrlW",
                       "Shortcut ctrlU",
                       "-",
                       "Settings…",
                       "-",
                       "Quit Pallistrom"}));
    EXPECT_FALSE(action(0).isEnabled());
    EXPECT_TRUE(action(1).isCheckable() && action(1).isChecked());
    EXPECT_TRUE(action(2).isCheckable() && !action(2).isChecked());
    EXPECT_FALSE(action(4).isCheckable());
    EXPECT_EQ(action(4).shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Comma));
    EXPECT_EQ(action(6).shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Q));
}

TEST_F(StatusMenuTest, tellsNobodyOfAValueThatIsTheSame) {
    status.show(MenuItems::usual());
    const Panel panel(status.menu());
    status.show(MenuItems::usual());
    EXPECT_EQ(panel.news, 0);
}

TEST_F(StatusMenuTest, changesTheOneItemThatDiffersAndKeepsItsAction) {
    status.show(MenuItems::usual());
    const QAction* const before = &action(2);
    const Panel panel(status.menu());
    NSMenu wanted = MenuItems::usual();
    wanted.at(2) = MenuItems::shortcut("ctrlU", Mark::On);
    status.show(wanted);
    EXPECT_EQ(panel.news, 1);
    EXPECT_EQ(&action(2), before);
    EXPECT_TRUE(action(2).isChecked());
}

TEST_F(StatusMenuTest, letsTheWarningComeAndGoAndKeepsTheRest) {
    status.show(MenuItems::usual());
    const auto before = status.menu().actions();
    status.show(MenuItems::warning());
    EXPECT_EQ(status.menu().actions().mid(2), before);
    EXPECT_EQ(titles().front(), "⚠ Accessibility access needed");
    status.show(MenuItems::usual());
    EXPECT_EQ(status.menu().actions(), before);
}

TEST_F(StatusMenuTest, standsStillWhileItIsOpenAndTakesTheLastValueWhenItCloses) {
    status.show(MenuItems::usual());
    const Panel panel(status.menu());
    open();
    status.show(MenuItems::warning());
    NSMenu last = MenuItems::usual();
    last.at(4).title = "Options…";
    status.show(last);
    EXPECT_EQ(panel.news, 0);
    EXPECT_EQ(action(4).text(), QStringLiteral("Settings…"));

    close();
    EXPECT_EQ(action(4).text(), QStringLiteral("Options…"));
    EXPECT_EQ(panel.news, 1);
}

TEST_F(StatusMenuTest, opensAnewWithTheLastValueWhereNobodySaidThatItWasClosed) {
    status.show(MenuItems::usual());
    open();
    status.show(MenuItems::warning());
    open();
    EXPECT_EQ(titles().front(), "⚠ Accessibility access needed");
    status.show(MenuItems::usual());
    EXPECT_EQ(titles().front(), "⚠ Accessibility access needed");
}

TEST_F(StatusMenuTest, isClosedByAChoice) {
    status.show(MenuItems::usual());
    open();
    action(4).trigger();
    EXPECT_EQ(chosen, Strings{"showSettings "});
    status.show(MenuItems::warning());
    EXPECT_EQ(titles().front(), "⚠ Accessibility access needed");
}

TEST_F(StatusMenuTest, tellsWhichItemWasChosen) {
    status.show(MenuItems::usual());
    action(2).trigger();
    action(6).trigger();
    EXPECT_EQ(chosen, (Strings{"toggleShortcut: ctrlU", "quit "}));
}

TEST_F(StatusMenuTest, takesItsCheckMarksFromTheValueWhateverQtDoesAtAClick) {
    status.show(MenuItems::usual());
    action(2).trigger();
    // The switch could not be changed, so the value is what it was.
    status.show(MenuItems::usual());
    EXPECT_FALSE(action(2).isChecked());
}

TEST_F(StatusMenuTest, survivesAChoiceThatChangesTheMenu) {
    status.show(MenuItems::warning());
    whenChosen = [this] {
        status.show(MenuItems::usual());
    };
    action(0).trigger();
    EXPECT_EQ(chosen, Strings{"openAccessibility "});
    EXPECT_EQ(titles().front(), "Shortcuts");
}

TEST_F(StatusMenuTest, actsOnItsKeyEquivalents) {
    status.show(MenuItems::usual());
    press(Qt::Key_Q, Qt::ControlModifier);
    press(Qt::Key_Comma, Qt::ControlModifier);
    EXPECT_EQ(chosen, (Strings{"quit ", "showSettings "}));
}

TEST_F(StatusMenuTest, actsOnNoOtherKeys) {
    NSMenu menu = MenuItems::usual();
    menu.at(6).isEnabled = false;
    status.show(menu);
    press(Qt::Key_Q, Qt::ControlModifier);
    press(Qt::Key_Q, Qt::NoModifier);
    press(Qt::Key_Q, Qt::MetaModifier);
    press(Qt::Key_Comma, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(chosen, Strings{});
}

} // namespace

} // namespace pallistrom
