// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "FieldProtocol.h"

#include <gtk/gtk.h>

#include <functional>
#include <memory>

namespace pallistrom::e2e {

/// A text field of the GTK that this file is compiled for, 3 or 4.
class GtkTextField : public TextField {
public:
    /// Makes an entry or, with `isMultiline`, a text view.
    static std::unique_ptr<GtkTextField> make(bool isMultiline);

    /// The widget that takes the keys. Owned by the window into which it is put.
    GtkWidget* widget() const { return m_widget; }

    bool isMultiline() const { return GTK_IS_TEXT_VIEW(m_widget); }

    /// Calls `action` from the event loop once the text has changed and the cursor is in its place,
    /// once for changes that follow each other closely.
    void onChange(std::function<void()> action);

protected:
    explicit GtkTextField(GtkWidget* widget);

    /// The object whose "changed" signal tells of changes of the text.
    virtual gpointer changingObject() const = 0;

private:
    void scheduleReport();

    GtkWidget* m_widget;
    std::function<void()> m_changeAction;
    guint m_pendingReport = 0;
};

/// Runs a field's program: `show` makes the window around the field, and calls
/// FieldProtocol::reportReady() once the field has the keyboard.
int runGtkField(int argc,
                char** argv,
                const std::function<void(GtkTextField& field, FieldProtocol& protocol)>& show);

} // namespace pallistrom::e2e
