// Starts the desktop stack as the host does, maps a window, then loses two blocks of the
// project's own: one from plain C++, one through GLib's allocator inside a callback that GTK's
// main loop runs, the way most of the host's work runs. Under the sanitizers with the desktop
// stack's suppressions, LeakSanitizer must report exactly those two: the suppressions hide GTK's
// process-lifetime allocations, never ours, not even ours made with GLib from GLib's own loop.
#include <gtk/gtk.h>

#include <cstdio>

namespace {

[[gnu::noinline]] void plantLeakInProjectCode() {
  // Lost on purpose: the pointer dies with this frame.
  volatile char* block = new char[4096];
  block[0] = 1;
}

[[gnu::noinline]] gboolean plantLeakThroughGlibInACallback(gpointer) {
  // Lost on purpose, allocated by GLib for the project's code.
  volatile char* block = static_cast<char*>(g_malloc(1000));
  block[0] = 1;
  return G_SOURCE_REMOVE;
}

}  // namespace

int main(int argc, char** argv) {
  if (!gtk_init_check(&argc, &argv)) {
    std::fputs("planted leak: no display to start GTK on\n", stderr);
    return 2;
  }
  GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
  gtk_widget_show_all(window);
  g_idle_add(plantLeakThroughGlibInACallback, nullptr);
  while (gtk_events_pending()) {
    gtk_main_iteration();
  }
  gtk_widget_destroy(window);
  plantLeakInProjectCode();
  return 0;
}
