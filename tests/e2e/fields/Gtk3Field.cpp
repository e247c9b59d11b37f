// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "GtkTextField.h"

using pallistrom::e2e::FieldProtocol;
using pallistrom::e2e::GtkTextField;

namespace {

void setFont() {
    GtkCssProvider* style = gtk_css_provider_new();
    gtk_css_provider_load_from_data(style, "entry, textview { font-size: 16px; }", -1, nullptr);
    gtk_style_context_add_provider_for_screen(gdk_screen_get_default(),
                                              GTK_STYLE_PROVIDER(style),
                                              GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
    g_object_unref(style);
}

/// What the window shows: the field itself, in a scrolled frame if it has many lines.
GtkWidget* contentFor(const GtkTextField& field) {
    if (!field.isMultiline()) {
        gtk_widget_set_valign(field.widget(), GTK_ALIGN_CENTER);
        return field.widget();
    }
    GtkWidget* frame = gtk_scrolled_window_new(nullptr, nullptr);
    gtk_scrolled_window_set_shadow_type(GTK_SCROLLED_WINDOW(frame), GTK_SHADOW_IN);
    gtk_container_add(GTK_CONTAINER(frame), field.widget());
    return frame;
}

void show(GtkTextField& field, FieldProtocol& protocol) {
    setFont();
    GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    gtk_window_set_title(GTK_WINDOW(window), "Text field");
    gtk_window_set_default_size(GTK_WINDOW(window), 480, 120);
    gtk_container_set_border_width(GTK_CONTAINER(window), 20);
    gtk_container_add(GTK_CONTAINER(window), contentFor(field));

    const auto focusChanged = +[](GtkWidget* entry, GParamSpec*, FieldProtocol* listener) {
        if (gtk_widget_has_focus(entry)) {
            listener->reportReady();
        }
    };
    g_signal_connect(field.widget(), "notify::has-focus", G_CALLBACK(focusChanged), &protocol);
    gtk_widget_grab_focus(field.widget());
    gtk_widget_show_all(window);
}

} // namespace

int main(int argc, char** argv) {
    gtk_init(&argc, &argv);
    return pallistrom::e2e::runGtkField(argc, argv, show);
}
