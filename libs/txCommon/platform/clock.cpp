// The present time and local time conversion, through the C run-time unless
// a test has pinned them.
//
// Stamps are seconds since 1970-01-01 UTC held in 32 unsigned bits, so they
// reach 2106-02-07. The run-time's 64-bit time_t functions are used and their
// results range-checked, which keeps that whole range on every platform.
#include <txCommon/internal/platform_clock.h>

#include <txCommon/CDateMin.h>
#include <txCommon/internal/date_kernel.h>

#include <atomic>
#include <cstdint>
#include <ctime>

namespace txc::platform {
namespace {

constexpr std::int64_t kStampMax = 4294967295LL;
constexpr std::int64_t kSecondsPerDay = 86400;

std::atomic<bool> gClockPinned{false};
std::atomic<std::uint32_t> gPinnedStamp{0};
std::atomic<bool> gZonePinned{false};
std::atomic<int> gPinnedOffset{0};

// UTC plus a fixed offset, computed on the library's own calendar so that a
// pinned zone doesn't depend on the host's time zone data.
bool fixed_zone_to_local(std::uint32_t stamp, int offset, LocalTime& out) {
  const std::int64_t t = static_cast<std::int64_t>(stamp) + offset;
  std::int64_t days = t / kSecondsPerDay;
  std::int64_t secs = t % kSecondsPerDay;
  if (secs < 0) {
    secs += kSecondsPerDay;
    --days;
  }
  const int day = static_cast<int>(days + CDateMin::GREGDAY_1970);  // near 1970..2106
  int year, yddd, month, mday;
  txc::gregday_to_yddd_unchecked(day, year, yddd);
  CDateMin::yddd_to_ymd(year, yddd, month, mday);
  out.yearSince1900 = year - 1900;
  out.month0 = month - 1;
  out.dayOfMonth = mday;
  out.dayOfYear0 = yddd - 1;
  out.hour = static_cast<int>(secs / 3600);
  out.minute = static_cast<int>(secs % 3600 / 60);
  out.second = static_cast<int>(secs % 60);
  return true;
}

// The inverse, normalising the month as mktime does; the other fields simply
// add up, which is mktime's normalisation for them.
bool fixed_zone_to_stamp(const LocalTime& in, int offset, std::uint32_t& stamp) {
  std::int64_t year = static_cast<std::int64_t>(in.yearSince1900) + 1900 + in.month0 / 12;
  int month0 = in.month0 % 12;
  if (month0 < 0) {
    month0 += 12;
    --year;
  }
  if (year < 1 || year > 9999) return false;
  const int y = static_cast<int>(year);
  const std::int64_t day = static_cast<std::int64_t>(txc::days_before_year(y)) +
                           txc::month_table(y)[month0] - 1 + in.dayOfMonth - 1;
  const std::int64_t t = (day - CDateMin::GREGDAY_1970) * kSecondsPerDay +
                         static_cast<std::int64_t>(in.hour) * 3600 +
                         static_cast<std::int64_t>(in.minute) * 60 + in.second - offset;
  if (t < 0 || t > kStampMax) return false;
  stamp = static_cast<std::uint32_t>(t);
  return true;
}

bool system_to_local(std::uint32_t stamp, LocalTime& out) {
  const std::time_t t = static_cast<std::time_t>(stamp);
  std::tm tm{};
#if defined(_WIN32)
  if (localtime_s(&tm, &t) != 0) return false;
#else
  if (localtime_r(&t, &tm) == nullptr) return false;
#endif
  out.yearSince1900 = tm.tm_year;
  out.month0 = tm.tm_mon;
  out.dayOfMonth = tm.tm_mday;
  out.dayOfYear0 = tm.tm_yday;
  out.hour = tm.tm_hour;
  out.minute = tm.tm_min;
  out.second = tm.tm_sec;
  return true;
}

bool system_to_stamp(const LocalTime& in, std::uint32_t& stamp) {
  std::tm tm{};
  tm.tm_year = in.yearSince1900;
  tm.tm_mon = in.month0;
  tm.tm_mday = in.dayOfMonth;
  tm.tm_yday = in.dayOfYear0;
  tm.tm_hour = in.hour;
  tm.tm_min = in.minute;
  tm.tm_sec = in.second;
  tm.tm_isdst = -1;  // let the zone rules decide
  const std::time_t t = std::mktime(&tm);
  // -1 is also a real moment (one second before 1970), which is out of range
  // here anyway.
  if (t == static_cast<std::time_t>(-1)) return false;
  const std::int64_t wide = static_cast<std::int64_t>(t);
  if (wide < 0 || wide > kStampMax) return false;
  stamp = static_cast<std::uint32_t>(wide);
  return true;
}

}  // namespace

std::uint32_t clock_now() {
  if (gClockPinned.load(std::memory_order_relaxed)) {
    return gPinnedStamp.load(std::memory_order_relaxed);
  }
  const std::int64_t now = static_cast<std::int64_t>(std::time(nullptr));
  if (now < 0) return 0;
  if (now > kStampMax) return static_cast<std::uint32_t>(kStampMax);
  return static_cast<std::uint32_t>(now);
}

bool stamp_to_local(std::uint32_t stamp, LocalTime& out) {
  if (gZonePinned.load(std::memory_order_relaxed)) {
    return fixed_zone_to_local(stamp, gPinnedOffset.load(std::memory_order_relaxed), out);
  }
  return system_to_local(stamp, out);
}

bool local_to_stamp(const LocalTime& in, std::uint32_t& stamp) {
  if (gZonePinned.load(std::memory_order_relaxed)) {
    return fixed_zone_to_stamp(in, gPinnedOffset.load(std::memory_order_relaxed), stamp);
  }
  return system_to_stamp(in, stamp);
}

void pin_clock(std::uint32_t stamp) {
  gPinnedStamp.store(stamp, std::memory_order_relaxed);
  gClockPinned.store(true, std::memory_order_relaxed);
}

void unpin_clock() { gClockPinned.store(false, std::memory_order_relaxed); }

void pin_zone(int offsetSeconds) {
  gPinnedOffset.store(offsetSeconds, std::memory_order_relaxed);
  gZonePinned.store(true, std::memory_order_relaxed);
}

void unpin_zone() { gZonePinned.store(false, std::memory_order_relaxed); }

}  // namespace txc::platform
