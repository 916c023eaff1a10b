// Frequencies, the RegularFreq record and the date hint.
//
// A data series has a frequency: the code says how long one period is, from a
// year (FREQ_ANNUAL) down to one tic (FREQ_TICS), with FREQ_RAW for series
// indexed by plain counts. A RegularFreq record describes a series as an
// origin, a frequency, a multiple and up to two cycles that leave gaps (a
// working week, the working hours of a day).
//
// The date hint says how ambiguous hand-written date text is read, for the
// whole process:
//
//   SetCommonDateHint(DH_DAY_MONTH_YEAR);        // "3/4/90" is 3 April 1990
//   SetCommonDateHint(DH_MONTH_DAY_YEAR | DH_MONTH_FIRST_LONG_YEAR |
//                     DH_DAY_NUMBER);            // the start value
//
// The hint is a plain process-wide value: set it at start-up, or from one
// thread while no other is parsing dates.
#pragma once

#include <txCommon/export.h>

#include <cstdint>

// Frequency codes. 0 means no frequency. One period of each:
enum FrequencyCode : int {
  FREQ_ANNUAL = 1,         // 12 months
  FREQ_SEMIANNUAL = 2,     // 6 months
  FREQ_QUARTERLY = 3,      // 3 months
  FREQ_MONTHLY = 4,        // 1 month
  FREQ_HALF_MONTH = 5,     // the 1st and the 16th of each month
  FREQ_TEN_DAY = 6,        // the 1st, 11th and 21st of each month
  FREQ_FIVE_DAY = 7,       // the 1st, 6th, 11th, 16th, 21st and 26th
  FREQ_FORTNIGHT = 8,      // 14 days
  FREQ_WEEKLY = 9,         // 7 days
  FREQ_BUSINESS_DAY = 10,  // one day of the Monday to Friday week
  FREQ_DAILY = 11,         // 1 day
  FREQ_HOUR = 12,
  FREQ_MINUTE = 13,
  FREQ_SECOND = 14,
  FREQ_MSEC = 15,
  FREQ_TICS = 16,          // one tic (millisecond), any count, carried into the day
  FREQ_RAW = 17,           // one count of a raw value; not a calendar
};

// The leading fields of the host's series record, in the order the host lays
// them out. The library only reads them.
//
// The cycles leave gaps: of every `outerCycle` periods only the first
// `outerUsed` are observations, and of every `innerCycle` of those only the
// first `innerUsed`. A daily series of working days is {frequency
// FREQ_DAILY, innerUsed 5, innerCycle 7} with its origin on a Monday.
//
// A record is read as empty (no observation at all) when `frequency` is 0,
// and also when it could not be evaluated without dividing by zero: a
// `multiple` of 0, or a cycle that is on (`innerCycle`, or `outerCycle` with
// the inner one on, not 0) whose used count is not above 0 or whose length is
// negative.
struct RegularFreq {
  std::int32_t baseDay;     // day number of the series' origin
  std::int32_t baseTics;    // time of day of the origin, in milliseconds
  std::int32_t frequency;   // a FrequencyCode; 0: the record is empty
  std::int32_t multiple;    // one observation is this many periods
  std::int32_t firstIndex;  // observation number of the origin
  std::int32_t innerUsed;   // observations in each inner cycle
  std::int32_t innerCycle;  // inner cycle length; 0: no cycles at all
  std::int32_t outerUsed;   // periods used in each outer cycle
  std::int32_t outerCycle;  // outer cycle length in periods; 0: none
};

// Bits of the date hint. Several period bits at once: the first of
// QUARTERLY, MONTHLY, SEMIANNUAL, WEEKLY, DAILY that is set decides.
enum DateHintBits : unsigned {
  // "1/2/90" is 2 January 1990 (month, day, short year).
  DH_MONTH_DAY_YEAR = 0x2,
  // "1/2/90" is 1 February 1990; DH_MONTH_DAY_YEAR wins if both are set.
  DH_DAY_MONTH_YEAR = 0x4,
  // "900102" is 2 January 1990; "90 Jan 2" reads the year first.
  DH_YEAR_MONTH_DAY = 0x8,
  // "1/2/1990" is 2 January 1990 also without DH_MONTH_DAY_YEAR.
  DH_MONTH_FIRST_LONG_YEAR = 0x10,
  // A bare number or number pair is a period: "19902" / "1990 2" is the
  // second half of 1990, quarter, month, occurrence week or day of year.
  DH_SEMIANNUAL = 0x40,
  DH_QUARTERLY = 0x80,
  DH_MONTHLY = 0x100,
  DH_WEEKLY = 0x200,
  DH_DAILY = 0x400,
  // In a number pair the second number is the year: "3 1990".
  DH_YEAR_SECOND = 0x800,
  // A five or six digit number that is no packed date is a day number.
  DH_DAY_NUMBER = 0x4000000,
  // "7" is 7:00 and "7:30" is a time, both on day 0.
  DH_TIME_OF_DAY = 0x8000000,
};

// The hint in force until the first SetCommonDateHint.
inline constexpr unsigned kDefaultDateHint =
    DH_MONTH_DAY_YEAR | DH_MONTH_FIRST_LONG_YEAR | DH_DAY_NUMBER;  // 0x04000012

// Stores the hint for every later parse, without any check; bits without a
// meaning are kept and ignored.
TXC_API void SetCommonDateHint(unsigned int hint);
