#include "platform/linux/GtkAlerts.hpp"

#include <gtk/gtk.h>

#include "platform/linux/PopupWindow.hpp"

namespace vornix::platform::linux {

namespace {

GtkMessageType messageType(AlertStyle style) {
    switch (style) {
    case AlertStyle::informational:
        return GTK_MESSAGE_INFO;
    case AlertStyle::critical:
        return GTK_MESSAGE_ERROR;
    case AlertStyle::warning:
        break;
    }
    return GTK_MESSAGE_WARNING;
}

}  // namespace

ModalResponse GtkAlerts::runModal(const Alert& alert) {
    GtkWidget* dialog = gtk_message_dialog_new(nullptr, GTK_DIALOG_MODAL, messageType(alert.alertStyle),
                                               GTK_BUTTONS_NONE, "%s", alert.messageText.c_str());
    if (!alert.informativeText.empty()) {
        gtk_message_dialog_format_secondary_text(GTK_MESSAGE_DIALOG(dialog), "%s", alert.informativeText.c_str());
    }
    const std::vector<std::string> buttons = alert.buttons.empty() ? std::vector<std::string>{"OK"} : alert.buttons;
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        gtk_dialog_add_button(GTK_DIALOG(dialog), buttons[i].c_str(), static_cast<int>(i));
    }
    gtk_dialog_set_default_response(GTK_DIALOG(dialog), 0);
    gtk_window_set_title(GTK_WINDOW(dialog), "Vornix OS");
    gtk_window_set_position(GTK_WINDOW(dialog), GTK_WIN_POS_CENTER);
    gtk_window_set_keep_above(GTK_WINDOW(dialog), TRUE);
    gtk_window_set_deletable(GTK_WINDOW(dialog), FALSE);

    // An open popover closes, and with it lets go of the pointer and keyboard, so that the
    // alert can be answered.
    PopupWindow::closeTransientPopups();

    int response = GTK_RESPONSE_NONE;
    while (response < 0) {
        response = gtk_dialog_run(GTK_DIALOG(dialog));
    }
    gtk_widget_destroy(dialog);
    return alertFirstButtonReturn + response;
}

}  // namespace vornix::platform::linux
