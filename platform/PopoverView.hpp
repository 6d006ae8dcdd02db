#pragma once

#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace vornix::platform {

// What a popover view draws: a vertical stack of rows, described as data so that every backend
// renders the same popover and the core decides what it shows.

inline constexpr double unbounded = std::numeric_limits<double>::infinity();

struct EdgeInsets {
    double top = 0.0;
    double leading = 0.0;
    double bottom = 0.0;
    double trailing = 0.0;
    friend bool operator==(const EdgeInsets&, const EdgeInsets&) = default;
};

enum class Alignment { leading, topLeading };

enum class FontWeight { regular, medium, bold };
enum class FontDesign { standard };

// A row's font. Without a size it is the platform's body font.
struct Font {
    std::optional<double> size;
    FontWeight weight = FontWeight::regular;
    FontDesign design = FontDesign::standard;

    static Font system(double size, FontWeight weight, FontDesign design) { return {size, weight, design}; }
    // The same font with another weight applied on top.
    Font withWeight(FontWeight newWeight) const { return {size, newWeight, design}; }
    friend bool operator==(const Font&, const Font&) = default;
};

enum class Color { clear, gray };
enum class CornerStyle { circular, continuous };

// A button's background: a colour clipped to a rounded rectangle.
struct ButtonBackground {
    Color color = Color::clear;
    double cornerWidth = 0.0;
    double cornerHeight = 0.0;
    CornerStyle cornerStyle = CornerStyle::circular;
    friend bool operator==(const ButtonBackground&, const ButtonBackground&) = default;
};

enum class RowKind { text, toggle, divider, button };

struct PopoverRow {
    RowKind kind = RowKind::text;
    // The text shown (a switch's or button's label); empty for a divider.
    std::string text;
    EdgeInsets padding;
    Font font;
    // A switch: whether it is on.
    bool isOn = false;
    // A button: the identifier its pointer and click events carry, and its background.
    std::string hoverId;
    ButtonBackground background;
    // A button: whether it can be used now (drawn insensitive when not).
    bool isEnabled = true;
    friend bool operator==(const PopoverRow&, const PopoverRow&) = default;
};

// How every button's label sits in its button.
struct LabelLayout {
    double maxWidth = unbounded;
    Alignment alignment = Alignment::leading;
    EdgeInsets padding;
    friend bool operator==(const LabelLayout&, const LabelLayout&) = default;
};

// The frame of the whole stack.
struct PopoverLayout {
    Alignment stackAlignment = Alignment::leading;
    double width = 0.0;
    double maxHeight = unbounded;
    Alignment frameAlignment = Alignment::topLeading;
    LabelLayout buttonLabel;
    friend bool operator==(const PopoverLayout&, const PopoverLayout&) = default;
};

// What the user does in a popover view, reported to the core.
class PopoverViewEvents {
public:
    virtual ~PopoverViewEvents() = default;

    // The pointer entered (inside) or left (not inside) the button with this identifier.
    virtual void buttonHovered(const std::string& hoverId, bool inside) = 0;
    virtual void buttonClicked(const std::string& hoverId) = 0;
    // The user turned the switch on or off.
    virtual void switchToggled(bool isOn) = 0;
};

// The content of a popover (an NSHostingView / the widgets of a popup window).
class PopoverView {
public:
    virtual ~PopoverView() = default;

    // Replaces what the view shows.
    virtual void render(const PopoverLayout& layout, const std::vector<PopoverRow>& rows) = 0;
    // Where the view reports the user's actions from now on; null stops the reports.
    virtual void setEvents(PopoverViewEvents* events) = 0;
};

}  // namespace vornix::platform
