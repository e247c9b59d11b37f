// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/window/ApplicationsWindow.h"

#include "SettingsFolder.h"
#include "workspace/WindowLoop.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>

#include <gtest/gtest.h>

#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace pallistrom {

namespace {

class ApplicationsWindowTest : public testing::Test {
protected:
    ApplicationsWindow& open() {
        window = std::make_unique<ApplicationsWindow>(kinds);
        window->show();
        return *window;
    }

    [[nodiscard]] QTreeWidget& list() const { return *window->findChild<QTreeWidget*>(); }

    [[nodiscard]] QLabel& current() const {
        return *window->findChild<QLabel*>(QStringLiteral("current"));
    }

    [[nodiscard]] QCheckBox& leaveAlone() const { return *window->findChild<QCheckBox*>(); }

    // What can be seen, a heading with what is below it in brackets.
    [[nodiscard]] std::string visible(int heading) const {
        std::string text = list().topLevelItem(heading)->text(0).toStdString() + " [";
        for (QTreeWidgetItem* const row : rows(heading)) {
            text += row->isHidden() ? "" : row->text(0).toStdString() + ' ';
        }
        return text + ']';
    }

    [[nodiscard]] std::vector<QTreeWidgetItem*> rows(int heading) const {
        std::vector<QTreeWidgetItem*> result;
        for (int i = 0; i < list().topLevelItem(heading)->childCount(); ++i) {
            result.push_back(list().topLevelItem(heading)->child(i));
        }
        return result;
    }

    void bringToFront(const std::string& instance, const std::string& name) {
        static_cast<void>(kinds.kindOfFront({.instance = instance, .name = name}));
    }

    WindowLoop loop;
    SettingsFolder folder;
    ApplicationChoices choices{folder.name()};
    ApplicationKinds kinds{DesktopEntries({folder.path()}), choices};
    std::unique_ptr<ApplicationsWindow> window;
};

TEST_F(ApplicationsWindowTest, showsWhatHasBeenInFrontByTheNameThatPeopleKnow) {
    std::ofstream(folder.path() / "firefox.desktop") << "[Desktop Entry]\nName=Firefox Browser\n";
    bringToFront("xterm", "XTerm");
    bringToFront("Navigator", "firefox");
    open();
    EXPECT_EQ(visible(0), "In front just now [Firefox Browser ]");
    EXPECT_EQ(visible(1), "In front before [XTerm ]");
    EXPECT_EQ(rows(0)[0]->checkState(0), Qt::Unchecked);
    EXPECT_EQ(rows(1)[0]->checkState(0), Qt::Checked);
    EXPECT_EQ(rows(1)[0]->text(1).left(10), QStringLiteral("a terminal"));
}

TEST_F(ApplicationsWindowTest, letsTheUserLeaveAnApplicationAlone) {
    bringToFront("Navigator", "firefox");
    open();
    rows(0)[0]->setCheckState(0, Qt::Checked);
    EXPECT_TRUE(kinds.isLeftAlone({.instance = "Navigator", .name = "firefox"}));
    rows(0)[0]->setCheckState(0, Qt::Unchecked);
    EXPECT_FALSE(kinds.isLeftAlone({.instance = "Navigator", .name = "firefox"}));
}

TEST_F(ApplicationsWindowTest, beginsWithTheApplicationThatWasInFront) {
    bringToFront("emacs", "Emacs");
    bringToFront("Navigator", "firefox");
    open();
    EXPECT_EQ(current().text(), QStringLiteral("firefox"));
    EXPECT_FALSE(leaveAlone().isChecked());
    leaveAlone().click();
    EXPECT_TRUE(kinds.isLeftAlone({.instance = "Navigator", .name = "firefox"}));
    EXPECT_EQ(rows(0)[0]->checkState(0), Qt::Checked);
    rows(0)[0]->setCheckState(0, Qt::Unchecked);
    EXPECT_FALSE(leaveAlone().isChecked());
}

TEST_F(ApplicationsWindowTest, saysAllOfTheApplicationThatIsChosenInTheList) {
    bringToFront("Navigator", "firefox");
    bringToFront("emacs", "Emacs");
    open();
    EXPECT_TRUE(current().text().startsWith(QStringLiteral("Emacs: control-W cuts")));
    EXPECT_EQ(leaveAlone().accessibleDescription(), current().text());
    EXPECT_TRUE(leaveAlone().isChecked());
    list().setCurrentItem(rows(1)[0]);
    EXPECT_EQ(current().text(), QStringLiteral("firefox"));
    EXPECT_FALSE(leaveAlone().isChecked());
    // A heading is none, and one that nobody sees is none either.
    list().setCurrentItem(list().topLevelItem(0));
    EXPECT_EQ(current().text(), QString());
    EXPECT_FALSE(leaveAlone().isEnabled());
    list().setCurrentItem(rows(1)[0]);
    window->findChild<QLineEdit*>()->setText(QStringLiteral("emacs"));
    EXPECT_FALSE(leaveAlone().isEnabled());
}

TEST_F(ApplicationsWindowTest, letsTheUserTakeABuiltInOneBack) {
    open();
    ASSERT_EQ(list().topLevelItemCount(), 1);
    for (QTreeWidgetItem* const row : rows(0)) {
        if (row->text(0) == QStringLiteral("emacs*")) {
            EXPECT_EQ(row->checkState(0), Qt::Checked);
            row->setCheckState(0, Qt::Unchecked);
        }
    }
    EXPECT_FALSE(kinds.isLeftAlone({.instance = "emacs", .name = "Emacs"}));
    EXPECT_TRUE(kinds.isLeftAlone({.instance = "gvim", .name = "Gvim"}));
}

TEST_F(ApplicationsWindowTest, showsAChoiceInEveryRowThatItIsOf) {
    bringToFront("emacs", "Emacs");
    bringToFront("foot", "foot");
    open();
    const auto ofPattern = [this] {
        list().setCurrentItem(nullptr);
        for (QTreeWidgetItem* const row : rows(2)) {
            EXPECT_NE(row->text(0), QStringLiteral("foot")); // It has been in front.
            if (row->text(0) == QStringLiteral("emacs*")) {
                return row;
            }
        }
        throw std::runtime_error("there is no such row");
    };
    ofPattern()->setCheckState(0, Qt::Unchecked);
    EXPECT_EQ(rows(1)[0]->checkState(0), Qt::Unchecked);
    rows(1)[0]->setCheckState(0, Qt::Checked);
    EXPECT_EQ(ofPattern()->checkState(0), Qt::Unchecked);
}

TEST_F(ApplicationsWindowTest, showsEarlierChoicesOnceAndChangesNoneByShowingThem) {
    choices.setLeftAlone("some.editor", true);
    choices.setLeftAlone("emacs*", false);
    const std::string before = folder.text("applications.ini");
    bringToFront("x", "Some.Editor");
    open();
    EXPECT_EQ(visible(0), "In front just now [Some.Editor ]");
    EXPECT_EQ(list().topLevelItemCount(), 2);
    window.reset();
    choices.setLeftAlone("another", false);
    open();
    EXPECT_EQ(visible(1), "Your other choices [another ]");
    EXPECT_EQ(folder.text("applications.ini"), before + "another=false\n");
}

TEST_F(ApplicationsWindowTest, findsWhatIsSearchedFor) {
    bringToFront("Navigator", "firefox");
    open();
    auto* const search = window->findChild<QLineEdit*>();
    search->setText(QStringLiteral("EMACS"));
    EXPECT_TRUE(list().topLevelItem(0)->isHidden());
    EXPECT_EQ(visible(1), "Known from the start [emacs* ]");
    search->clear();
    EXPECT_FALSE(list().topLevelItem(0)->isHidden());
    EXPECT_EQ(visible(0), "In front just now [firefox ]");
}

} // namespace

} // namespace pallistrom
