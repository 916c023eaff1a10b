// StringSpool: a growable text accumulator.
//
// Where vstring::cat reallocates to the exact size, a spool grows in leaps:
// small spools double, large ones grow by about 16,000 bytes a step. Its block
// comes from the host's Allocate when a host is registered.
//
//   StringSpool sp(64);
//   sp += "x = "; sp += 42; sp += ';';
//   vstring out(sp);                  // "x = 42;"
//
// The text has no terminator while it is built; optr() and assign() write one
// at index len(). Assignment copies members as they are, so two spools then
// share one block, of which only one may be destroyed.
#pragma once

#include <txCommon/export.h>

class vstring;

class TXC_API StringSpool {
public:
  StringSpool();
  StringSpool(int size);
  ~StringSpool();
  StringSpool& operator=(const StringSpool& other) = default;

  void clear();
  int len() const { return used; }
  char last() const { return used < 1 ? '\0' : buffer[used - 1]; }
  char& operator[](int i) { return buffer[i]; }
  const char& operator[](int i) const { return buffer[i]; }
  // Sets len() to n (no bytes are written); held inside the block.
  void trunc(int n);
  char* optr();
  void assign(vstring& target) const;

  void cat(const char* text);
  void cat(const char* text, int n);
  void cat(char c);
  void cat(const vstring& text);
  void cat(int value);
  // The value in "g" form with 17 significant digits.
  void cat(double value);

  void operator+=(const char* text) { cat(text); }
  void operator+=(char c) { cat(c); }
  void operator+=(const vstring& text) { cat(text); }
  void operator+=(int value) { cat(value); }
  void operator+=(double value) { cat(value); }

  void operator=(const char* text);
  void operator=(char c);
  void operator=(const vstring& text);
  void operator=(int value);
  void operator=(double value);

private:
  // Makes room for `extra` more bytes and a terminator; 0 when the host's
  // allocation failed and the append must add nothing.
  int Size(int extra);
  // Appends the zero-ended text formatted in `scratch`.
  void cat_scratch();

  int used;
  char* buffer;
  int size;
  char scratch[36];
};
