#pragma once

#include <QColor>
#include <QRectF>
#include <QString>

#include <optional>

class QPainter;

// Holds what a button of a bar shows.
struct BarButtonState {
    QString symbol = {};
    bool isActive = false;                  // stands for the tool in use
    bool isPrimary = false;                 // the main action, on a gradient
    std::optional<QColor> swatch = {};      // a dot of this colour instead of the symbol
    std::optional<QString> widthLabel = {}; // beside the swatch, such as "3 px"
    std::optional<QString> label = {};      // beside the symbol of a primary button
    std::optional<QString> keyHint = {};    // in a capsule behind the label, such as "⌘C"
    std::optional<QColor> dotColor = {};    // marks an active button
    bool hovering = false;
    bool pressed = false;
};

// Draws a button as a function of its state. Everything is in points, y downwards.
namespace BarButtonPaint {

// Returns the fill that the state asks for. All fills are white, so fading from one
// to another changes only the opacity.
[[nodiscard]] QColor fill(const BarButtonState &state);
[[nodiscard]] QColor tint(const BarButtonState &state);
[[nodiscard]] double preferredWidth(const BarButtonState &state);

// Draws the whole button. The background colour is given apart from the state,
// since it may still be fading towards fill().
void draw(QPainter &painter, const QRectF &bounds, const BarButtonState &state, const QColor &background);

} // namespace BarButtonPaint
