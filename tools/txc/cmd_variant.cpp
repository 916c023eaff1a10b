// txc variant CELL...: builds a VARIANT from the cells given and shows what
// VariantHelper reads from it.
#include "command.h"

#include <txCommon/VariantHelper.h>
#include <txCommon/exceptions.h>
#include <txCommon/format.h>
#include <txCommon/internal/platform_com.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

namespace pf = txc::platform;
using txc_tool::visible;

// One cell from its text: "-" nothing, "date:X" a COM date, "bool:X" a
// boolean, "cy:X" currency, a number a VT_R8, anything else a text.
void fill_cell(tagVARIANT& v, const std::string& text) {
  pf::VariantInit(&v);
  char* end = nullptr;
  if (text == "-") return;
  if (text.rfind("date:", 0) == 0) {
    v.vt = VT_DATE;
    v.date = std::strtod(text.c_str() + 5, nullptr);
  } else if (text.rfind("bool:", 0) == 0) {
    v.vt = VT_BOOL;
    v.boolVal = std::strtod(text.c_str() + 5, nullptr) != 0 ? VARIANT_TRUE : VARIANT_FALSE;
  } else if (text.rfind("cy:", 0) == 0) {
    v.vt = VT_CY;
    v.cyVal.int64 = static_cast<std::int64_t>(std::strtod(text.c_str() + 3, nullptr) * 10000.0);
  } else if (double d = std::strtod(text.c_str(), &end); !text.empty() && *end == '\0') {
    v.vt = VT_R8;
    v.dblVal = d;
  } else {
    _variant_t s(text.c_str());
    v = s.Detach();
  }
}

void show_cell(VariantHelper& h, int row) {
  std::printf("  (%d, 0)", row);
  try {
    const vstring s = h.GetString(row, 0);
    std::printf(" string %s", visible(s.optr(), s.len()).c_str());
  } catch (const std::exception& e) {
    std::printf(" string throws \"%s\"", e.what());
  }
  try {
    std::printf(" double %s", strFormat(h.GetDouble(row, 0)));
  } catch (const std::exception& e) {
    std::printf(" double throws \"%s\"", e.what());
  }
  try {
    std::printf(" date %s", strFormat(h.GetDate(row, 0)));
  } catch (const std::exception& e) {
    std::printf(" date throws \"%s\"", e.what());
  }
  std::printf("\n");
}

int show(const txc_tool::Args& cells) {
  _variant_t value;
  if (cells.size() == 1) {
    fill_cell(value, cells[0]);
  } else {
    const SAFEARRAYBOUND bound = {static_cast<std::uint32_t>(cells.size()), 1};
    tagSAFEARRAY* a = pf::SafeArrayCreate(VT_VARIANT, 1, &bound);
    if (a == nullptr) return 1;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      fill_cell(static_cast<tagVARIANT*>(a->pvData)[i], cells[i]);
    }
    value.vt = VT_ARRAY | VT_VARIANT;
    value.parray = a;
  }
  try {
    VariantHelper h(&value);
    std::printf("type %u%s, %s, size %u, numeric %d string %d date %d bool %d, longest %u\n",
                h.GetType(), h.IsArray() ? " array" : "",
                h.IsMatrix() ? "matrix" : h.IsVector() ? "vector" : "scalar", h.ArraySize(1),
                h.IsNumeric(0), h.IsString(0), h.IsDate(0), h.IsBool(0), h.GetMaxStringSize());
    for (int r = 0; r < static_cast<int>(h.ArraySize(1)); ++r) show_cell(h, r);
  } catch (const std::exception& e) {
    std::printf("throws \"%s\"\n", e.what());
  } catch (const _com_error& e) {
    std::printf("COM error 0x%08X\n", static_cast<unsigned>(e.Error()));
  }
  return 0;
}

int run(const txc_tool::Args& args) {
  if (args.empty()) {
    std::fprintf(stderr, "usage: txc variant CELL...   (txc help variant)\n");
    return 2;
  }
  return show(args);
}

void tour() {
  show({"2.5"});
  show({"1.5", "x", "-", "date:36526.5", "bool:1", "cy:2.5"});
}

const txc_tool::Registration kRegistration{txc_tool::Command{
    "variant", nullptr, "read a VARIANT or an array of VARIANTs with VariantHelper",
    "txc variant CELL            a scalar\n"
    "txc variant CELL CELL...    a vector of VT_VARIANT cells\n"
    "  CELL: a number (VT_R8), '-' (VT_EMPTY), date:X (VT_DATE), bool:X (VT_BOOL),\n"
    "        cy:X (VT_CY), anything else a text (VT_BSTR, code page 1252).\n"
    "  Shows the shape and kinds, then each cell as GetString, GetDouble, GetDate.",
    run, tour}};

}  // namespace
