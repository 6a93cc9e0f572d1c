#pragma once

#include <QDateTime>
#include <QList>
#include <QPointF>
#include <QString>

// Strokes that no shape was found in, for those who want to improve the
// recogniser and have asked for it: one JSON object a line in
// "Library/Logs/Vellumora-trazos.jsonl" under the home folder.
namespace StrokeLog {

// Does nothing unless the user has switched it on, or for a few points only.
// Fails in silence.
void saveMissedStroke(const QList<QPointF> &points);

[[nodiscard]] QString path();
// Without line end; points as one flat list in view points, with one decimal.
[[nodiscard]] QString record(const QDateTime &at, const QList<QPointF> &points);

} // namespace StrokeLog
