#include "platform/linux/HostApplication.hpp"

#include <csignal>
#include <cstdlib>

#include <glib-unix.h>

namespace vornix::platform::linux {

namespace {

// GTK names every window of the process after the program: its Wayland app_id is the program's
// name, its X11 WM_CLASS the program's name and class. Desktops match windows to the desktop entry
// of that name, so the program takes the application's id, before GApplication names it after the
// executable.
const std::string& announcedAs(const std::string& applicationId) {
    g_set_prgname(applicationId.c_str());
    return applicationId;
}

// GTK's start-up makes the class the program's name with a capital initial; the class is the id
// itself, as the desktop entry's StartupWMClass says.
void onStartup(GApplication* application, gpointer) {
    gdk_set_program_class(g_application_get_application_id(application));
}

}  // namespace

HostApplication::HostApplication(const std::string& applicationId, Handlers handlers)
    : application_(gtk_application_new(announcedAs(applicationId).c_str(), G_APPLICATION_HANDLES_COMMAND_LINE)),
      handlers_(std::move(handlers)) {
    g_signal_connect_after(application_, "startup", G_CALLBACK(onStartup), nullptr);
    g_signal_connect(application_, "command-line", G_CALLBACK(onCommandLine), this);
    g_signal_connect(application_, "shutdown", G_CALLBACK(onShutdown), this);
    g_signal_connect(application_, "window-removed", G_CALLBACK(onWindowRemoved), this);
}

HostApplication::~HostApplication() {
    for (const guint source : signalSources_) {
        g_source_remove(source);
    }
    // A window that outlives this object still leaves the application when it is destroyed, later
    // in the process's end: nobody is here to be told then.
    g_signal_handlers_disconnect_by_data(application_, this);
    g_object_unref(application_);
}

int HostApplication::run(int argc, char** argv) { return g_application_run(G_APPLICATION(application_), argc, argv); }

void HostApplication::quit() { g_application_quit(G_APPLICATION(application_)); }

int HostApplication::onCommandLine(GApplication* application, GApplicationCommandLine* commandLine, gpointer self) {
    auto& host = *static_cast<HostApplication*>(self);
    int argc = 0;
    gchar** argv = g_application_command_line_get_arguments(commandLine, &argc);
    std::vector<std::string> arguments(argv + std::min(argc, 1), argv + argc);
    g_strfreev(argv);

    if (host.launched_) {
        host.handlers_.relaunched(arguments);
        return 0;
    }
    host.launched_ = true;
    // Held, as NSApplication runs until told to end: the delegate decides about the last window.
    g_application_hold(application);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        host.signalSources_.push_back(g_unix_signal_add(signal, onTerminationSignal, self));
    }
    host.handlers_.launched(arguments);
    return 0;
}

// The system ends the host: its last words, then the process ends, also when the signal comes
// while a modal alert runs a main loop of its own, which quitting the application's would not end.
gboolean HostApplication::onTerminationSignal(gpointer self) {
    static_cast<HostApplication*>(self)->terminate();
    std::exit(0);
}

void HostApplication::onShutdown(GApplication*, gpointer self) { static_cast<HostApplication*>(self)->terminate(); }

void HostApplication::onWindowRemoved(GtkApplication*, GtkWindow*, gpointer self) {
    auto& host = *static_cast<HostApplication*>(self);
    if (!host.terminated_ && host.handlers_.windowClosed) {
        host.handlers_.windowClosed();
    }
}

void HostApplication::terminate() {
    if (launched_ && !terminated_ && handlers_.terminating) {
        terminated_ = true;
        handlers_.terminating();
    }
}

}  // namespace vornix::platform::linux
