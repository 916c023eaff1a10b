// The tracked allocator: the system allocator with two counters, a size
// limit, and a line on standard error for every request it cannot satisfy.
#include <txCommon/internal/tracked_memory.h>

#include <cstdio>
#include <cstdlib>

std::atomic<std::int32_t> trackedBlocks{0};
std::atomic<std::int32_t> trackedBytes{0};

namespace {

// The counters are 32-bit: a byte count beyond that range wraps, as adding it
// to a plain 32-bit integer always did. Atomic arithmetic wraps by definition.
std::int32_t as_counter(std::int64_t size) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(static_cast<std::uint64_t>(size)));
}

void count_up(std::int64_t size) {
  trackedBlocks.fetch_add(1, std::memory_order_relaxed);
  trackedBytes.fetch_add(as_counter(size), std::memory_order_relaxed);
}

void count_down(std::int64_t size) {
  trackedBlocks.fetch_sub(1, std::memory_order_relaxed);
  trackedBytes.fetch_sub(as_counter(size), std::memory_order_relaxed);
}

// A request of 0 bytes still gets a block of its own: malloc(0) may answer
// null, which would read as a failure.
void* system_block(std::size_t size) { return std::malloc(size == 0 ? 1 : size); }

}  // namespace

namespace txc {

void write_alloc_failure(std::int64_t size) {
  // 512 bytes hold the line for any 64-bit count many times over; a buffer of
  // the call's own keeps concurrent failures from mixing their lines.
  char line[512];
  std::snprintf(line, sizeof line, "malloc failed (cannot allocate %li bytes)",
                static_cast<long>(size));
  std::fputs(line, stderr);
  std::fputc('\n', stderr);
}

void* tracked_alloc(std::int64_t size) {
  void* block = nullptr;
  if (size >= 0 && size <= static_cast<std::int64_t>(kTrackedMaxBytes)) {
    block = system_block(static_cast<std::size_t>(size));
  }
  if (block == nullptr) write_alloc_failure(size);
  // Raised on failure too: the counters record requests, and TrackedFree of
  // the null result lowers them again.
  count_up(size);
  return block;
}

}  // namespace txc

void* TrackedAlloc(unsigned int size) { return txc::tracked_alloc(size); }

void TrackedFree(void* block, unsigned int size) {
  std::free(block);
  count_down(size);
}

WorkingArray* AllocHeader() {
  void* block = std::malloc(sizeof(WorkingArray));
  if (block == nullptr) txc::write_alloc_failure(static_cast<std::int64_t>(sizeof(WorkingArray)));
  count_up(static_cast<std::int64_t>(sizeof(WorkingArray)));
  return static_cast<WorkingArray*>(block);
}
