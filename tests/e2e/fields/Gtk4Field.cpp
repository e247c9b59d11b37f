// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "GtkTextField.h"

using pallistrom::e2e::FieldProtocol;
using pallistrom::e2e::GtkTextField;

namespace {

void setFont() {
    GtkCssProvider* style = gtk_css_provider_new();
    gtk_css_provider_load_from_data(style, "entry, textview { font-size: 16px; }", -1);
    gtk_style_context_add_provider_for_display(gdk_display_get_default(),
                                               GTK_STYLE_PROVIDER(style),
                                               GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
    g_object_unref(style);
}

/// What the window shows: the field itself, in a scrolled frame if it has many lines.
GtkWidget* contentFor(const GtkTextField& field) {
    GtkWidget* content = field.widget();
    if (field.isMultiline()) {
        content = gtk_scrolled_window_new();
        gtk_scrolled_window_set_has_frame(GTK_SCROLLED_WINDOW(content), TRUE);
        gtk_scrolled_window_set_child(GTK_SCROLLED_WINDOW(content), field.widget());
    } else {
        gtk_widget_set_valign(content, GTK_ALIGN_CENTER);
    }
    gtk_widget_set_margin_top(content, 20);
    gtk_widget_set_margin_bottom(content, 20);
    gtk_widget_set_margin_start(content, 20);
    gtk_widget_set_margin_end(content, 20);
    return content;
}

void show(GtkTextField& field, FieldProtocol& protocol) {
    setFont();
    GtkWidget* window = gtk_window_new();
    gtk_window_set_title(GTK_WINDOW(window), "Text field");
    gtk_window_set_default_size(GTK_WINDOW(window), 480, 120);
    gtk_window_set_child(GTK_WINDOW(window), contentFor(field));

    // A widget of GTK 4 has the focus of its window also while the window is not active.
    const auto activeChanged = +[](GtkWindow* subject, GParamSpec*, FieldProtocol* listener) {
        if (gtk_window_is_active(subject)) {
            listener->reportReady();
        }
    };
    g_signal_connect(window, "notify::is-active", G_CALLBACK(activeChanged), &protocol);
    gtk_widget_grab_focus(field.widget());
    gtk_window_present(GTK_WINDOW(window));
}

} // namespace

int main(int argc, char** argv) {
    gtk_init();
    return pallistrom::e2e::runGtkField(argc, argv, show);
}
