// The number side of StringSpool: "g" form with 17 significant digits by the
// library's own writer, so the text does not depend on the C library or the
// locale.
#include <txCommon/StringSpool.h>
#include <txCommon/internal/number_io.h>

namespace {

// The field handed to the writer. The longest text it can make here is 24
// bytes ("-1.2345678901234567e+308"), so no '#' can arise.
constexpr int kSpoolField = 30;

// Significant digits of the spool's "g" form: every digit a double carries.
constexpr int kSpoolDigits = 17;

}  // namespace

// Appends nothing when the spool cannot grow, and nothing for a NaN or an
// infinity (the writer gives them an empty text at width 0).
void StringSpool::cat(double value) {
  if (!Size(kSpoolField)) return;
  const NumFormat format{'g', 0, 0u, 0, kSpoolDigits};
  int written = 0;
  WriteNumber(value, format, scratch, kSpoolField, nullptr, &written);
  if (written < 0 || written > kSpoolField) written = 0;
  scratch[written] = '\0';
  cat_scratch();
}
