// Working arrays: reference-counted, copy-on-write blocks of equal-sized
// elements on the tracked allocator, and their holders.
#include <txCommon/exceptions.h>
#include <txCommon/internal/tracked_memory.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstdint>
#include <cstring>
#include <vector>

namespace {

// What a working array that cannot get memory throws.
constexpr int kNoMemoryCode = 1929;  // "unable to allocate memory for %"
constexpr char kNoMemoryText[] = "working array";

std::int64_t block_bytes(std::int32_t elementSize, std::int32_t count) {
  return static_cast<std::int64_t>(elementSize) * count;
}

// A holder of kNoMemoryText made without throwing, so that the failure of a
// working array can describe itself even when the failure is its own text.
// Memory too short even for that leaves the holder empty.
WorkingArrayRef failure_text() {
  WorkingArrayRef holder;
  WorkingArray* rep = AllocHeader();
  if (rep == nullptr) return holder;
  std::memset(rep, 0, sizeof *rep);
  rep->refCount = 1;
  holder.rep = rep;
  void* items = txc::tracked_alloc(sizeof kNoMemoryText);
  if (items != nullptr) {
    std::memcpy(items, kNoMemoryText, sizeof kNoMemoryText);
    rep->elementSize = 1;
    rep->items = static_cast<unsigned char*>(items);
    rep->count = static_cast<std::int32_t>(sizeof kNoMemoryText);
  }
  return holder;
}

[[noreturn]] void throw_no_memory() {
  WorkingArrayRef text = failure_text();
  throw db_exception(kNoMemoryCode, text);
}

// The header of a new representation, zeroed, with one holder; throws when
// even the header cannot be had.
WorkingArray* new_header() {
  WorkingArray* rep = AllocHeader();
  if (rep == nullptr) throw_no_memory();
  std::memset(rep, 0, sizeof *rep);
  rep->refCount = 1;
  return rep;
}

}  // namespace

// ---- holders ----------------------------------------------------------------

WorkingArrayRef::WorkingArrayRef(const WorkingArrayRef& other) noexcept : rep(other.rep) {
  if (rep != nullptr) ++rep->refCount;
}

WorkingArrayRef::WorkingArrayRef(WorkingArrayRef&& other) noexcept : rep(other.rep) {
  other.rep = nullptr;
}

WorkingArrayRef& WorkingArrayRef::operator=(const WorkingArrayRef& other) noexcept {
  // Taking the new reference first keeps `a = a` and two holders of one
  // representation sound.
  WorkingArray* incoming = other.rep;
  if (incoming != nullptr) ++incoming->refCount;
  ReleaseRef(*this);
  rep = incoming;
  return *this;
}

WorkingArrayRef& WorkingArrayRef::operator=(WorkingArrayRef&& other) noexcept {
  if (this != &other) {
    ReleaseRef(*this);
    rep = other.rep;
    other.rep = nullptr;
  }
  return *this;
}

WorkingArrayRef::~WorkingArrayRef() { ReleaseRef(*this); }

// ---- making -----------------------------------------------------------------

void MakeArray(WorkingArray& rep, int elementSize, int count) {
  rep.elementSize = elementSize;
  rep.items = nullptr;
  rep.count = count;
  if (count < 1) return;
  const std::int64_t bytes = block_bytes(elementSize, count);
  void* block = txc::tracked_alloc(bytes);
  if (block == nullptr) {
    // Nothing may reach for the block that is not there.
    rep.count = 0;
    throw_no_memory();
  }
  rep.items = static_cast<unsigned char*>(block);
}

void MakeArrayFrom(WorkingArray& rep, int elementSize, const void* source, int count) {
  MakeArray(rep, elementSize, count);
  if (rep.items != nullptr && source != nullptr) {
    std::memcpy(rep.items, source, static_cast<std::size_t>(block_bytes(elementSize, count)));
  }
}

namespace txc {

WorkingArrayRef make_array(int elementSize, int count) {
  WorkingArrayRef holder;
  holder.rep = new_header();  // the holder frees it if MakeArray throws
  MakeArray(*holder.rep, elementSize, count);
  return holder;
}

}  // namespace txc

WorkingArrayRef MakeArrayText(const char* text) {
  if (text == nullptr) text = "";
  const std::size_t length = std::strlen(text);
  if (length >= kTrackedMaxBytes) {
    // Beyond any element count: refused like every oversized request.
    const auto bytes = static_cast<std::int64_t>(length + 1);
    txc::tracked_alloc(bytes);
    throw_no_memory();
  }
  const int count = static_cast<int>(length + 1);
  WorkingArrayRef holder = txc::make_array(1, count);
  std::memcpy(holder.rep->items, text, static_cast<std::size_t>(count));
  return holder;
}

// ---- access -----------------------------------------------------------------

void UnshareArray(WorkingArrayRef& holder) {
  WorkingArray* shared = holder.rep;
  if (shared == nullptr || shared->refCount <= 1) return;
  WorkingArray* own = new_header();
  try {
    MakeArrayFrom(*own, shared->elementSize, shared->items, shared->count);
  } catch (...) {
    TrackedFree(own, sizeof(WorkingArray));
    throw;
  }
  --shared->refCount;
  holder.rep = own;
}

void* ElementAt(WorkingArrayRef& holder, int index) {
  UnshareArray(holder);
  WorkingArray* rep = holder.rep;
  if (rep == nullptr || rep->items == nullptr) return nullptr;
  return rep->items + block_bytes(rep->elementSize, index);
}

// ---- resizing ---------------------------------------------------------------

bool ResizeArray(WorkingArray& rep, int newCount) {
  if (rep.items == nullptr || rep.count <= 0) {
    rep.items = nullptr;
    if (newCount >= 1) {
      const std::int64_t bytes = block_bytes(rep.elementSize, newCount);
      void* block = txc::tracked_alloc(bytes);
      if (block == nullptr) {
        rep.count = 0;
        throw_no_memory();
      }
      rep.items = static_cast<unsigned char*>(block);
    }
    rep.count = newCount;
    return true;
  }

  const std::int64_t oldBytes = block_bytes(rep.elementSize, rep.count);
  if (newCount == 0) {
    TrackedFree(rep.items, static_cast<unsigned>(oldBytes));
    rep.items = nullptr;
    rep.count = 0;
    return true;
  }

  const std::int64_t newBytes = block_bytes(rep.elementSize, newCount);
  void* block = nullptr;
  if (newBytes >= 0 && newBytes <= static_cast<std::int64_t>(kTrackedMaxBytes)) {
    block = std::realloc(rep.items, static_cast<std::size_t>(newBytes == 0 ? 1 : newBytes));
  }
  if (block == nullptr) {
    // The old block is untouched by a failed realloc: the array stays whole.
    txc::write_alloc_failure(newBytes);
    return false;
  }
  trackedBytes.fetch_add(static_cast<std::int32_t>(newBytes - oldBytes), std::memory_order_relaxed);
  rep.items = static_cast<unsigned char*>(block);
  rep.count = newCount;
  return true;
}

bool ResizeShared(WorkingArrayRef& holder, int newCount) {
  if (holder.rep == nullptr) return false;
  UnshareArray(holder);
  return ResizeArray(*holder.rep, newCount);
}

bool SpliceArray(WorkingArray& rep, int position, int removeCount, const void* source,
                 int insertCount) {
  if (rep.elementSize < 0) return false;
  const int count = std::max(rep.count, 0);
  position = std::clamp(position, 0, count);
  removeCount = std::clamp(removeCount, 0, count - position);
  insertCount = std::max(insertCount, 0);
  const std::int64_t wanted = static_cast<std::int64_t>(count) + insertCount - removeCount;
  if (wanted > INT_MAX) {
    txc::write_alloc_failure(block_bytes(rep.elementSize, 1) * wanted);
    return false;
  }
  const int newCount = static_cast<int>(wanted);
  const auto size = static_cast<std::size_t>(rep.elementSize);
  const int tail = count - position - removeCount;
  auto at = [&](int index) { return rep.items + size * static_cast<std::size_t>(index); };

  // A source inside the block itself would be moved by the tail shift or
  // left behind by a reallocation: take its elements as they stand now.
  std::vector<unsigned char> snapshot;
  const std::size_t insertBytes = size * static_cast<std::size_t>(insertCount);
  if (source != nullptr && insertBytes != 0 && rep.items != nullptr) {
    const auto first = reinterpret_cast<std::uintptr_t>(rep.items);
    const auto last = first + size * static_cast<std::size_t>(count);
    const auto from = reinterpret_cast<std::uintptr_t>(source);
    if (from < last && from + insertBytes > first) {
      const auto* bytes = static_cast<const unsigned char*>(source);
      snapshot.assign(bytes, bytes + insertBytes);
      source = snapshot.data();
    }
  }

  if (insertCount < removeCount) {
    if (tail > 0) std::memmove(at(position + insertCount), at(position + removeCount), size * tail);
    // A block that cannot shrink still holds every remaining element.
    if (!ResizeArray(rep, newCount)) rep.count = newCount;
  } else if (insertCount > removeCount) {
    if (!ResizeArray(rep, newCount)) return false;
    if (tail > 0) std::memmove(at(position + insertCount), at(position + removeCount), size * tail);
  }
  if (source != nullptr && insertCount >= 1 && rep.items != nullptr) {
    std::memcpy(at(position), source, insertBytes);
  }
  return true;
}

// ---- release ----------------------------------------------------------------

void ReleaseRef(WorkingArrayRef& holder) {
  WorkingArray* rep = holder.rep;
  if (rep == nullptr) return;
  holder.rep = nullptr;
  if (rep->refCount > 1) {
    --rep->refCount;
    return;
  }
  if (rep->items != nullptr) {
    TrackedFree(rep->items, static_cast<unsigned>(block_bytes(rep->elementSize, rep->count)));
  }
  TrackedFree(rep, sizeof(WorkingArray));
}
