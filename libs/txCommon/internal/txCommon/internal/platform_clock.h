// Internal: not part of the public interface. Clock and local time.
//
// The date kernel reads the present time and converts between 32-bit time
// stamps (seconds since 1970-01-01 UTC, 0 to 4294967295) and local calendar
// time only through this header, so that tests can pin both:
//
//   txc::platform::pin_clock(86400);      // "now" is 2 January 1970 00:00 UTC
//   txc::platform::pin_zone(3600);        // local time is UTC+1, no DST
//   ...
//   txc::platform::unpin_clock();
//   txc::platform::unpin_zone();
//
// Unpinned, the operating system's clock and time zone answer.
#pragma once

#include <cstdint>

namespace txc::platform {

// Local calendar time, with the field conventions of the C library's tm.
struct LocalTime {
  int yearSince1900;  // year minus 1900
  int month0;         // 0 January .. 11 December
  int dayOfMonth;     // 1 to 31
  int dayOfYear0;     // 0 to 365
  int hour;           // 0 to 23
  int minute;         // 0 to 59
  int second;         // 0 to 60 (a leap second)
};

// The present time as a 32-bit stamp, whole seconds; a clock outside the
// stamp range is held at its end.
std::uint32_t clock_now();

// Breaks a stamp down into local time. False if the system can't.
bool stamp_to_local(std::uint32_t stamp, LocalTime& out);

// The stamp of a local time (daylight saving unknown, out-of-range fields
// normalised as the C library's mktime does; dayOfYear0 is ignored). False
// when the moment falls outside 0 to 4294967295 or the system can't tell.
bool local_to_stamp(const LocalTime& in, std::uint32_t& stamp);

// Test hooks. Process-wide and unsynchronised: set them before the calls
// they steer, from one thread.
void pin_clock(std::uint32_t stamp);
void unpin_clock();
// Local time is UTC plus `offsetSeconds`, with no daylight saving.
void pin_zone(int offsetSeconds);
void unpin_zone();

}  // namespace txc::platform
