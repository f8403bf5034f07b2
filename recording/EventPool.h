// Memory for events: blocks of one size cut from larger pieces, without a header of their own, so that a
// recording of a million events is made and dropped quickly and takes no more than it holds. One pool a
// thread; blocks are taken and given on the thread that owns the events. Pieces that became empty, up to
// 64 MB of them, wait for the next recording, since fresh memory costs more than reading events into it; they
// go back to the system with the thread. With the address sanitizer, blocks come one by one from the system,
// which it watches.
#pragma once

#include <cstddef>

namespace vestrel::EventPool {

inline constexpr std::size_t kBlockSize = 40;

// A block of kBlockSize bytes, aligned for a pointer. Raises what operator new raises.
void* Take();
// Gives back a block from Take.
void Give(void* block) noexcept;

}  // namespace vestrel::EventPool
