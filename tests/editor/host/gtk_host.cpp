// A host on GTK 3: shows the plug-in's editor in a window of its own for two seconds.
#include "tests/editor/host/small_host.h"

#include <gtk/gtk.h>
#include <gtk/gtkx.h>

using velmora::test::SmallHost;

int main(int argc, char** argv)
{
    g_setenv("GDK_BACKEND", "x11", TRUE);
    g_setenv("G_DEBUG", "fatal-criticals", TRUE);
    gtk_init(&argc, &argv);
    SmallHost host(argc, argv);

    GtkWidget* const window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    GtkWidget* const area = gtk_drawing_area_new();
    gtk_widget_set_size_request(area, host.width(), host.height());
    gtk_container_add(GTK_CONTAINER(window), area);
    gtk_widget_show_all(window);
    GdkWindow* const surface = gtk_widget_get_window(area);
    if (!gdk_window_ensure_native(surface)) return SmallHost::kNoWindow;
    gdk_display_sync(gdk_display_get_default()); // the server shall know the window

    if (!host.open(gdk_x11_window_get_xid(surface))) return SmallHost::kRefused;
    const auto idle = [](gpointer data) -> gboolean {
        static_cast<SmallHost*>(data)->idle();
        return G_SOURCE_CONTINUE;
    };
    const auto quit = [](gpointer) -> gboolean {
        gtk_main_quit();
        return G_SOURCE_REMOVE;
    };
    const guint idling = g_timeout_add(SmallHost::kIdleMilliseconds, idle, &host);
    g_timeout_add(SmallHost::kShownMilliseconds, quit, nullptr);
    gtk_main();

    const bool shown = host.showsPicture();
    host.close();
    g_source_remove(idling);
    host.unload();
    gtk_widget_destroy(window);
    gdk_display_sync(gdk_display_get_default()); // errors that are still on their way
    return shown ? 0 : SmallHost::kBlank;
}
