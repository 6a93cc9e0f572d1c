#pragma once

// Controls the system's memory allocator.
namespace Memory {

// Returns memory that is free but kept for later use to the system. Takes a few
// milliseconds after much has been freed.
void giveBack();

} // namespace Memory
