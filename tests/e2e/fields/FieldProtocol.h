// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "TextState.h"

#include <functional>
#include <string>
#include <string_view>

namespace pallistrom::e2e {

/// What a toolkit's text field must be able to do.
class TextField {
public:
    TextField() = default;
    TextField(const TextField&) = delete;
    TextField& operator=(const TextField&) = delete;
    virtual ~TextField() = default;

    virtual TextState state() const = 0;

    /// Replaces text and cursor and leaves nothing selected.
    virtual void setState(const TextState& state) = 0;
};

/// A field's side of its conversation with a test, over standard input and output, line by line:
///
///     set CURSOR TEXT    puts TEXT into the field        ready               the field has the
///     keyboard get                changes nothing                 text CURSOR TEXT    after each
///     command and change quit               ends the program
///
/// The event loop is the toolkit's: it calls in when standard input can be read and when the field
/// has changed. A test that is gone ends the program as `quit` does.
class FieldProtocol {
public:
    FieldProtocol(TextField& field, std::function<void()> quit);

    /// Says "ready", the first time it is called.
    void reportReady();

    void reportText() const;

    /// Reads what waits on standard input and obeys each whole line.
    void readCommands();

private:
    void obey(std::string_view line);

    TextField& m_field;
    std::function<void()> m_quit;
    std::string m_unread;
    bool m_saidReady = false;
};

} // namespace pallistrom::e2e
