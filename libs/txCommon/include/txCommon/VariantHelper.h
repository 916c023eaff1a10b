// VariantHelper: reading COM variants and safe arrays as strings, numbers and
// dates.
//
// A helper sits on one VARIANT that the caller keeps alive, resolves it down
// to something with cells (through references to other VARIANTs, and through
// an object's "Value" property), and answers whatever its shape: scalar,
// vector (one dimension, or a one-column matrix) or matrix (two); what its
// cells hold; and cell (row, column) as a double, a vstring or a date. Rows
// and columns count from 0 whatever the array's bounds; the rows of a column
// are adjacent in memory.
//
//   _variant_t v(36526.5);          // VT_R8
//   VariantHelper h(&v);
//   h.IsScalar();                   // non-zero
//   h.GetDouble(0, 0);              // 36526.5
//   h.GetDouble(1, 0);              // dNA: out of range is no failure
//   h.GetString(0, 0);              // "36526.500000"
//   h.GetDate(0, 0);                // 730119.5: noon, 1 January 2000, as a CDateMin
//
// Failures throw InvalidArgument, ConversionException or UnexpectedException
// (all std::exceptions) with fixed texts; a failed platform call raises
// _com_error. A text is never parsed as a number: GetDouble of the text "12"
// throws. GetDouble, GetDate and GetString may change a numeric scalar in
// place to VT_R8, so they are not read-only. While a helper lives, its array
// stays locked.
#pragma once

#include <txCommon/CDateMin.h>
#include <txCommon/com_types.h>
#include <txCommon/export.h>
#include <txCommon/vstring.h>

#include <cstdint>

// How ConvertDate writes a date.
enum ComDateFormat : std::int32_t {
  ComDateSerial = 0,    // VT_DATE, days since 30 December 1899
  ComDateDayCount = 1,  // VT_R8, days since 1 January of the year 1, plus 365
};

// Keeps the data of a SAFEARRAY locked for as long as it lives.
class TXC_API SafeArrayAccessDataHelper {
public:
  // Locks `array`; on failure (or a null array) `released` stays set and
  // `cells` null.
  explicit SafeArrayAccessDataHelper(tagSAFEARRAY* array);
  // A copy holds a lock of its own on the same array.
  SafeArrayAccessDataHelper(const SafeArrayAccessDataHelper& other);
  // Gives up this object's lock, then takes one of its own on the array of
  // `other` if `other` holds one.
  SafeArrayAccessDataHelper& operator=(const SafeArrayAccessDataHelper& other);
  ~SafeArrayAccessDataHelper();

  // Gives the data back once; a second call does nothing.
  void Release();

  std::int32_t released;  // non-zero while no lock is held
  tagSAFEARRAY* array;
  void* cells;
};

class TXC_API VariantHelper {
public:
  // Analyses `value` at once (see Initialize). A null `value` is reported to
  // the host (AssertFailed) and the helper then stands for an empty scalar.
  explicit VariantHelper(_variant_t* value);
  // Copies hold their own lock and their own copy of a resolved value.
  VariantHelper(const VariantHelper& other);
  VariantHelper& operator=(const VariantHelper& other);
  ~VariantHelper();

  // Analyses the value anew: gives up the lock and takes it again.
  void Initialize();

  int IsArray();
  int IsByRef();
  int IsScalar();
  int IsVector();
  int IsMatrix();
  int IsEmpty();
  int IsVariant();
  unsigned int GetDim();
  unsigned short GetType();
  // The array, read through the reference under VT_BYREF; null for no array.
  tagSAFEARRAY* GetSafeArray();
  // Size of dimension `dimension` (from 1); 1 for no array and for a
  // dimension above GetDim(). 0 on an array throws InvalidArgument.
  unsigned int ArraySize(unsigned int dimension);

  // What column `column` holds. For an array of VARIANTs the first non-empty
  // cell among the first 100 rows decides; with none, IsNumeric says 1 and
  // the others 0.
  int IsBool(int column);
  int IsNumeric(int column);
  int IsString(int column);
  int IsDate(int column);

  // The nested cell in place (VT_VARIANT values only), or null out of range.
  tagVARIANT* GetVariantPointer(txlong row, txlong column);
  // A new value holding the cell (a boolean cell as VT_INT 1 or 0); VT_EMPTY
  // out of range.
  _variant_t GetAsVariant(txlong row, txlong column);
  // dNA out of range, for empty cells and for missing dates.
  double GetDouble(txlong row, txlong column);
  // Empty out of range and for empty cells; numbers in "%lf" form.
  vstring GetString(txlong row, txlong column);
  // The cell as the double encoding of a CDateMin.
  double GetDate(txlong row, txlong column);
  // The longest GetString length over all cells; converts every cell.
  unsigned int GetMaxStringSize();

  // Writes `date` into the type word and value of `out` (nothing else is
  // touched): VT_I4 for a raw count, else VT_R8 (ComDateDayCount) or VT_DATE.
  // An invalid date leaves `out` as it was.
  static void ConvertDate(tagVARIANT& out, CDateMin& date, ComDateFormat format);
  // `text` in the system code page; null or empty empties `out`.
  static void ConvertBSTRToVString(vstring& out, wchar_t*& text);

protected:
  // A shallow copy of a nested cell (VT_VARIANT values only); VT_EMPTY out of
  // range.
  tagVARIANT GetVariant(txlong row, txlong column);

  tagVARIANT* variant;
  _variant_t* source;
  std::int32_t upper[4];
  std::int32_t lower[4];
  std::uint32_t dimensions;
  std::uint32_t sizes[4];
  std::int32_t empty;
  std::int32_t scalar;
  std::int32_t vector;
  std::int32_t matrix;
  std::int32_t array;
  std::int32_t byRef;
  std::int32_t nested;
  std::uint16_t type;
  SafeArrayAccessDataHelper* access;
  std::int32_t ownsVariant;

private:
  enum class Want { Double, String, Date };
  void analyse(int depth);
  void adopt(tagVARIANT* copy);
  void drop_holdings();
  void read_shape();
  bool in_range(txlong row, txlong column) const;
  const void* cell(txlong row, txlong column) const;
  int cell_kind(int column, int (VariantHelper::*same)(int), bool direct, int whenEmpty);
  double read(txlong row, txlong column, Want want, vstring* text);
  double read_common(txlong row, txlong column, Want want, vstring* text);
};
