#include "base/Fonts.h"

#include <QFontDatabase>
#include <QFontInfo>

namespace Fonts {

QFont system(double size, QFont::Weight weight)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(qMax(1, qRound(size)));
    font.setWeight(weight);
    return font;
}

double enlargement()
{
    constexpr double usual = 15; // points, which no desktop goes beyond unless it is asked to
    return qMax(1.0, QFontInfo(QFontDatabase::systemFont(QFontDatabase::GeneralFont)).pixelSize() / usual);
}

} // namespace Fonts
