// vstring: case conversions chosen by a host setting.
//
// The host decides whether names are shown in lower case, separately for
// dialogs and for sheets. Each asks QuerySetting with its label (passed byte
// for byte: the labels are the host's, not ours) and reads the answer "1",
// compared without regard to case, as "lower case". Any other answer, an
// empty one, or no host at all means upper case.
//
//   // host answers "1" for "pTarnixIni->DlgLowerCase"
//   vstring("Genr \"X\"").dlgCase(0);   // genr "X"
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

namespace {

constexpr const char* kDialogLowerCase = "pTarnixIni->DlgLowerCase";
constexpr const char* kSheetLowerCase = "pTarnixIni->SheetLowerCase";

// _strnicmp(answer, "1", TempBufLen()) == 0. Within the bound only an answer
// of exactly "1" is equal; a bound of 0 makes every answer equal. The count
// is unsigned, so a negative answer bounds nothing.
bool setting_says_lower(const char* label) {
  ITXCommonCallback* h = txc::host();
  if (h == nullptr) return false;
  const vstring answer = h->QuerySetting(label);
  const int bound = txc::temp_buf_len();
  if (bound == 0) return true;
  const char* text = answer.optr();
  if (text[0] != '1') return false;
  return bound == 1 || text[1] == '\0';
}

}  // namespace

vstring& vstring::dlgCase(int) {
  return setting_says_lower(kDialogLowerCase) ? mblwrnq() : mbuprnq();
}

vstring& vstring::sheetCase() {
  return setting_says_lower(kSheetLowerCase) ? lwr() : upr();
}

// The conversion runs on a local copy; `target` must hold len() + 1 bytes. A
// null target gives null.
char* vstring::cpyDlgCase(char* target, int) const {
  if (target == nullptr) return nullptr;
  vstring copy(*this);
  copy.dlgCase(0);
  return copy.cpy(target);
}
