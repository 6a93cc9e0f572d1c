#include "toolbar/ColorHex.h"

#include <cmath>

namespace {

QString twoDigits(float component)
{
    constexpr int base = 16;
    const int value = static_cast<int>(std::lround(component * 255));
    return QStringLiteral("%1").arg(value, 2, base, QChar(u'0')).toUpper();
}

} // namespace

QString hex(const QColor &color)
{
    const QColor rgb = color.toRgb();
    return u'#' + twoDigits(rgb.redF()) + twoDigits(rgb.greenF()) + twoDigits(rgb.blueF());
}
