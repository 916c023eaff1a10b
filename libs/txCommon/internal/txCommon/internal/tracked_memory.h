// Internal: not part of the public interface.
//
// The memory layer below vstring: the tracked allocator, the operations on
// working arrays, and the rows of the error catalogue.
//
// The tracked allocator wraps the system allocator, counts blocks and bytes,
// refuses requests above 0x40000000 bytes and writes one line to standard
// error for every request it cannot satisfy:
//
//   malloc failed (cannot allocate 1073741825 bytes)
//
// Working arrays are copy-on-write: every way to an element (ElementAt, and
// ResizeShared before a resize) un-shares a representation that has more than
// one holder, by copying its element bytes into a representation of its own.
//
//   WorkingArrayRef text = MakeArrayText("abc");   // count 4, refCount 1
//   WorkingArrayRef copy = text;                    // refCount 2
//   *static_cast<char*>(ElementAt(copy, 0)) = 'x';  // copy has its own block
//
// Nothing here asks the host: working arrays never use its Allocate.
#pragma once

#include <txCommon/WorkingArray.h>
#include <txCommon/export.h>

#include <atomic>
#include <cstdint>

// ---- tracked allocator ------------------------------------------------------

// The largest request the tracked allocator passes on to the system: 1 GiB.
// 0x40000001 is the first refused size.
inline constexpr std::uint32_t kTrackedMaxBytes = 0x40000000u;

// Blocks now in existence and bytes in them. For inspection only: nothing in
// the library reads them. A failed request raises them all the same, so they
// count requests made rather than memory held. Relaxed atomics, because
// threads that each own their arrays still share these two.
extern std::atomic<std::int32_t> trackedBlocks;
extern std::atomic<std::int32_t> trackedBytes;

// A block of `size` bytes from the system allocator, or null when `size` is
// above kTrackedMaxBytes (the system is not asked) or the system fails; the
// failure writes the line above. The counters rise in every case.
void* TrackedAlloc(unsigned int size);
// Gives back a block of TrackedAlloc with the size it was made with. A null
// block is counted down all the same, mirroring TrackedAlloc's failures.
void TrackedFree(void* block, unsigned int size);
// Memory for one WorkingArray from the system allocator, counted like
// TrackedAlloc; null (with the failure line) when the system fails. The caller
// zero-fills it. Given back by ReleaseRef.
WorkingArray* AllocHeader();

// ---- working arrays ---------------------------------------------------------

// Fills `rep` with `count` elements of `elementSize` bytes, contents undefined;
// a count below 1 leaves `items` null. `count` is stored as given, refCount is
// not touched. Throws db_exception 1929 "working array" when the block cannot
// be had.
void MakeArray(WorkingArray& rep, int elementSize, int count);
// As MakeArray, then `count` elements are copied from `source`.
void MakeArrayFrom(WorkingArray& rep, int elementSize, const void* source, int count);
// A new representation with element size 1 holding `text` and its terminator
// (a null text reads as empty): count is strlen + 1, refCount 1. Throws
// db_exception 1929 when memory runs out.
WorkingArrayRef MakeArrayText(const char* text);

// Gives `holder` a representation of its own when it shares one: the element
// bytes are copied, the old representation loses one reference. Throws
// db_exception 1929 when the copy cannot be made; the holder is then as before.
void UnshareArray(WorkingArrayRef& holder);
// Un-shares, then the address of element `index`. The index is not checked;
// null for an empty holder.
void* ElementAt(WorkingArrayRef& holder, int index);

// Makes `rep` exactly `newCount` elements long: no spare room, no growth
// factor. Old elements keep their bytes, new ones are undefined.
//  - From an empty array a failed request throws db_exception 1929.
//  - A non-empty array whose block cannot be resized writes the failure line
//    and returns false, leaving `items` and `count` as they were.
//  - A negative newCount of an empty array is stored as given.
bool ResizeArray(WorkingArray& rep, int newCount);
// Un-shares, then ResizeArray. False for an empty holder.
bool ResizeShared(WorkingArrayRef& holder, int newCount);
// Replaces `removeCount` elements at `position` by `insertCount` elements from
// `source` (null: the new elements are left undefined). All moves are safe
// against overlap, and a source inside the array is read as it stood at the
// call; elements that fall away are not destroyed here. Arguments
// outside the array are clipped to it. False, with the array unchanged, when
// a needed growth fails.
bool SpliceArray(WorkingArray& rep, int position, int removeCount, const void* source,
                 int insertCount);
// Lowers the reference count; the last holder frees the block and the
// representation. The holder is empty afterwards.
void ReleaseRef(WorkingArrayRef& holder);

namespace txc {

// TrackedAlloc for a byte count worked out in 64 bits (element size times
// count): a negative count or one above kTrackedMaxBytes is refused, and the
// failure line shows the count as it was worked out.
void* tracked_alloc(std::int64_t size);
// Writes "malloc failed (cannot allocate <size> bytes)" and a line end to the
// standard error stream.
void write_alloc_failure(std::int64_t size);
// A holder of a new representation of `count` elements, refCount 1. Throws
// db_exception 1929 when its memory cannot be had; nothing is left behind.
WorkingArrayRef make_array(int elementSize, int count);

}  // namespace txc

// ---- error catalogue --------------------------------------------------------

namespace txc {

struct ErrorCatalogueRow {
  int code;
  const char* message;
};

// The rows in stored order, opening with code 0. Grouped by hundreds and
// ascending, except for three pairs kept in their historical order (1108
// before 1107, 1611 before 1610, 1922 before 1921): look up by scanning.
extern const ErrorCatalogueRow kErrorCatalogue[];
extern const int kErrorCatalogueRows;

}  // namespace txc
