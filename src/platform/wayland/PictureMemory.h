#pragma once

#include "platform/freedesktop/Descriptor.h"

#include <QtGlobal>

// Memory for pictures that this program and the compositor both see.
namespace PictureMemory {

// Returns so many bytes, all zero; not open when there are none to be had.
[[nodiscard]] Descriptor make(qsizetype bytes);

} // namespace PictureMemory
