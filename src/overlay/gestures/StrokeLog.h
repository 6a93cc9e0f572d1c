#pragma once

#include <QDateTime>
#include <QList>
#include <QPointF>
#include <QString>

// Logs strokes in which no shape was found, for those who want to improve the
// recogniser and have asked for it: one JSON object per line in
// "Vellumora-trazos.jsonl", in the folder for logs.
namespace StrokeLog {

// Appends a stroke to the log. Does nothing unless the user has switched logging
// on, or when the stroke has only a few points. Failures are silent.
void saveMissedStroke(const QList<QPointF> &points);

// Returns the line for a stroke, without a line end: the points as one flat list of
// view points, with one decimal.
[[nodiscard]] QString record(const QDateTime &at, const QList<QPointF> &points);

} // namespace StrokeLog
