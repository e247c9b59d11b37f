// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "LongerTexts.h"
#include "OnboardingTest.h"
#include "engine/ShortcutLibrary.h"
#include "views/SettingsView.h"
#include "views/controls/Badge.h"
#include "views/controls/Text.h"

#include <QApplication>

#include <set>

namespace pallistrom {

namespace {

class WindowTexts : public OnboardingTest {
protected:
    /// Calls `look` for each window in each of its states.
    template<class Look>
    void forEachState(const Look& look) {
        for (const bool trusted : {false, true}) {
            setTrusted(trusted);
            for (std::int64_t step = 0; step <= OnboardingView::lastStep; ++step) {
                openAt(step);
                look(static_cast<QWidget&>(*view));
            }
            SettingsView settings(
                state, [] {}, [] {});
            show(settings);
            look(static_cast<QWidget&>(settings));
        }
    }

    /// Expects that a widget lies within all those around it, with as much room as its text takes.
    static void expectRoom(const QWidget& widget, const QString& text) {
        const int height =
            widget.hasHeightForWidth() ? widget.heightForWidth(widget.width()) : widget.height();
        EXPECT_GE(widget.height(), height) << qPrintable(text);
        EXPECT_GE(widget.width(), widget.minimumSizeHint().width()) << qPrintable(text);
        for (const QWidget* each = widget.parentWidget(); each != nullptr;
             each = each->parentWidget()) {
            EXPECT_TRUE(each->rect().contains(placeOf(widget, *each))) << qPrintable(text);
        }
    }

    void expectRoomForAll() {
        forEachState([](QWidget& window) {
            for (const QLabel* const label : window.findChildren<QLabel*>()) {
                if (label->isVisible()) {
                    expectRoom(*label, label->text());
                }
            }
            for (const QAbstractButton* const button : window.findChildren<QAbstractButton*>()) {
                if (button->isVisible()) {
                    expectRoom(*button, button->text());
                }
            }
        });
    }
};

TEST_F(WindowTexts, haveRoom) {
    expectRoomForAll();
}

TEST_F(WindowTexts, haveRoomWhereTheyAreAThirdLonger) {
    lengthenTexts(platform);
    expectRoomForAll();
}

TEST_F(WindowTexts, haveRoomInEveryKindOfFont) {
    lengthenTexts(platform);
    const QFont before = QApplication::font();
    for (const char* const family : {"Sans Serif", "Serif", "Monospace"}) {
        SCOPED_TRACE(family);
        QApplication::setFont(QFont(QString::fromLatin1(family)));
        expectRoomForAll();
    }
    QApplication::setFont(before);
}

TEST_F(WindowTexts, areAllAskedForByTheirKeys) {
    for (const std::string_view key : windowTexts()) {
        platform.localizedStrings[std::string(key)] = "<" + std::string(key) + ">";
    }
    std::set<QString> shown;
    forEachState([&shown](QWidget& window) {
        for (const QString& text : visibleTexts(window)) {
            shown.insert(text);
        }
    });
    std::set<QString> expected{QStringLiteral("v1.2")};
    for (const auto& [key, text] : platform.localizedStrings) {
        expected.insert(QString::fromStdString(text));
    }
    for (const ShortcutDef& shortcut : ShortcutLibrary::all) {
        expected.insert(QString::fromStdString(std::string(shortcut.title)));
        expected.insert(QString::fromStdString(std::string(shortcut.subtitle)));
    }
    EXPECT_EQ(shown, expected);
}

} // namespace

} // namespace pallistrom
