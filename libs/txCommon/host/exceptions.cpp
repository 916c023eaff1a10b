// The exception types, and the lookup of a catalogue message by code.
#include <txCommon/exceptions.h>
#include <txCommon/internal/host_bridge.h>
#include <txCommon/internal/tracked_memory.h>
#include <txCommon/vstring.h>
#include <common/convert64.h>

#include <cstring>
#include <string>
#include <string_view>
#include <utility>

namespace {

// A private copy of `text` (null reads as ""); throws std::bad_alloc.
char* copy_text(const char* text) {
  if (text == nullptr) text = "";
  const std::size_t size = std::strlen(text) + 1;
  char* copy = new char[size];
  std::memcpy(copy, text, size);
  return copy;
}

}  // namespace

// ---- db_exception -----------------------------------------------------------

db_exception::db_exception(int code, WorkingArrayRef& text)
    : code(code), text(text), separator(';') {}

db_exception::db_exception(const db_exception& other)
    : code(other.code), text(other.text), separator(other.separator) {}

db_exception& db_exception::operator=(const db_exception& other) {
  code = other.code;
  text = other.text;
  separator = other.separator;
  return *this;
}

db_exception::~db_exception() = default;  // the holder gives up its reference

// ---- common_exception -------------------------------------------------------

common_exception::common_exception(common_error_type code) : code(code), message(nullptr) {}

common_exception::common_exception(common_error_type code, const char* message)
    : code(code), message(message != nullptr ? copy_text(message) : nullptr) {}

common_exception::common_exception(const common_exception& other)
    : code(other.code), message(other.message != nullptr ? copy_text(other.message) : nullptr) {}

// Shares the pointer and leaks the old text, as callers of this interface
// have always relied on; see the header.
common_exception& common_exception::operator=(const common_exception& other) {
  code = other.code;
  message = other.message;
  return *this;
}

common_exception::~common_exception() {
  delete[] message;
  message = nullptr;
}

common_error_type common_exception::GetErrCode() const { return code; }
const char* common_exception::GetErrMsg() const { return message; }

// ---- COM variant exceptions -------------------------------------------------

#define TXC_MESSAGE_EXCEPTION(Name)                                          \
  Name::Name(const char* text) : message_(copy_text(text)) {}                \
  Name::Name(const Name& other)                                              \
      : std::exception(other), message_(copy_text(other.message_)) {}        \
  Name& Name::operator=(const Name& other) {                                 \
    if (this != &other) {                                                    \
      char* copy = copy_text(other.message_);                                \
      delete[] message_;                                                     \
      message_ = copy;                                                       \
    }                                                                        \
    return *this;                                                            \
  }                                                                          \
  Name::~Name() { delete[] message_; }                                       \
  const char* Name::what() const noexcept { return message_; }

TXC_MESSAGE_EXCEPTION(InvalidArgument)
TXC_MESSAGE_EXCEPTION(ConversionException)
TXC_MESSAGE_EXCEPTION(UnexpectedException)

#undef TXC_MESSAGE_EXCEPTION

// ---- the catalogue ----------------------------------------------------------

const char* db_error_message(int code) {
  for (int i = 0; i < txc::kErrorCatalogueRows; ++i) {
    if (txc::kErrorCatalogue[i].code == code) return txc::kErrorCatalogue[i].message;
  }
  return nullptr;
}

namespace {

// `message` with its '%' marks filled from `arguments` (see the header).
std::string fill_marks(const char* message, std::string_view arguments, char separator) {
  std::size_t marksLeft = 0;
  for (const char* p = message; *p != '\0'; ++p) marksLeft += (*p == '%');

  std::string out;
  std::size_t cursor = 0;  // start of the next unused argument
  for (const char* p = message; *p != '\0'; ++p) {
    if (*p != '%') {
      out += *p;
      continue;
    }
    --marksLeft;
    if (cursor > arguments.size()) continue;  // arguments used up: the mark stays empty
    std::size_t end = arguments.size();
    if (marksLeft > 0) {
      const std::size_t found = arguments.find(separator, cursor);
      if (found != std::string_view::npos) end = found;
    }
    out.append(arguments.substr(cursor, end - cursor));
    cursor = end + 1;
  }
  return out;
}

vstring& into_temporary(const std::string& text) {
  vstring& result = txc::next_temp();
  if (text.empty()) return result.clear();  // an empty result holds no block
  char* target = result.alloc(static_cast<unsigned>(convert64(text.size())));
  std::memcpy(target, text.data(), text.size());
  target[text.size()] = '\0';
  return result;
}

}  // namespace

vstring& db_error_text(int code, const char* arguments, char separator) {
  const char* message = db_error_message(code);
  if (message == nullptr) return into_temporary(std::string());
  return into_temporary(
      fill_marks(message, arguments != nullptr ? arguments : "", separator));
}

vstring& db_error_text(const db_exception& error) {
  const WorkingArray* rep = error.text.rep;
  std::string_view arguments;
  if (rep != nullptr && rep->items != nullptr && rep->elementSize == 1 && rep->count > 0) {
    // Read up to the terminator, never past the block, whatever it holds.
    const char* text = reinterpret_cast<const char*>(rep->items);
    arguments = std::string_view(text, strnlen(text, static_cast<std::size_t>(rep->count)));
  }
  const char* message = db_error_message(error.code);
  if (message == nullptr) return into_temporary(std::string());
  return into_temporary(fill_marks(message, arguments, error.separator));
}
