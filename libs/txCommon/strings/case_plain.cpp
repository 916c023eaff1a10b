// vstring: the plain case conversions, which convert a whole text in the
// host's code page and know nothing of quotes.
//
//   vstring s("ab \"cd\"");
//   s.upr();                 // AB "CD"
//   s.capitalize();          // Ab "cd"
//
// With a host the text goes through its UpperBuffer/LowerBuffer slots, else
// through the code-page-1252 stand-ins of the platform layer. An empty text
// calls neither.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/internal/platform.h>
#include <txCommon/vstring.h>

#include <cctype>
#include <cstring>

namespace {

// Converts the zero-ended `text` in place by whichever road is open.
void upper_in_place(char* text) {
  if (ITXCommonCallback* h = txc::host()) {
    h->UpperBuffer(text);
  } else {
    txc::platform::CharUpperA(text);
  }
}

void lower_in_place(char* text) {
  if (ITXCommonCallback* h = txc::host()) {
    h->LowerBuffer(text);
  } else {
    txc::platform::CharLowerA(text);
  }
}

}  // namespace

vstring& vstring::upr() {
  if (len() != 0) upper_in_place(data);
  return *this;
}

vstring& vstring::MakeUpper() { return upr(); }

vstring& vstring::lwr() {
  if (len() != 0) lower_in_place(data);
  return *this;
}

vstring& vstring::capitalize() {
  if (len() == 0) return *this;
  lwr();
  data[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(data[0])));
  return *this;
}

// Compared up to the terminators, like the conversions themselves.
int vstring::isMixedCase() const {
  if (len() == 0) return 0;
  vstring upper(*this);
  upper.upr();
  vstring lower(*this);
  lower.lwr();
  return (upper != *this && lower != *this) ? 1 : 0;
}

vstring& vstring::putUpr(const char* text) {
  put(text);
  return upr();
}

// `target` must hold len() + 1 bytes. A null target gives null.
char* vstring::cpyupr(char* target) const {
  if (target == nullptr) return nullptr;
  cpy(target);
  if (*target != '\0') upper_in_place(target);
  return target;
}

char* vstring::cpylwr(char* target) const {
  if (target == nullptr) return nullptr;
  cpy(target);
  if (*target != '\0') lower_in_place(target);
  return target;
}
