// What the process and the machine have in memory: the resident size of this process, the
// memory still available to it, and a way to hand freed memory back to the system at once.
// Large word lists use them so that a load never asks for more than there is, and a smaller
// list loaded after a large one really shrinks the process.
#pragma once

#include <QtGlobal>

// The resident size of this process in bytes (0 when the system does not say).
qint64 residentBytes();

// The memory this process can still take without pushing the system into swapping or its
// out-of-memory killer: the system's available memory, less when a control group limit is
// closer. -1 when the system does not say.
qint64 availableMemoryBytes();

// Gives pages the allocator keeps after large frees back to the system.
void returnFreedMemory();
