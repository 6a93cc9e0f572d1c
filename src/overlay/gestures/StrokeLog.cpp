#include "overlay/gestures/StrokeLog.h"

#include "base/Defaults.h"
#include "base/Log.h"

#include <QStringList>

#include <array>
#include <charconv>

namespace {

constexpr qsizetype shortest = 8; // points

// With one decimal. Qt's own conversion rounds halves of the decimal
// form, not of the number.
QString rounded(double value)
{
    std::array<char, 32> text{};
    const auto [end, error] = std::to_chars(text.begin(), text.end(), value, std::chars_format::fixed, 1);
    return error == std::errc() ? QString::fromLatin1(text.data(), end - text.data()) : QStringLiteral("0.0");
}

} // namespace

namespace StrokeLog {

void saveMissedStroke(const QList<QPointF> &points)
{
    if (!Defaults::value(Defaults::keepStrokesKey).toBool() || points.size() < shortest)
        return;
    Log::append(QStringLiteral("Vellumora-trazos.jsonl"), record(QDateTime::currentDateTimeUtc(), points));
    Log::write(QStringLiteral("figura: ninguna (trazo guardado)"));
}

QString record(const QDateTime &at, const QList<QPointF> &points)
{
    QStringList numbers;
    for (const QPointF point : points)
        numbers << rounded(point.x()) << rounded(point.y());
    return QStringLiteral(R"({"fecha":"%1","puntos":[%2]})").arg(Log::date(at), numbers.join(u','));
}

} // namespace StrokeLog
