#include "platform/linux/GtkPopoverView.hpp"

#include <cmath>
#include <sstream>
#include <utility>

namespace vornix::platform::linux {

namespace {

int points(double value) { return static_cast<int>(std::lround(value)); }

void setMargins(GtkWidget* widget, const EdgeInsets& insets) {
    gtk_widget_set_margin_top(widget, points(insets.top));
    gtk_widget_set_margin_start(widget, points(insets.leading));
    gtk_widget_set_margin_bottom(widget, points(insets.bottom));
    gtk_widget_set_margin_end(widget, points(insets.trailing));
}

void setFont(GtkWidget* label, const Font& font) {
    PangoAttrList* attributes = pango_attr_list_new();
    if (font.size) {
        pango_attr_list_insert(attributes, pango_attr_size_new_absolute(points(*font.size * PANGO_SCALE)));
    }
    const PangoWeight weight = font.weight == FontWeight::bold     ? PANGO_WEIGHT_BOLD
                               : font.weight == FontWeight::medium ? PANGO_WEIGHT_MEDIUM
                                                                    : PANGO_WEIGHT_NORMAL;
    pango_attr_list_insert(attributes, pango_attr_weight_new(weight));
    gtk_label_set_attributes(GTK_LABEL(label), attributes);
    pango_attr_list_unref(attributes);
}

// A button's own style sheet: no chrome of the theme's, only the background the core chose.
std::string buttonCss(const ButtonBackground& background) {
    std::ostringstream css;
    css << "button { border: none; box-shadow: none; outline: none; padding: 0; min-height: 0; min-width: 0;"
        << " background-image: none; background-color: "
        << (background.color == Color::gray ? "rgb(128, 128, 128)" : "transparent") << "; border-radius: "
        << background.cornerWidth << "px / " << background.cornerHeight << "px; }";
    return css.str();
}

// Texts wrap at the popover's width, as the platform's text views do in a fixed-width stack,
// instead of widening the popover.
void wrapWithinWidth(GtkWidget* label) {
    gtk_label_set_line_wrap(GTK_LABEL(label), TRUE);
    gtk_label_set_line_wrap_mode(GTK_LABEL(label), PANGO_WRAP_WORD_CHAR);
    gtk_label_set_max_width_chars(GTK_LABEL(label), 1);
}

bool sameShape(const PopoverRow& a, const PopoverRow& b) { return a.kind == b.kind && a.hoverId == b.hoverId; }

}  // namespace

GtkPopoverView::GtkPopoverView() : box_(gtk_box_new(GTK_ORIENTATION_VERTICAL, 0)) {
    g_object_ref_sink(box_);
    gtk_widget_set_name(box_, "popover-content");
}

GtkPopoverView::~GtkPopoverView() {
    for (auto& row : rows_) {
        g_clear_object(&row.style);
    }
    gtk_widget_destroy(box_);
    g_object_unref(box_);
}

void GtkPopoverView::setEvents(PopoverViewEvents* events) { events_ = events; }

void GtkPopoverView::materialize() {
    if (!live_) {
        live_ = true;
        render(layout_, std::exchange(pending_, {}));
    }
}

void GtkPopoverView::render(const PopoverLayout& layout, const std::vector<PopoverRow>& rows) {
    if (!live_) {
        layout_ = layout;
        pending_ = rows;
        return;
    }
    applyLayout(layout);
    bool same = rows.size() == rows_.size();
    for (std::size_t i = 0; same && i < rows.size(); ++i) {
        same = sameShape(rows[i], rows_[i].row);
    }
    if (!same) {
        rebuild(rows);
        return;
    }
    for (std::size_t i = 0; i < rows.size(); ++i) {
        update(rows_[i], rows[i]);
    }
}

void GtkPopoverView::applyLayout(const PopoverLayout& layout) {
    layout_ = layout;
    gtk_widget_set_size_request(box_, points(layout.width), -1);
    gtk_widget_set_halign(box_, GTK_ALIGN_START);
    gtk_widget_set_valign(box_, GTK_ALIGN_START);
}

void GtkPopoverView::rebuild(const std::vector<PopoverRow>& rows) {
    for (auto& row : rows_) {
        gtk_widget_destroy(row.outer);
        g_clear_object(&row.style);
    }
    rows_.clear();
    for (const auto& row : rows) {
        rows_.push_back(make(row));
        gtk_box_pack_start(GTK_BOX(box_), rows_.back().outer, FALSE, FALSE, 0);
    }
    gtk_widget_show_all(box_);
}

GtkPopoverView::RowWidget GtkPopoverView::make(const PopoverRow& row) {
    RowWidget made;
    switch (row.kind) {
    case RowKind::text:
        made.label = gtk_label_new(nullptr);
        gtk_label_set_xalign(GTK_LABEL(made.label), 0.0f);
        wrapWithinWidth(made.label);
        made.outer = made.label;
        break;
    case RowKind::toggle:
        made.outer = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, 6);
        made.label = gtk_label_new(nullptr);
        made.control = gtk_switch_new();
        gtk_widget_set_valign(made.control, GTK_ALIGN_CENTER);
        gtk_box_pack_start(GTK_BOX(made.outer), made.control, FALSE, FALSE, 0);
        gtk_box_pack_start(GTK_BOX(made.outer), made.label, FALSE, FALSE, 0);
        g_signal_connect(made.control, "notify::active", G_CALLBACK(onSwitched), this);
        break;
    case RowKind::divider:
        made.outer = gtk_separator_new(GTK_ORIENTATION_HORIZONTAL);
        break;
    case RowKind::button:
        made.outer = gtk_button_new();
        made.label = gtk_label_new(nullptr);
        gtk_label_set_xalign(GTK_LABEL(made.label), 0.0f);
        gtk_widget_set_hexpand(made.label, TRUE);
        wrapWithinWidth(made.label);
        setMargins(made.label, layout_.buttonLabel.padding);
        gtk_container_add(GTK_CONTAINER(made.outer), made.label);
        gtk_button_set_relief(GTK_BUTTON(made.outer), GTK_RELIEF_NONE);
        gtk_widget_set_focus_on_click(made.outer, FALSE);
        made.style = gtk_css_provider_new();
        gtk_style_context_add_provider(gtk_widget_get_style_context(made.outer), GTK_STYLE_PROVIDER(made.style),
                                       GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
        gtk_widget_add_events(made.outer, GDK_ENTER_NOTIFY_MASK | GDK_LEAVE_NOTIFY_MASK);
        g_signal_connect(made.outer, "clicked", G_CALLBACK(onClicked), this);
        g_signal_connect(made.outer, "enter-notify-event", G_CALLBACK(onCrossing), this);
        g_signal_connect(made.outer, "leave-notify-event", G_CALLBACK(onCrossing), this);
        break;
    }
    gtk_widget_set_name(made.outer, row.hoverId.empty() ? "row" : row.hoverId.c_str());
    if (row.kind == RowKind::toggle) {
        gtk_widget_set_halign(made.outer, GTK_ALIGN_START);
    }
    made.row = row;
    made.row.text.clear();
    update(made, row);
    setMargins(made.outer, row.padding);
    return made;
}

void GtkPopoverView::update(RowWidget& widget, const PopoverRow& row) {
    if (widget.label && widget.row.text != row.text) {
        gtk_label_set_text(GTK_LABEL(widget.label), row.text.c_str());
    }
    if (widget.label) {
        setFont(widget.label, row.font);
    }
    if (row.kind == RowKind::toggle) {
        atk_object_set_name(gtk_widget_get_accessible(widget.control), row.text.c_str());
        g_signal_handlers_block_by_func(widget.control, reinterpret_cast<gpointer>(onSwitched), this);
        gtk_switch_set_active(GTK_SWITCH(widget.control), row.isOn);
        g_signal_handlers_unblock_by_func(widget.control, reinterpret_cast<gpointer>(onSwitched), this);
    }
    if (row.kind == RowKind::button) {
        gtk_css_provider_load_from_data(widget.style, buttonCss(row.background).c_str(), -1, nullptr);
        gtk_widget_set_sensitive(widget.outer, row.isEnabled);
    }
    setMargins(widget.outer, row.padding);
    widget.row = row;
}

void GtkPopoverView::onClicked(GtkButton* button, gpointer self) {
    auto& view = *static_cast<GtkPopoverView*>(self);
    for (const auto& row : view.rows_) {
        if (row.outer == GTK_WIDGET(button) && view.events_) {
            view.events_->buttonClicked(row.row.hoverId);
            return;
        }
    }
}

gboolean GtkPopoverView::onCrossing(GtkWidget* widget, GdkEventCrossing* event, gpointer self) {
    auto& view = *static_cast<GtkPopoverView*>(self);
    // Crossings into and out of the button's own label are not the pointer leaving it.
    if (event->detail == GDK_NOTIFY_INFERIOR) {
        return FALSE;
    }
    for (const auto& row : view.rows_) {
        if (row.outer == widget && view.events_) {
            const std::string hoverId = row.row.hoverId;
            view.events_->buttonHovered(hoverId, event->type == GDK_ENTER_NOTIFY);
            return FALSE;
        }
    }
    return FALSE;
}

void GtkPopoverView::onSwitched(GObject* control, GParamSpec*, gpointer self) {
    auto& view = *static_cast<GtkPopoverView*>(self);
    if (view.events_) {
        view.events_->switchToggled(gtk_switch_get_active(GTK_SWITCH(control)));
    }
}

}  // namespace vornix::platform::linux
