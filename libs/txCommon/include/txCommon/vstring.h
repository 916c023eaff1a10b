// vstring: the byte string the whole library stands on.
//
// One pointer next to the virtual table. The pointer addresses the text of a
// block laid out as
//
//   offset 0  uint32 capacityWord   capacity + 13
//   offset 4  uint32 length
//   offset 8  text, zero byte, unused room   (capacity + 5 bytes)
//
// so optr() is a plain zero-ended text, len() is a load, and an empty string
// owns no memory at all (null pointer; it reads as a shared empty text).
//
// Const operations that yield text do not construct a string: they return a
// reference to a temporary taken from the host or from a per-thread ring of 96
// entries. A result stays intact for 95 further temporaries on its thread;
// copy it to keep it:
//
//   vstring s("GENR X = Y");
//   vstring head = s.left(4);          // copy out of the temporary
//   s.mid(6, 1).cat("!");              // temporaries may be changed in place
//
// Positions count from 1; 0 means "not found". Lengths are 32-bit; a block of
// 64,000,000 bytes or more is reported to the host (code 2121) and made all
// the same.
#pragma once

#include <txCommon/export.h>

class StringSpool;
class vstringArray;

class TXC_API vstring {
public:
  // ---- construction -------------------------------------------------------
  vstring() noexcept : data(nullptr) {}
  vstring(const char* text);
  vstring(const vstring& other);
  vstring(const StringSpool& spool);
  vstring(const char* text, txlong n);
  virtual ~vstring();

  // ---- allocation ---------------------------------------------------------
  // Makes the string hold exactly n bytes (reusing the block when its slack
  // is below 24 or below n/16). Length becomes n; only byte 0 is defined.
  char* alloc(unsigned int n);
  // A fresh block of capacity and length n; the old block is not looked at.
  char* calloc(unsigned int n);
  char* my_calloc(unsigned int n);

  // ---- assignment and transfer (return *this) -----------------------------
  vstring& put(const vstring& other);
  vstring& put(const char* text);
  vstring& put(char c);
  vstring& operator=(const vstring& other);
  vstring& operator=(const char* text);
  vstring& operator=(char c);
  vstring& operator=(const StringSpool& spool);
  vstring& putch(const char* text, txlong n);
  vstring& cpytext(const vstring& source, unsigned int start, unsigned int n);
  vstring& move(vstring& other);
  vstring& Swap(vstring& other);
  void swap(vstring& other) noexcept;
  vstring& clear();
  void del();
  void Empty();

  // ---- appending ----------------------------------------------------------
  vstring& cat(const vstring& other);
  vstring& cat(const char* text);
  vstring& cat(char c);
  void operator+=(const vstring& other);
  void operator+=(char c);
  vstring& catwithcomma(const vstring& other);
  vstring& catwithlinebreak(const vstring& other);

  // ---- new strings out of old (temporaries) -------------------------------
  vstring& operator+(const vstring& b) const;
  vstring& operator+(const char* b) const;
  vstring& operator+(char c) const;
  vstring& left(int n) const;
  vstring& Left(int n) const;
  vstring& right(int n) const;
  vstring& mid(int start, int n) const;
  vstring& trunc(int n);

  // ---- reading ------------------------------------------------------------
  unsigned int len() const;
  int GetLength() const;
  unsigned int blen() const;
  void putLen(unsigned int n);
  bool IsEmpty() const;
  int isNull() const;
  const char* optr() const;
  char* optr();
  const char* ioptr() const;
  char* ioptr();
  const char* GetString() const;
  operator const char*() const;
  char* GetBuffer();
  char* GetBuffer(int);
  char& operator[](int i);
  const char& operator[](int i) const;
  char* cpy(char* target) const;
  char* cpy(char* target, int noTerminator) const;

  // ---- exported names that do nothing -------------------------------------
  char GetAt(int) const;
  int Find(char*, int) const;
  int Replace(char*, char*);
  char* GetBufferSetLength(int);
  void SetAt(int, char);
  void ReleaseBuffer();
  void ReleaseBufferSetLength(int);
  void print() const;
  void Format(char*, ...);
  void AppendFormat(const char*, ...);
  void FormatMessage(char*, ...);
  void FormatMessage(unsigned int);
  void FormatMessageA(char*);
  void FormatMessageA(unsigned int);

  // ---- search, comparison and hashing -------------------------------------
  // (strings/search.cpp, strings/compare.cpp)

  // ---- case conversion ----------------------------------------------------
  // (strings/case.cpp)

  // ---- editing and trimming -----------------------------------------------
  // (strings/edit.cpp)

  // ---- quoting and escapes ------------------------------------------------
  // (strings/quote.cpp)

  // ---- numbers ------------------------------------------------------------
  // (numbers/)

  // ---- formatting and random text -----------------------------------------
  // (numbers/)

protected:
  // The text of the block, or null when the string holds no block.
  char* data;
};

TXC_API vstring& operator+(const char* a, const vstring& b);
TXC_API vstring& operator+(char c, const vstring& b);

static_assert(sizeof(vstring) == 2 * sizeof(void*), "vstring is one pointer beside its vtable");
