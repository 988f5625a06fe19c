// A GTK 3 text view.
#include "Tests/Support/Xorg/TextViews/TextView.h"

#include <gtk/gtk.h>

#include <cmath>

namespace {

double startFraction = 0;

void sayValue(GtkAdjustment *adjustment, gpointer /*data*/)
{
    textview::sayPosition(gtk_adjustment_get_value(adjustment));
}

GtkWidget *makeScrolledText()
{
    auto *text = gtk_text_view_new();
    auto *buffer = gtk_text_view_get_buffer(GTK_TEXT_VIEW(text));
    gtk_text_buffer_set_text(buffer, textview::longText().c_str(), -1);
    auto *scrolled = gtk_scrolled_window_new(nullptr, nullptr);
    gtk_container_add(GTK_CONTAINER(scrolled), text);
    return scrolled;
}

// Comes when nothing else is left to do: the lines are laid out in the background, which sets the range.
gboolean goToStart(gpointer data)
{
    auto *adjustment = GTK_ADJUSTMENT(data);
    const double range = gtk_adjustment_get_upper(adjustment) - gtk_adjustment_get_page_size(adjustment);
    gtk_adjustment_set_value(adjustment, std::floor(range * startFraction)); // text stands at whole pixels
    g_signal_connect(adjustment, "value-changed", G_CALLBACK(sayValue), nullptr);
    textview::sayReady(gtk_adjustment_get_value(adjustment));
    return G_SOURCE_REMOVE;
}

} // namespace

int main(int argc, char **argv)
{
    gtk_init(&argc, &argv);
    startFraction = textview::startFraction(argc, argv);
    auto *window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    auto *scrolled = makeScrolledText();
    gtk_container_add(GTK_CONTAINER(window), scrolled);
    gtk_window_set_default_size(GTK_WINDOW(window), textview::width, textview::height);
    g_signal_connect(window, "destroy", G_CALLBACK(gtk_main_quit), nullptr);
    gtk_widget_show_all(window);
    auto *adjustment = gtk_scrolled_window_get_vadjustment(GTK_SCROLLED_WINDOW(scrolled));
    g_idle_add_full(G_PRIORITY_LOW, goToStart, adjustment, nullptr);
    gtk_main();
    return 0;
}
