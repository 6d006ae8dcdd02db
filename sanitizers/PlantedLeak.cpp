// Starts the desktop stack as the host does, maps a window, then loses a block of the project's
// own. Run under the sanitizers with the desktop stack's suppressions, LeakSanitizer must report
// that block and nothing else: the suppressions hide GTK's process-lifetime allocations, never ours.
#include <gtk/gtk.h>

#include <cstdio>

namespace {

[[gnu::noinline]] void plantLeakInProjectCode() {
  // Lost on purpose: the pointer dies with this frame.
  volatile char* block = new char[4096];
  block[0] = 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (!gtk_init_check(&argc, &argv)) {
    std::fputs("planted leak: no display to start GTK on\n", stderr);
    return 2;
  }
  GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
  gtk_widget_show_all(window);
  while (gtk_events_pending()) {
    gtk_main_iteration();
  }
  gtk_widget_destroy(window);
  plantLeakInProjectCode();
  return 0;
}
