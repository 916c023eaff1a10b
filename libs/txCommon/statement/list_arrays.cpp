#include "list_arrays.h"

namespace txc {

vstring* commalist_array() {
  static vstring items[kListArraySize];
  return items;
}

vstring* options_array() {
  static vstring items[kListArraySize];
  return items;
}

}  // namespace txc
