#pragma once

#include <functional>
#include <string>
#include <vector>

#include <gtk/gtk.h>

namespace vornix::platform::linux {

// The host's GtkApplication: one instance per user session. The first launch becomes the
// primary instance and runs until it is told to quit; later launches hand their command line to
// it over D-Bus and exit. Like NSApplication it ends only when told to (it holds the
// application): closing a window is reported, and whether that ends it is the delegate's call.
// It ends on quit() or a termination signal (SIGTERM, SIGINT, SIGHUP), which ends the
// process with status 0 after the termination handler, even from within a modal alert.
class HostApplication {
public:
    struct Handlers {
        // The primary instance has started (GTK is ready): build the host.
        std::function<void(const std::vector<std::string>& arguments)> launched;
        // A later launch handed over its arguments (without the program name).
        std::function<void(const std::vector<std::string>& arguments)> relaunched;
        // The application is ending: last words before the main loop stops.
        std::function<void()> terminating;
        // One of the application's windows has gone.
        std::function<void()> windowClosed;
    };

    HostApplication(const std::string& applicationId, Handlers handlers);
    ~HostApplication();
    HostApplication(const HostApplication&) = delete;
    HostApplication& operator=(const HostApplication&) = delete;

    // Runs the main loop (primary) or hands the arguments over (later launch); the exit status.
    int run(int argc, char** argv);
    void quit();

    GtkApplication* gtkApplication() const { return application_; }

private:
    static int onCommandLine(GApplication* application, GApplicationCommandLine* commandLine, gpointer self);
    static void onShutdown(GApplication* application, gpointer self);
    static void onWindowRemoved(GtkApplication* application, GtkWindow* window, gpointer self);
    static gboolean onTerminationSignal(gpointer self);

    // Runs the termination handler, once.
    void terminate();

    GtkApplication* application_;
    Handlers handlers_;
    bool launched_ = false;
    bool terminated_ = false;
    std::vector<guint> signalSources_;
};

}  // namespace vornix::platform::linux
