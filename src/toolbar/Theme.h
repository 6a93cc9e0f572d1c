#pragma once

#include <QColor>

#include <array>

// Defines the colours that the overlay and its tool bars share, all in sRGB.
namespace Theme {

inline const QColor scrim = QColor::fromRgbF(0, 0, 0, 0.45F); // over the unselected screen
inline const QColor barBackground = QColor::fromRgbF(0.09F, 0.10F, 0.13F, 0.95F);
inline const QColor barTop = QColor::fromRgbF(0.17F, 0.18F, 0.23F, 0.95F);
inline const QColor barBorder = QColor::fromRgbF(1, 1, 1, 0.14F);
inline const QColor icon = QColor::fromRgbF(0.9F, 0.9F, 0.9F);
inline const QColor iconHover = QColor::fromRgbF(1, 1, 1);
inline const QColor hoverFill = QColor::fromRgbF(1, 1, 1, 0.10F);
inline const QColor pressFill = QColor::fromRgbF(1, 1, 1, 0.18F);
inline const QColor activeFill = QColor::fromRgbF(1, 1, 1, 0.17F);
inline const std::array<QColor, 3> primaryGradient{QColor::fromRgbF(0.31F, 0.49F, 1),
                                                   QColor::fromRgbF(0.48F, 0.32F, 0.94F),
                                                   QColor::fromRgbF(0.75F, 0.29F, 0.85F)};
inline const QColor selectionBorder = QColor::fromRgbF(1, 1, 1);
inline const QColor badgeBackground = QColor::fromRgbF(0, 0, 0, 0.72F); // size badge and hints

// Lists the colours to draw with. Every capture starts with the first.
inline const std::array<QColor, 10> drawColors{
    QColor::fromRgbF(1, 0.23F, 0.19F),     QColor::fromRgbF(1, 0.58F, 0),
    QColor::fromRgbF(1, 0.84F, 0.04F),     QColor::fromRgbF(0.2F, 0.78F, 0.35F),
    QColor::fromRgbF(0.04F, 0.52F, 1),     QColor::fromRgbF(0.69F, 0.32F, 0.87F),
    QColor::fromRgbF(1, 0.18F, 0.57F),     QColor::fromRgbF(1, 1, 1),
    QColor::fromRgbF(0.56F, 0.56F, 0.58F), QColor::fromRgbF(0, 0, 0)};

} // namespace Theme
