// What threads have freed, back to the system.
#pragma once

namespace base {

// Each thread has a heap of its own, and what is freed there stays with it, of no use to the others. Called once
// after work on several threads that has taken much and left little; it takes some milliseconds. Without effect
// where the system's allocator can't.
void RendMemoire();

}  // namespace base
