// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "GtkTextField.h"

#include <glib-unix.h>

#include <string>
#include <string_view>

namespace pallistrom::e2e {

namespace {

/// What GTK 3 and GTK 4 call the same is all that the two fields use.
class SingleLine final : public GtkTextField {
public:
    SingleLine() : GtkTextField{gtk_entry_new()} {}

    TextState state() const override {
        char* text = gtk_editable_get_chars(editable(), 0, -1);
        TextState state{.text = text, .cursor = gtk_editable_get_position(editable())};
        g_free(text);
        return state;
    }

    void setState(const TextState& state) override {
        int end = 0;
        gtk_editable_delete_text(editable(), 0, -1);
        gtk_editable_insert_text(
            editable(), state.text.data(), static_cast<int>(state.text.size()), &end);
        gtk_editable_set_position(editable(), state.cursor);
    }

protected:
    gpointer changingObject() const override { return widget(); }

private:
    GtkEditable* editable() const { return GTK_EDITABLE(widget()); }
};

class Multiline final : public GtkTextField {
public:
    Multiline() : GtkTextField{gtk_text_view_new()} {
        auto* view = GTK_TEXT_VIEW(widget());
        gtk_text_view_set_top_margin(view, 6);
        gtk_text_view_set_left_margin(view, 6);
        gtk_text_view_set_right_margin(view, 6);
    }

    TextState state() const override {
        GtkTextIter start;
        GtkTextIter end;
        GtkTextIter cursor;
        gtk_text_buffer_get_bounds(buffer(), &start, &end);
        gtk_text_buffer_get_iter_at_mark(buffer(), &cursor, gtk_text_buffer_get_insert(buffer()));
        char* text = gtk_text_buffer_get_text(buffer(), &start, &end, FALSE);
        TextState state{.text = text, .cursor = gtk_text_iter_get_offset(&cursor)};
        g_free(text);
        return state;
    }

    void setState(const TextState& state) override {
        GtkTextIter cursor;
        gtk_text_buffer_set_text(buffer(), state.text.data(), static_cast<int>(state.text.size()));
        gtk_text_buffer_get_iter_at_offset(buffer(), &cursor, state.cursor);
        gtk_text_buffer_place_cursor(buffer(), &cursor);
    }

protected:
    gpointer changingObject() const override { return buffer(); }

private:
    GtkTextBuffer* buffer() const { return gtk_text_view_get_buffer(GTK_TEXT_VIEW(widget())); }
};

} // namespace

GtkTextField::GtkTextField(GtkWidget* widget) : m_widget{widget} {}

std::unique_ptr<GtkTextField> GtkTextField::make(bool isMultiline) {
    if (isMultiline) {
        return std::make_unique<Multiline>();
    }
    return std::make_unique<SingleLine>();
}

void GtkTextField::onChange(std::function<void()> action) {
    m_changeAction = std::move(action);
    const auto changed = +[](gpointer, GtkTextField* field) {
        field->scheduleReport();
    };
    g_signal_connect(changingObject(), "changed", G_CALLBACK(changed), this);
}

void GtkTextField::scheduleReport() {
    if (m_pendingReport != 0) {
        return;
    }
    // Later, because the signal comes while the cursor is still where it was.
    const auto report = +[](gpointer self) -> gboolean {
        auto* field = static_cast<GtkTextField*>(self);
        field->m_pendingReport = 0;
        field->m_changeAction();
        return G_SOURCE_REMOVE;
    };
    m_pendingReport = g_idle_add(report, this);
}

int runGtkField(int argc,
                char** argv,
                const std::function<void(GtkTextField& field, FieldProtocol& protocol)>& show) {
    const bool isMultiline = argc > 1 && std::string_view{argv[1]} == "--multiline";
    const auto field = GtkTextField::make(isMultiline);
    GMainLoop* loop = g_main_loop_new(nullptr, FALSE);
    FieldProtocol protocol{*field, [loop] {
                               g_main_loop_quit(loop);
                           }};
    field->onChange([&protocol] { protocol.reportText(); });
    const auto readable = +[](int, GIOCondition, gpointer reader) -> gboolean {
        static_cast<FieldProtocol*>(reader)->readCommands();
        return G_SOURCE_CONTINUE;
    };
    constexpr auto readableOrClosed = static_cast<GIOCondition>(G_IO_IN | G_IO_HUP);
    g_unix_fd_add(0, readableOrClosed, readable, &protocol);
    show(*field, protocol);
    g_main_loop_run(loop);
    g_main_loop_unref(loop);
    return 0;
}

} // namespace pallistrom::e2e
