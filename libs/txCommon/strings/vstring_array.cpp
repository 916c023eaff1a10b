// vstringArray: heap strings whose pointers sit in a working array sized
// exactly to the element count.
#include <txCommon/exceptions.h>
#include <txCommon/internal/host_bridge.h>
#include <txCommon/internal/tracked_memory.h>
#include <txCommon/vstring.h>
#include <txCommon/vstringArray.h>

#include <algorithm>
#include <cstring>
#include <memory>

namespace {

// One element is one string pointer: 8 bytes on the 64-bit targets.
constexpr int kElementSize = static_cast<int>(sizeof(vstring*));

int count_of(const WorkingArrayRef* ref) {
  if (ref == nullptr || ref->rep == nullptr) return 0;
  return std::max(ref->rep->count, 0);
}

// Elements are read and written bytewise: the block is plain bytes to the
// working array, with no promise of pointer alignment.
vstring* load(WorkingArrayRef& ref, int i) {
  vstring* s;
  std::memcpy(&s, ElementAt(ref, i), sizeof s);
  return s;
}

void store(WorkingArrayRef& ref, int i, vstring* s) {
  std::memcpy(ElementAt(ref, i), &s, sizeof s);
}

// Where a reference to a missing element goes: emptied on every hand-out, so
// that a write through it lands nowhere that matters.
vstring& nowhere() {
  thread_local vstring scratch;
  scratch.clear();
  return scratch;
}

// Deletes elements [from, to) and nulls their slots.
void delete_elements(WorkingArrayRef& ref, int from, int to) {
  for (int i = from; i < to; ++i) {
    delete load(ref, i);
    store(ref, i, nullptr);
  }
}

}  // namespace

// ---- construction -----------------------------------------------------------

vstringArray::vstringArray() : ref(nullptr) {
  if (txc::error_pending()) return;
  ref = new WorkingArrayRef(txc::make_array(kElementSize, 0));
}

vstringArray::vstringArray(int n) : ref(nullptr) {
  if (txc::error_pending()) return;
  n = std::max(n, 0);
  ref = new WorkingArrayRef(txc::make_array(kElementSize, n));
  // Slots not reached (a pending error, or a failing allocation) stay null,
  // which every reader takes for an empty string.
  for (int i = 0; i < n; ++i) store(*ref, i, nullptr);
  try {
    for (int i = 0; i < n; ++i) {
      if (txc::error_pending()) break;
      store(*ref, i, new vstring());
    }
  } catch (...) {
    clear();
    delete ref;
    throw;
  }
}

vstringArray::~vstringArray() {
  if (ref == nullptr) return;
  clear();
  delete ref;
}

vstringArray& vstringArray::operator=(const vstringArray& other) {
  ref = other.ref;
  return *this;
}

// ---- reading ----------------------------------------------------------------

int vstringArray::len() const { return count_of(ref); }
int vstringArray::Size() const { return count_of(ref); }

vstring& vstringArray::operator[](int i) {
  if (i < 0 || i >= count_of(ref)) return nowhere();
  vstring* s = load(*ref, i);
  if (s == nullptr) {
    s = new vstring();
    store(*ref, i, s);
  }
  return *s;
}

const vstring& vstringArray::operator[](int i) const {
  if (i < 0 || i >= count_of(ref)) return nowhere();
  vstring* s = load(*ref, i);
  return s != nullptr ? *s : nowhere();
}

// ---- changing ---------------------------------------------------------------

int vstringArray::add(const vstring& text) {
  if (ref == nullptr || txc::error_pending()) return -1;
  // The copy is made before the block moves, so `text` may be an element.
  auto copy = std::make_unique<vstring>(text);
  if (txc::error_pending()) return -1;
  const int index = count_of(ref);
  if (!ResizeShared(*ref, index + 1)) return -1;
  store(*ref, index, copy.release());
  return index;
}

void vstringArray::remove(int i) {
  if (ref == nullptr || txc::error_pending()) return;
  if (i < 0 || i >= count_of(ref)) return;
  delete load(*ref, i);  // load un-shares, so the splice below is on our own copy
  SpliceArray(*ref->rep, i, 1, nullptr, 0);
}

void vstringArray::Change(const vstring& text, int i) {
  if (ref == nullptr || txc::error_pending()) return;
  if (i < 0 || i >= count_of(ref)) {
    txc::report_error(119);
    return;
  }
  vstring* s = load(*ref, i);
  if (s == nullptr) {
    store(*ref, i, new vstring(text));
  } else {
    s->put(text);  // put of an element onto itself changes nothing
  }
}

void vstringArray::resize(int n) {
  if (ref == nullptr) return;
  n = std::max(n, 0);
  const int count = count_of(ref);
  if (n < count) {
    delete_elements(*ref, n, count);
    ResizeShared(*ref, n);
    return;
  }
  if (n == count || !ResizeShared(*ref, n)) return;
  for (int i = count; i < n; ++i) store(*ref, i, nullptr);
  for (int i = count; i < n; ++i) store(*ref, i, new vstring());
}

void vstringArray::clear() {
  if (ref == nullptr) return;
  delete_elements(*ref, 0, count_of(ref));
  ResizeShared(*ref, 0);
}

// ---- lookups ----------------------------------------------------------------

int vstringArray::Map(const vstring& key) {
  const int count = count_of(ref);
  const char* wanted = key.optr();
  const std::size_t wantedLength = std::strlen(wanted);
  for (int i = 0; i < count; ++i) {
    const vstring* s = load(*ref, i);
    if (s == nullptr) continue;
    const char* text = s->optr();
    const char* colon = std::strchr(text, ':');
    const std::size_t nameLength = colon != nullptr ? static_cast<std::size_t>(colon - text) : 0;
    if (nameLength == wantedLength && std::memcmp(text, wanted, nameLength) == 0) return i;
  }
  return count;
}

int vstringArray::FindString(const vstring& key, int low, int high, int* nearest) {
  vstring missing;  // stands in for a null element
  auto element = [&](int i) -> vstring& {
    vstring* s = load(*ref, i);
    return s != nullptr ? *s : missing;
  };
  const int count = count_of(ref);
  for (;;) {
    if (nearest != nullptr) *nearest = -1;
    if (key.len() == 0 || count == 0) return -1;
    // -1 stands for an end of the array; any other bound outside it is
    // clipped, so that every index read below is inside.
    low = std::clamp(low, 0, count - 1);
    high = (high == -1) ? count - 1 : std::clamp(high, 0, count - 1);
    if (low > high) return -1;

    const int mid = low + (high - low) / 2;
    if (element(mid) == key) return mid;
    if (low == high) return -1;
    if (low == high - 1) break;
    if (key < element(mid)) {
      high = mid;
    } else if (key > element(mid)) {
      low = mid;
    } else {
      return -1;  // neither below nor above, yet not equal
    }
  }

  // Two neighbours remain: a key that begins either of them matches it.
  const std::size_t keyLength = key.len();
  if (std::strncmp(element(low).optr(), key.optr(), keyLength) == 0) return low;
  if (std::strncmp(element(high).optr(), key.optr(), keyLength) == 0) return high;
  if (nearest != nullptr) {
    const bool highCloser =
        element(high).MatchingStartChars(key) > element(low).MatchingStartChars(key);
    *nearest = highCloser ? high : low;
  }
  return -1;
}
