// Exceptions and the error catalogue.
//
// Most failures in txCommon are numeric reports to the host, never
// exceptions. Exceptions are thrown in three narrow places, each with its own
// type:
//   - db_exception: a working array could not get memory (code 1929, text
//     "working array"), and the host's database layer's errors by code;
//   - InvalidArgument, ConversionException, UnexpectedException: misuse of a
//     COM variant. All three are std::exceptions with a private copy of their
//     message.
// common_exception is a plain value type for the host; the library never
// throws it.
//
// The error catalogue turns a db_exception's code into its message, each '%'
// filled from the exception's text:
//
//   try { ... }
//   catch (const db_exception& e) {
//     log(db_error_text(e).optr());  // "unable to allocate memory for working array"
//   }
//   db_error_message(104);           // "file '%' does not exist"
//   db_error_text(1917, "x.csv;3;7");  // "bad data field 'x.csv' (line 3, col 7)"
#pragma once

#include <txCommon/WorkingArray.h>
#include <txCommon/export.h>

#include <exception>

class vstring;

// ---- db_exception -----------------------------------------------------------

// An error of the catalogue with its argument text. The text is a zero-ended
// string in a working array of element size 1, shared by reference count:
// copies of the exception share it, and the last copy frees it.
class TXC_API db_exception {
public:
  // `code` as given; `text` is held by one more reference.
  db_exception(int code, WorkingArrayRef& text);
  // Shares the text of `other`: no characters are copied.
  db_exception(const db_exception& other);
  db_exception& operator=(const db_exception& other);
  virtual ~db_exception();

  std::int32_t code;
  WorkingArrayRef text;
  // Always ';' at construction. A catcher divides a text that carries several
  // arguments at this byte (db_error_text does).
  char separator;
};

// ---- common_exception -------------------------------------------------------

// The errors a host may name in a common_exception. The library constructs
// none of these itself; only the 32-bit width is fixed.
enum common_error_type : std::int32_t {
  COMMON_ERROR_NONE = 0,
  COMMON_ERROR_INVALID_ARGUMENT = 1,
  COMMON_ERROR_CONVERSION = 2,
  COMMON_ERROR_UNEXPECTED = 3,
  COMMON_ERROR_OUT_OF_MEMORY = 4,
  COMMON_ERROR_NOT_FOUND = 5,
  COMMON_ERROR_ACCESS_DENIED = 6,
  COMMON_ERROR_IO = 7,
};

// A code and an owned copy of a message (or null).
//
// Assignment copies the message POINTER, not the text, and does not release
// the target's old text: after `a = b` both point to one text, and only one
// of the two may be destroyed. The copy constructor, by contrast, makes a
// copy of its own, so that throwing and catching by value is safe.
class TXC_API common_exception {
public:
  explicit common_exception(common_error_type code);
  // A null `message` leaves the message null. Throws std::bad_alloc when the
  // copy cannot be made.
  common_exception(common_error_type code, const char* message);
  common_exception(const common_exception& other);
  common_exception& operator=(const common_exception& other);
  ~common_exception();

  common_error_type GetErrCode() const;
  // The message, or null.
  const char* GetErrMsg() const;

private:
  common_error_type code;
  char* message;
};

// ---- COM variant exceptions -------------------------------------------------
//
// Each is a std::exception whose what() is a private copy of the text given to
// the constructor, so the caller may build the text in a local buffer. A null
// text reads as "".

class TXC_API InvalidArgument : public std::exception {
public:
  explicit InvalidArgument(const char* text);
  InvalidArgument(const InvalidArgument& other);
  InvalidArgument& operator=(const InvalidArgument& other);
  ~InvalidArgument() override;
  const char* what() const noexcept override;

private:
  char* message_;
};

class TXC_API ConversionException : public std::exception {
public:
  explicit ConversionException(const char* text);
  ConversionException(const ConversionException& other);
  ConversionException& operator=(const ConversionException& other);
  ~ConversionException() override;
  const char* what() const noexcept override;

private:
  char* message_;
};

class TXC_API UnexpectedException : public std::exception {
public:
  explicit UnexpectedException(const char* text);
  UnexpectedException(const UnexpectedException& other);
  UnexpectedException& operator=(const UnexpectedException& other);
  ~UnexpectedException() override;
  const char* what() const noexcept override;

private:
  char* message_;
};

// ---- the error catalogue ----------------------------------------------------

// The stored message of `code`, with its '%' marks, or null for a code the
// catalogue does not hold.
TXC_API const char* db_error_message(int code);

// The message of `code` with each '%' filled, left to right, by the next piece
// of `arguments` divided at `separator`; the last '%' takes the whole rest, so
// a one-argument message takes the text as it stands, separators and all.
// Marks with no argument left become empty. A null `arguments` is empty. The
// result is a temporary (copy it to keep it); it is empty for a code outside
// the catalogue.
TXC_API vstring& db_error_text(int code, const char* arguments, char separator = ';');

// The same for a caught exception: its code, its text and its separator. The
// text is read without un-sharing it.
TXC_API vstring& db_error_text(const db_exception& error);
