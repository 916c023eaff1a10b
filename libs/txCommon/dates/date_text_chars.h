// Internal to the date text code: byte classes, ASCII only, so that code
// page and locale never change how a date reads.
#pragma once

namespace txc::dt {

constexpr bool is_digit(char c) { return c >= '0' && c <= '9'; }
constexpr bool is_letter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
// Space, tab, line feed, vertical tab, form feed, carriage return.
constexpr bool is_blank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
constexpr char upper(char c) { return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 32) : c; }

}  // namespace txc::dt
