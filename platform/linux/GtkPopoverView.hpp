#pragma once

#include <vector>

#include <gtk/gtk.h>

#include "platform/PopoverView.hpp"

namespace vornix::platform::linux {

// A popover's content as GTK widgets: a vertical box of labels, a switch, separators and flat
// buttons, drawn from the core's rows. A new render with the same kinds of rows updates the
// widgets in place, so the button under the pointer stays the same widget while its highlight
// changes.
class GtkPopoverView : public PopoverView {
public:
    GtkPopoverView();
    ~GtkPopoverView() override;
    GtkPopoverView(const GtkPopoverView&) = delete;
    GtkPopoverView& operator=(const GtkPopoverView&) = delete;

    void render(const PopoverLayout& layout, const std::vector<PopoverRow>& rows) override;
    void setEvents(PopoverViewEvents* events) override;

    GtkWidget* widget() const { return box_; }
    // Makes the widgets of the rows rendered so far, and of every render from now on. Until
    // then a render is only kept: a popover that has never been opened costs no widgets, which
    // keeps the host's start-up short.
    void materialize();

private:
    struct RowWidget {
        PopoverRow row;
        GtkWidget* outer = nullptr;
        GtkWidget* label = nullptr;
        GtkWidget* control = nullptr;
        GtkCssProvider* style = nullptr;
    };

    static void onClicked(GtkButton* button, gpointer self);
    static gboolean onCrossing(GtkWidget* widget, GdkEventCrossing* event, gpointer self);
    static void onSwitched(GObject* control, GParamSpec*, gpointer self);

    void rebuild(const std::vector<PopoverRow>& rows);
    RowWidget make(const PopoverRow& row);
    void update(RowWidget& widget, const PopoverRow& row);
    void applyLayout(const PopoverLayout& layout);

    GtkWidget* box_;
    PopoverLayout layout_;
    std::vector<PopoverRow> pending_;
    bool live_ = false;
    std::vector<RowWidget> rows_;
    PopoverViewEvents* events_ = nullptr;
};

}  // namespace vornix::platform::linux
