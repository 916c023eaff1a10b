// Reference-counted working arrays: the library's one container.
//
// A WorkingArray is a block of equal-sized elements with a reference count,
// shared copy-on-write by WorkingArrayRef holders. The elements are plain
// bytes to it: it never runs constructors or destructors on them, and copying
// a representation copies them bytewise. vstringArray keeps its string
// pointers in one, and db_exception keeps its argument text in one.
//
// The types are public because db_exception carries a holder; the operations
// on them are internal to the library (<txCommon/internal/tracked_memory.h>).
// A catcher reads the text of a caught db_exception through db_error_text()
// in <txCommon/exceptions.h>:
//
//   catch (const db_exception& e) {
//     puts(db_error_text(e).optr());   // "unable to allocate memory for working array"
//   }
#pragma once

#include <txCommon/export.h>

// The shared representation. `items` holds elementSize * count bytes (at most
// 0x40000000) and is null when count is 0 or below.
struct WorkingArray {
  std::int32_t elementSize;   // bytes per element: 8 for string pointers, 1 for text
  unsigned char* items;       // the element block
  std::int32_t count;         // number of elements
  std::int32_t refCount;      // number of holders of this representation
};

// A holder: one pointer to a representation. Copying a holder shares the
// representation and raises its reference count by one; destroying or
// re-assigning a holder gives its reference up, and the last holder frees the
// block and the representation. A default holder holds nothing.
class TXC_API WorkingArrayRef {
public:
  WorkingArrayRef() noexcept = default;
  WorkingArrayRef(const WorkingArrayRef& other) noexcept;
  WorkingArrayRef(WorkingArrayRef&& other) noexcept;
  WorkingArrayRef& operator=(const WorkingArrayRef& other) noexcept;
  WorkingArrayRef& operator=(WorkingArrayRef&& other) noexcept;
  ~WorkingArrayRef();

  // The representation, or null. Reading through it does not un-share; every
  // writer goes through the library's ElementAt/ResizeShared, which do.
  WorkingArray* rep = nullptr;
};
