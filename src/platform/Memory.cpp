#include "platform/Memory.h"

#include <malloc.h>

namespace Memory {

void giveBack() { malloc_trim(0); }

} // namespace Memory
