// Formatting of numbers to text.
//
// The public face of number output. The vstring methods format and iformat
// (declared in vstring.h) take a compact code for the wanted form; strFormat
// gives the plain six-decimal text; a StringSpool appends numbers in "g" form
// with 17 significant digits. A missing value or an infinity reads "NA" in
// all of them but the spool, which appends nothing for it.
//
//   vstring s;
//   s.iformat(1234.5678, 2);            // " 1234.57"   (2 decimals)
//   s.iformat(1234.5678, -1003);        // " 1.235e+03" (exponent, 3 decimals)
//   s.format(1234.5678, 8.2f, 0u);      // " 1234.57"   (width 8, 2 decimals)
//   s.format(1234.5678, 0.0f, 0u);      // "1234.5678"  ("%.12g")
//   s.format(1e30, 8.2f, 0u);           // "###"        (does not fit 30 bytes)
//   const char* t = strFormat(0.5);     // "0.500000"
//
// Texts never depend on the process locale: the decimal character is '.'
// unless the NF_COMMA flag asks for ','. No text is longer than 31 bytes.
#pragma once

#include <txCommon/export.h>

// The "%lf" text of `value` (six decimals, C locale), or "NA" for a missing
// value or an infinity, in the calling thread's 32-byte number text. Texts
// longer than 31 bytes (values from about 1e23 on) are cut to their first 31
// bytes without notice. The pointer is good until the next formatting call on
// this thread.
TXC_API char* strFormat(double value);
