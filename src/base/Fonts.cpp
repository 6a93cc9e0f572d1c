#include "base/Fonts.h"

#include <QFontDatabase>

namespace Fonts {

QFont system(double size, QFont::Weight weight)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(qMax(1, qRound(size)));
    font.setWeight(weight);
    return font;
}

} // namespace Fonts
