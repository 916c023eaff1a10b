// vstringArray: an ordered, growable array of strings.
//
// Each element is a vstring of its own on the heap; the array owns them and
// keeps their pointers in a working array sized exactly to the element count
// (each add costs one reallocation; the sized constructor and resize size it
// once). Beside plain indexed access it offers two lookups:
//   - Map(key): the first entry of the form "key:rest";
//   - FindString(key, ...): binary search of a sorted array, where a key that
//     is a prefix of one of the last two candidates also matches, and a miss
//     says which neighbour came closest.
//
//   vstringArray names;
//   names.add(vstring("ABC"));           // 0
//   names.add(vstring("ABD"));           // 1
//   names.add(vstring("XYZ"));           // 2
//   int near;
//   names.FindString(vstring("AB"), -1, -1, &near);   // 0, by prefix
//   names.FindString(vstring("ABE"), -1, -1, &near);  // -1, near == 1
//
// With a host, the constructors, add, remove and Change first ask its
// ErrorPending, and on a yes change nothing (a constructor then leaves an
// object that holds nothing: it reads as empty and refuses every change).
// Out of memory in the element block throws db_exception 1929.
#pragma once

#include <txCommon/export.h>

class vstring;
class WorkingArrayRef;

class TXC_API vstringArray {
public:
  // Empty. Under a pending host error nothing is allocated.
  vstringArray();
  // `n` new empty strings (a negative `n` counts as 0). ErrorPending is asked
  // before the block is made and before each string; a yes stops there, and
  // the elements not yet made stay null (they read as empty).
  explicit vstringArray(int n);
  ~vstringArray();

  // Not copyable: the array owns its strings.
  vstringArray(const vstringArray&) = delete;
  // Makes this object denote the same array as `other`: the representation is
  // shared with NO reference counted, and this object's own array is not
  // given back. Only one of the two objects may then be destroyed.
  vstringArray& operator=(const vstringArray& other);

  // The element count.
  int len() const;
  int Size() const;

  // Element `i`. The reference holds until the element is removed. An index
  // outside the array yields a scratch string of the calling thread, emptied
  // on each such access, so a stray write goes nowhere.
  vstring& operator[](int i);
  const vstring& operator[](int i) const;

  // Appends a copy of `text` (which may be an element of this array) and
  // returns its index; -1 when ErrorPending says yes before or after the copy
  // is made, or when the block cannot grow.
  int add(const vstring& text);
  // Deletes element `i` and closes the gap; an `i` outside the array, or a
  // pending error, changes nothing.
  void remove(int i);
  // Assigns `text` to element `i`. An `i` outside the array is reported to the
  // host as 119 and changes nothing; a pending error changes nothing.
  void Change(const vstring& text, int i);
  // `n` elements: those behind `n` are deleted, new ones are empty strings.
  void resize(int n);
  // Deletes all elements and the element block; the array stays usable.
  void clear();

  // The index of the first entry whose text in front of its first ':' equals
  // `key` byte for byte; an entry without a colon has an empty name. When
  // nothing matches, the element count (not -1).
  int Map(const vstring& key);

  // Binary search of an array sorted by vstring::operator<, over elements
  // `low`..`high` (-1 and -1 for the whole array; other bounds are clipped to
  // it). The index of an exact match, or of one of the last two candidates
  // that begins with `key`; otherwise -1, and `*nearest` (when not null)
  // names the candidate sharing more leading bytes with `key` (the lower on a
  // tie). `*nearest` is -1 unless the search ends that way. An empty key or
  // array gives -1.
  int FindString(const vstring& key, int low, int high, int* nearest);

private:
  WorkingArrayRef* ref;
};
