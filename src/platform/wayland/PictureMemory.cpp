#include "platform/wayland/PictureMemory.h"

#include <sys/mman.h>

Descriptor PictureMemory::make(qsizetype bytes)
{
    Descriptor memory(memfd_create("vellumora-picture", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    if (!memory.isOpen() || ftruncate(memory.number(), bytes) != 0)
        return {};
    // The compositor then need not fear that its memory goes away under it. It
    // reads all the same where sealing fails.
    (void)fcntl(memory.number(), F_ADD_SEALS, F_SEAL_SHRINK | F_SEAL_SEAL);
    return memory;
}
