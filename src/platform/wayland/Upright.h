#pragma once

#include <QImage>

#include <wayland-client-protocol.h>

// Returns what an output shows as the user sees it. The image is as the hardware
// scans it, which the compositor has turned and mirrored by the transform, and with
// the last row first if asked for. Costs nothing where nothing is to be done.
enum class Rows { topFirst, bottomFirst };
[[nodiscard]] QImage upright(QImage image, wl_output_transform transform, Rows rows);
