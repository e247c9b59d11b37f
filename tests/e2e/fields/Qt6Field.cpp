// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FieldProtocol.h"

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSocketNotifier>
#include <QTextCursor>
#include <QVBoxLayout>
#include <QWidget>

#include <unistd.h>

#include <functional>
#include <memory>

namespace {

using pallistrom::e2e::FieldProtocol;
using pallistrom::e2e::TextField;
using pallistrom::e2e::TextState;

/// A text field of Qt. Its widget belongs to the window into which it is put.
class QtTextField : public TextField {
public:
    virtual QWidget* widget() = 0;

    /// Calls `action` after each change of the text, once the cursor is in its place.
    virtual void onChange(const std::function<void()>& action) = 0;
};

class SingleLine final : public QtTextField {
public:
    SingleLine() { m_edit->setTextMargins(4, 4, 4, 4); }

    QLineEdit* widget() override { return m_edit; }

    TextState state() const override {
        return {.text = m_edit->text().toStdString(), .cursor = m_edit->cursorPosition()};
    }

    void setState(const TextState& state) override {
        m_edit->setText(QString::fromStdString(state.text));
        m_edit->setCursorPosition(state.cursor);
    }

    void onChange(const std::function<void()>& action) override {
        QObject::connect(m_edit, &QLineEdit::textChanged, m_edit, action, Qt::QueuedConnection);
    }

private:
    QLineEdit* m_edit = new QLineEdit;
};

class Multiline final : public QtTextField {
public:
    QPlainTextEdit* widget() override { return m_edit; }

    TextState state() const override {
        return {.text = m_edit->toPlainText().toStdString(),
                .cursor = m_edit->textCursor().position()};
    }

    void setState(const TextState& state) override {
        m_edit->setPlainText(QString::fromStdString(state.text));
        QTextCursor cursor = m_edit->textCursor();
        cursor.setPosition(state.cursor);
        m_edit->setTextCursor(cursor);
    }

    void onChange(const std::function<void()>& action) override {
        QObject::connect(
            m_edit, &QPlainTextEdit::textChanged, m_edit, action, Qt::QueuedConnection);
    }

private:
    QPlainTextEdit* m_edit = new QPlainTextEdit;
};

std::unique_ptr<QtTextField> makeField(bool isMultiline) {
    if (isMultiline) {
        return std::make_unique<Multiline>();
    }
    return std::make_unique<SingleLine>();
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application{argc, argv};
    QFont font = QApplication::font();
    font.setPixelSize(16);
    QApplication::setFont(font);

    QWidget window;
    window.setWindowTitle(QStringLiteral("Text field"));
    window.resize(480, 120);
    auto* layout = new QVBoxLayout{&window};
    layout->setContentsMargins(20, 20, 20, 20);
    const auto field = makeField(QApplication::arguments().contains(QStringLiteral("--multiline")));
    layout->addWidget(field->widget());

    FieldProtocol protocol{*field, &QApplication::quit};
    field->onChange([&protocol] { protocol.reportText(); });
    const QSocketNotifier commands{STDIN_FILENO, QSocketNotifier::Read};
    QObject::connect(
        &commands, &QSocketNotifier::activated, &window, [&protocol] { protocol.readCommands(); });
    QObject::connect(
        &application, &QApplication::focusChanged, &window, [&](QWidget*, QWidget* now) {
            if (now == field->widget()) {
                protocol.reportReady();
            }
        });
    window.show();
    return QApplication::exec();
}
