#pragma once

// What the allocator of this system is asked for.
namespace Memory {

// Returns to the system what is free but still held for the next time. Takes a
// few milliseconds after much has been freed.
void giveBack();

} // namespace Memory
