// vstring: the byte string the whole library stands on.
//
// One pointer next to the virtual table. The pointer addresses the text of a
// block laid out as
//
//   offset 0  uint32 capacityWord   capacity + 13
//   offset 4  uint32 length
//   offset 8  text, zero byte, unused room   (capacity + 5 bytes)
//
// so optr() is a plain zero-ended text, len() is a load, and an empty string
// owns no memory at all (null pointer; it reads as a shared empty text).
//
// Const operations that yield text do not construct a string: they return a
// reference to a temporary taken from the host or from a per-thread ring of 96
// entries. A result stays intact for 95 further temporaries on its thread;
// copy it to keep it:
//
//   vstring s("GENR X = Y");
//   vstring head = s.left(4);          // copy out of the temporary
//   s.mid(6, 1).cat("!");              // temporaries may be changed in place
//
// Positions count from 1; 0 means "not found". Lengths are 32-bit; a block of
// 64,000,000 bytes or more is reported to the host (code 2121) and made all
// the same.
#pragma once

#include <txCommon/export.h>

class StringSpool;
class vstringArray;

class TXC_API vstring {
public:
  // ---- construction -------------------------------------------------------
  vstring() noexcept : data(nullptr) {}
  vstring(const char* text);
  vstring(const vstring& other);
  vstring(const StringSpool& spool);
  vstring(const char* text, txlong n);
  virtual ~vstring();

  // ---- allocation ---------------------------------------------------------
  // Makes the string hold exactly n bytes (reusing the block when its slack
  // is below 24 or below n/16). Length becomes n; only byte 0 is defined.
  char* alloc(unsigned int n);
  // A fresh block of capacity and length n; the old block is not looked at.
  char* calloc(unsigned int n);
  char* my_calloc(unsigned int n);

  // ---- assignment and transfer (return *this) -----------------------------
  vstring& put(const vstring& other);
  vstring& put(const char* text);
  vstring& put(char c);
  vstring& operator=(const vstring& other);
  vstring& operator=(const char* text);
  vstring& operator=(char c);
  vstring& operator=(const StringSpool& spool);
  vstring& putch(const char* text, txlong n);
  vstring& cpytext(const vstring& source, unsigned int start, unsigned int n);
  vstring& move(vstring& other);
  vstring& Swap(vstring& other);
  void swap(vstring& other) noexcept;
  vstring& clear();
  void del();
  void Empty();

  // ---- appending ----------------------------------------------------------
  vstring& cat(const vstring& other);
  vstring& cat(const char* text);
  vstring& cat(char c);
  void operator+=(const vstring& other);
  void operator+=(char c);
  vstring& catwithcomma(const vstring& other);
  vstring& catwithlinebreak(const vstring& other);

  // ---- new strings out of old (temporaries) -------------------------------
  vstring& operator+(const vstring& b) const;
  vstring& operator+(const char* b) const;
  vstring& operator+(char c) const;
  vstring& left(int n) const;
  vstring& Left(int n) const;
  vstring& right(int n) const;
  vstring& mid(int start, int n) const;
  vstring& trunc(int n);

  // ---- reading ------------------------------------------------------------
  unsigned int len() const;
  int GetLength() const;
  unsigned int blen() const;
  void putLen(unsigned int n);
  bool IsEmpty() const;
  int isNull() const;
  const char* optr() const;
  char* optr();
  const char* ioptr() const;
  char* ioptr();
  const char* GetString() const;
  operator const char*() const;
  char* GetBuffer();
  char* GetBuffer(int);
  char& operator[](int i);
  const char& operator[](int i) const;
  char* cpy(char* target) const;
  char* cpy(char* target, int noTerminator) const;

  // ---- exported names that do nothing -------------------------------------
  char GetAt(int) const;
  int Find(char*, int) const;
  int Replace(char*, char*);
  char* GetBufferSetLength(int);
  void SetAt(int, char);
  void ReleaseBuffer();
  void ReleaseBufferSetLength(int);
  void print() const;
  void Format(char*, ...);
  void AppendFormat(const char*, ...);
  void FormatMessage(char*, ...);
  void FormatMessage(unsigned int);
  void FormatMessageA(char*);
  void FormatMessageA(unsigned int);

  // ---- search, comparison and hashing -------------------------------------
  // (strings/search.cpp, strings/compare.cpp, strings/classify.cpp,
  //  strings/hash.cpp)
  //
  // Positions are 1-based, 0 is "not found"; `start`/`limit` 0 mean the whole
  // text. Scans stop at the first zero byte, not at len().
  //
  //   vstring s("abcabc");
  //   s.instr("bc", 2, 0);     // 5: second match
  //   s.rinstr("bc", 1, 0);    // 5: last match
  //   s.compare(vstring("abd")) < 0;
  //
  // Text search: the `occurrence`-th match of `needle` at or after `start`
  // (overlapping matches count). Occurrence 0 answers start - 1.
  int instr(vstring& needle, unsigned int occurrence = 1, unsigned int start = 0) const;
  int instr(const char* needle, unsigned int occurrence = 1, unsigned int start = 0) const;
  int instrsub(char* const needle, unsigned int occurrence = 1, unsigned int start = 0) const;
  // Byte search from `start`; a `start` equal to the length already gives 0.
  int instr(char c, unsigned int occurrence, unsigned int start = 0) const;
  int instr(char c) const;
  int inchar(int c) const;
  // Among the matches starting at or before `limit`, the `occurrence`-th from
  // the back; occurrence 0 gives the first match behind `limit`.
  int rinstr(vstring& needle, unsigned int occurrence = 1, unsigned int limit = 0) const;
  int rinstr(const char* needle, unsigned int occurrence = 1, unsigned int limit = 0) const;
  int rinstrsub(char* const needle, unsigned int occurrence = 1, unsigned int limit = 0) const;
  // Byte search backwards from `limit` (0 or >= length: the last byte).
  int rinstr(char c, unsigned int occurrence, unsigned int limit = 0) const;
  // The last byte `c`, except that one at position 1 is never seen (0).
  int rinstr(char c) const;
  int rinchar(int c) const;
  // The first byte `c` outside double quotes (", and 0x93/0x94 under a 1252
  // host). The byte is tested before the quote toggles.
  int incharnq(int c) const;
  txlong CharCount(char c);
  // Leading bytes shared, terminators included: equal texts give length + 1.
  int MatchingStartChars(const vstring& other);

  // Ordering: bytewise, but [ \ ] ^ _ ` order below all letters.
  int compare(const vstring& other) const;
  // Case-blind first, then compare() to break ties: a total order.
  int compareX(const vstring& other) const;
  int CompareNoCase(vstring& other) const;
  int CompareNoCase(const char* other) const;
  // The ordering rule over at most n - 1 equal bytes.
  int cmp(vstring& other, unsigned int n);
  int cmp(const char* other, unsigned int n);
  int fcmp(const char* other, unsigned int n);
  // 1 when equal without regard to case over TempBufLen() bytes.
  int caselessEqual(const vstring& other) const;
  int caselessEqual(const char* other) const;
  // Exact byte equality up to the terminators; empty equals empty.
  int operator==(const vstring& other) const;
  int operator!=(const vstring& other) const;
  int operator==(const char* other) const;
  int operator!=(const char* other) const;
  // 1 when the text is exactly the one byte `c`.
  int operator==(char c) const;
  // The ordering rule bounded by TempBufLen().
  int operator<(const vstring& other) const;
  int operator>(const vstring& other) const;
  int operator<=(const vstring& other) const;
  int operator>=(const vstring& other) const;

  // Shape of the text.
  // Leading bytes 0x01-0x20, an optional sign, then digits to the end.
  int isInteger() const;
  // Only 0-9, A-Z, a-z (the empty text qualifies).
  int IsAlphaNumeric();
  // Some byte for which isspace() holds.
  int hasWhiteSpace() const;
  // Some byte of the len() bytes is an expression separator (tab, LF, blank,
  // ( ) * + , - / < = > ^, or a zero byte inside the length).
  int hasSeperator() const;

  // 32-bit hash of the len() bytes; the word table uses the same function.
  unsigned int hash() const;

  // ---- case conversion ----------------------------------------------------
  // (strings/case_plain.cpp, strings/case_nq.cpp, strings/case_setting.cpp,
  //  strings/case_title.cpp)
  //
  // The plain family converts the whole text through the host's
  // UpperBuffer/LowerBuffer; the nq family leaves quoted text alone:
  //
  //   vstring s("genr x = \"Label\"");
  //   s.uprnq();                // GENR X = "Label"
  //
  // All change the string and return *this except the cpy forms and
  // isMixedCase.
  vstring& upr();
  vstring& MakeUpper();
  vstring& lwr();
  // Upper/lower case outside double quotes (", and 0x93/0x94 under a 1252
  // host); a quote left open runs to the end of the text.
  vstring& mbuprnq();
  vstring& uprnq();
  vstring& outCase();
  vstring& mblwrnq();
  vstring& lwrnq();
  // mblwrnq when the host's "pTarnixIni->DlgLowerCase" is "1", else mbuprnq.
  // The argument has no effect.
  vstring& dlgCase(int unused = 0);
  // lwr when the host's "pTarnixIni->SheetLowerCase" is "1", else upr.
  vstring& sheetCase();
  // Lower case, then the first byte upper case.
  vstring& capitalize();
  // Capitals at word starts (words end at bytes 0x00-0x20); lowerRest lowers
  // the rest of each word; firstWordOnly stops behind the first word.
  vstring& titleCase(int firstWordOnly, int lowerRest);
  // 1 when the text differs from both its upper- and lower-case forms.
  int isMixedCase() const;
  // Assign, then upr / mbuprnq. Null or empty releases the block.
  vstring& putUpr(const char* text);
  vstring& putUprnq(const char* text);
  // Copy the text (with terminator) into `target`, converted; `target` must
  // hold len() + 1 bytes. The string itself is left alone.
  char* cpyupr(char* target) const;
  char* cpylwr(char* target) const;
  char* cpylwrnq(char* target) const;
  char* cpyDlgCase(char* target, int unused = 0) const;

  // ---- editing and trimming -----------------------------------------------
  // (strings/trim.cpp, strings/edit_remove.cpp, strings/edit_insert.cpp,
  //  strings/edit_convert.cpp, strings/comment.cpp, strings/paren.cpp,
  //  strings/replace.cpp, strings/replace_array.cpp, strings/replace_name.cpp)
  //
  // Const forms return a temporary; the others change the string and return
  // *this. Three blank tests are in use and each method names its own:
  // "low blank" is 0x00-0x20 read unsigned (0x80 and up are text), "signed
  // blank" is <= 0x20 as a signed byte (0x80 and up count as blank), "space"
  // is 0x20 alone.
  //
  //   vstring s("  a(b)  ");
  //   s.trim(0);                          // "a(b)" (temporary)
  //   vstring e("X+X1+X");
  //   e.replace("X", "Y", 0, 0);          // "Y+Y1+Y"
  //   vstring n("AX X");
  //   n.replaceName("X", "Y");            // 1, "AX Y": whole names only
  //
  // Work that needs room is laid out in the scratch buffer; a result is never
  // longer than TempBufLen() bytes (see each method for what a larger text
  // gets).

  // Trimming. ltrim/rtrim: leading/trailing low blanks; a byte of 0x80 or up
  // stops the scan. rtrim1: trailing spaces only.
  vstring& ltrim() const;
  vstring& rtrim() const;
  vstring& rtrim1() const;
  // Both ends; highToo also takes signed blanks (0x80 and up) off the end.
  // A text opening with a byte of 0x80 or up comes back whole.
  vstring& trim(int highToo) const;
  // In place, low blanks at both ends; the block is kept.
  vstring& itrim();
  void TrimRight();

  // Removing.
  vstring& removeCharacter(char c);
  // Bytes 0x00-0x20 go; bytes 0x80 and up stay.
  vstring& removeWhiteSpace();
  // Signed blanks go outside quotes (0x80 and up too); quoted text stays.
  vstring& removeWhiteSpacenq();
  // Drops the byte classes named in `kinds`: a letters, d digits, w white
  // space, p everything else (case-blind).
  vstring& dropchars(const vstring& kinds) const;
  // Cuts the text at its first ' outside quotes; with atCommand, a text
  // opening with '@' and a low blank is emptied.
  vstring& StripComments(int atCommand);
  // 1-based position of the first ' outside quotes, 0 if none.
  int findCommentChar();
  // One enclosing pair (..) or [..] comes off when it really encloses:
  // "(a)+(b)" stays, "((a))" gives "(a)".
  vstring& remove_parens();
  vstring& StripParens();
  vstring& remove_brackets();
  // A leading '{' and a trailing '}' come off when both stand there.
  vstring& StripBraces();
  // A temporary "{text}"; this string stays as it is.
  vstring& SurroundWithBraces();

  // Replacing. Non-overlapping, left to right, a replacement is never
  // rescanned. maxCount bounds the replacements; caseBlind compares after
  // toupper. An empty `from` inserts `to` maxCount times at the front.
  void replace(vstring from, vstring to, int firstOnly, int caseBlind);
  void caselessReplace(vstring from, vstring to, int firstOnly);
  vstring& replace_mult(vstring from, vstring to, int maxCount, int caseBlind);
  // from[k] -> to[k] in one left-to-right pass, each search going on behind
  // the previous match; entries are expected in their order in the text (one
  // not found still appends to[k], and the search point falls back to
  // len(from[k])).
  void replace_mult(vstringArray& from, vstringArray& to, int caseBlind);
  // Replaces the first whole-name match of `from` (name bytes: $ 0-9 A-Z _);
  // 1 when it did, else 0.
  int replaceName(vstring from, vstring to);

  // Inserting. `part` goes behind the first `position` bytes (position >= 1);
  // refused, with no change, when the two lengths together do not fit the
  // scratch buffer (no host: when they reach 8192).
  vstring& insert(vstring& part, int position);
  // Overwrites bytes from 0-based `offset` with `part`, never past the end.
  void insertPart(vstring& part, int offset);

  // Line and character conversion.
  vstring& TabToSpace();
  // A temporary with CR, CR LF and LF CR each turned into one LF.
  vstring& CR_LF_to_LF() const;
  // Drops junk in front of the first letter, digit or byte of
  // extra[0..extraCount); everything behind it stays.
  vstring& MakeAlphaNumeric(char* extra, int extraCount);
  // The first n bytes as 2n capital hex digits ("%02X" each).
  vstring& bin2hex(unsigned int n);

  // ---- quoting and escapes ------------------------------------------------
  // (strings/quote.cpp, strings/quote_strip.cpp, strings/quote_double.cpp,
  //  strings/escape.cpp)
  //
  // All change the string. A quote byte is '"', and 0x93/0x94 under a host
  // whose code page is 1252; MakeQuoted looks at '"' alone.
  //
  //   vstring s("a \"b\"");
  //   s.MakeQuoted();            // "a ""b""" : outer quotes, inner doubled
  //   s.StripQuotesEx();         // a "b"     : and back
  //
  // A result that would outgrow the scratch buffer (TempBufLen() bytes) is
  // cut at a whole byte of the source and still closed, see SurroundWithQuotes.
  vstring& SurroundWithQuotes();
  vstring& MakeQuoted();
  vstring& AddQuotesEx();
  // MakeQuoted when the text holds white space (with ignoreQuoted, white
  // space inside quotes does not count).
  vstring& AddQuotesIfNecessary(bool ignoreQuoted);
  // Takes off a first and last quote byte, nothing else.
  vstring& StripQuotes();
  // Takes off the outer pair (trailing blanks allowed) and undoubles inner
  // quotes, unless the outer quotes turn out to belong to separate pieces.
  vstring& StripQuotesEx();
  // Doubles / undoubles quote bytes; the added byte is always '"'.
  vstring& ConvertToDblQuotes();
  vstring& ConvertFromDblQuotes();
  // Named the other way round from what they do: the first writes line ends
  // as \n and '\' as \\; the second reads them back (line ends as CR LF).
  void ConvertEscSequencesToAscii();
  void ConvertAsciiToEscSequences();

  // ---- numbers ------------------------------------------------------------
  // (numbers/vstring_numbers.cpp)
  //
  // The conversions never report and never throw; the process locale plays no
  // part (the decimal character is always '.').
  //
  //   vstring("  -42xyz").ival();     // -42 (atol: stops at the first non-digit)
  //   vstring("NA").dval();           // dNA; " NA" and "na" give 0.0
  //   vstring("$1,234.50").number();  // 1234.5; "abc" gives dNA
  //   vstring("(12)").isNumber();     // 1: the full reader grammar
  //   double n; vstring("abc 12").GetBaseStr(n);  // "abc", n = 12
  //
  // atol of the text: white space, a sign, decimal digits; 0 without a digit;
  // saturates at the 32-bit limits.
  int ival() const;
  txlong lval() const;
  // dNA for exactly "NA", otherwise atof of the text (0.0 for no number).
  double dval() const;
  // Skips blanks and one '$', keeps a sign and the digits, drops ',' before the
  // point, then atof; dNA when no digit (or '.' digit) starts the number.
  double number() const;
  // 1 when the text is one finite number with optional white space around it,
  // or "NA" in any case; 0 otherwise.
  int isNumber() const;
  int IsNumberStrict() const;
  // Splits off a tail of digits and blanks: returns the head as a temporary
  // and stores the tail's value in `number` when it is a number (else 0.0).
  vstring& GetBaseStr(double& number) const;

  // ---- formatting and random text -----------------------------------------
  // (numbers/format_vstring.cpp, numbers/random_text.cpp; see <txCommon/format.h>)
  //
  // Each format method replaces the text with the formatted number and returns
  // *this; a missing value or an infinity becomes "NA", a field that cannot
  // hold the number becomes '#' bytes.
  //
  // spec 0.0: the "%.12g" text (C locale). spec < 0: iformat(value, (int)spec).
  // spec > 1: width.decimals, e.g. 8.2 = width 8, 2 decimals (one decimal of
  // the code counts). 0 < spec <= 1: exponent form with spec*100 decimals.
  // A blank stands before a number that is not negative.
  vstring& format(double value, float spec, unsigned int flags);
  // As above with flags 0, and `before` / `after` blanks around the text.
  vstring& format(double value, float spec, int before, int after);
  // digits >= 0: that many decimals; -1..-999: a column of -digits bytes;
  // below -999: exponent form with -1000-digits decimals.
  vstring& iformat(double value, int digits);
  // minLength..maxLength characters of [0-9a-z] from the C-style rand() pair
  // of the calling thread; reseeded from the clock unless keepSeed.
  static vstring GetRandomAlphaNumericString(int minLength, int maxLength, bool keepSeed);

  // ---- word lists: scanning and positions ---------------------------------
  // (words/word_position.cpp, words/word_element.cpp, words/word_break.cpp)
  //
  // A word list is any text read as words. A word starts at a byte above
  // 0x20 and ends at a byte 0x01-0x20 met outside double quotes and outside
  // round parentheses; a ')' closing the outer pair also ends it unless one of
  // * + - . / < = > ^ follows. Unclosed quotes or parentheses run to the end.
  // Quote bytes are '"' and, under a host whose code page is 1252, 0x93/0x94.
  //
  //   vstring s("a  (b c)d \"e f\"");
  //   s.WCount();     // 4: a, (b c), d, "e f"
  //   s.WMid(2, 2);   // "(b c) d" : words joined by one blank
  //   s.WordQ(4);     // ["e f"] with its quotes;  s.Word(4);  // [e f]
  //
  // Positions count from 1; a position or count below 1 gives an empty
  // result, and words past the last are simply missing.
  int WCount() const;
  vstring& WMid(int first, int count) const;
  vstring& WLeft(int n) const;
  // The last n words; when n covers the whole list, the text exactly as it
  // stands (blanks and all). Empty while the host has an error pending.
  vstring& WRight(int n) const;
  // Word n with its quotes; Word() takes the outer pair off (StripQuotesEx).
  vstring& WordQ(int n) const;
  vstring& Word(int n) const;
  // Element n, counted from 0, of the runs of bytes 0x21-0x7F: no quotes, no
  // parentheses, and bytes from 0x80 up separate. An element longer than the
  // scratch buffer (TempBufLen()) is cut to that length.
  vstring& GetElement(int n);
  // The text cut before the last byte at or below offset n that is a blank,
  // a control byte or a byte from 0x80 up, as a temporary; *this itself when
  // the text is not longer than n. A negative n gives an empty temporary.
  vstring& truncateList(int n);
  // Offset of the last character before `limit` (-1: the whole text) that is
  // a blank or in none of the current locale's classes letter, digit,
  // punctuation and blank (a tab is a break, a comma not); -1 for none.
  int GetLastWordBreak(int limit);

  // ---- word lists: set operations -----------------------------------------
  // (words/word_sets.cpp, words/word_find.cpp)
  //
  // Words compared byte for byte, quotes and case included; each result word
  // once, joined by one blank; neither operand changes.
  //
  //   vstring("b a").WUnion("c a b");         // "b a c"
  //   vstring("a b a c").WNotIn("b");         // "a c"
  //   vstring("d b").WIntersect("a b c d");   // "b d"
  //
  // In order of first appearance.
  vstring& WUnique() const;
  vstring& WUnion(const vstring& other) const;
  // In the order of the operand with the longer text (this list on a tie).
  vstring& WIntersect(const vstring& other) const;
  vstring& WNotIn(const vstring& other) const;
  // Number (from 1) of the first word equal to `word`, or of the last with
  // findLast; 0 for none. *position (when given) gets the word's byte offset,
  // -1 for none. ignoreCase folds ASCII letters only.
  int WFind(const vstring& word, int ignoreCase, int* position, int findLast);

  // ---- word lists: wildcard patterns --------------------------------------
  // (words/wildcard_match.cpp, words/wildcard_regex.cpp, words/wildcard_lists.cpp)
  //
  // A pattern has two wildcards and no escape: `*` any run of bytes (also
  // none), `?` exactly one byte; every other byte stands for itself, case
  // counting. Words are matched without their outer quotes; a quoted word
  // comes out between two plain `"`.
  //
  //   vstring("x1 y1 x2").WKeep("x*");             // "x1 x2"
  //   vstring("x1 y1 x2").WDrop("x*");             // "y1"
  //   vstring("xaya").WReplace("*a*", "*b*", false);  // "xbyb"; firstOnly: "xbya"
  //
  // 1 when the text holds a `*` (or, with alsoQuestionMark, a `?`).
  int hasWildCard(int alsoQuestionMark) const;
  // The words that match some word of `patterns` / that match none; the
  // list's order, each word once per appearance.
  vstring& WKeep(const vstring& patterns) const;
  vstring& WDrop(const vstring& patterns) const;
  // Each word that matches `source` rewritten to `destination` (one pattern
  // each, not split into words). Patterns whose wildcards differ in kind or
  // order (`a*` to `b`, or a source with `**`) are reported (828) and the
  // text comes back as it stands; so it does when a rewrite fails. A word
  // is left alone when it and the destination together do not fit the
  // scratch buffer (no host: 8192 bytes).
  vstring& WReplace(const vstring& source, const vstring& destination, bool firstOnly) const;

  // ---- word lists: composition --------------------------------------------
  // (words/compose_interleave.cpp, compose_cross.cpp, compose_delim.cpp,
  //  compose_c_word.cpp)
  //
  //   vstring("a b c").WInterleave("x y", 2, 1);   // a b x c "" y
  //   vstring("a b").WCross("x y", "?_?");         // a_x a_y b_x b_y
  //   vstring("a, b c").WDelim("C", "S");          // a "b c"
  //   vstring s("X C Y"); s.adjustCPosition(1);    // s is "C X Y "
  //
  // Groups of countThis words of this list and countOther of `other` in turn;
  // a list that runs out is padded with `""`. A count below 1: report 110,
  // empty result. Stops early (what is built so far) on the host's pending
  // error. Results of WInterleave and WCross stop growing at 64,000,000 bytes.
  vstring& WInterleave(const vstring& other, int countThis, int countOther) const;
  // prefix+a+middle+b+suffix for each word a of this list (outer loop) and b
  // of `other`, outer quotes off, quoted anew when the item holds a blank.
  // The pattern is empty or has exactly two `?` (else report 2115, empty).
  vstring& WCross(const vstring& other, const vstring& pattern) const;
  // The list cut at `from` and joined with `to`, each named by one byte: T
  // tab, C comma, S blank (any case), or another byte that is no letter,
  // digit or quote. Otherwise report 2112 and return a copy of the text.
  vstring& WDelim(const vstring& from, const vstring& to) const;
  // A `C` bordered on each side by the start/end or a byte <= 0x20 as a
  // signed value (0x80 and up too): 1/0, and its 0-based offset or -1.
  int hasC();
  int findC();
  // The list rebuilt from its statement words (command::word(1)) without the
  // word C / with C as word number `position` (behind the end: last; below 1:
  // none); every word is followed by one blank. Both change this string.
  vstring& removeC();
  void adjustCPosition(int position);

  // ---- statement words (scanner-backed) -----------------------------------
  // (scanner/command_core.cpp)
  //
  // 1 when the whole text is one word of the statement scanner (command::word):
  // `f(a b)` and `"a b"` are, `a b`, ` a` and `f(x)y` are not. Bad parentheses
  // and quotes are reported to the host (23, 102) as the scanner does.
  int isWord() const;

  // ---- delimited lists and options ----------------------------------------
  // (statement/delimited_list.cpp, statement/options.cpp)
  //
  //   vstring cmd("PRINT(a, b=\"x,y\", c(1,2))");
  //   vstring* opts = cmd.split_options(nullptr, 0, 0);
  //   // cmd is "PRINT"; opts[0] "a", opts[1] "b=\"x,y\"", opts[2] "c(1,2)"
  //
  // The items at `,` (no quotes, no trimming), at most 49, into an array of 50
  // owned by the library and overwritten by the next call; the element
  // behind the last item is empty.
  vstring* parse_commalist();
  // The items at `delimiter`, at most maxItems, into the caller's array.
  // Leading delimiters are skipped; an empty text gives one empty item.
  void parse_delimitedlist(vstring* out, int maxItems, char delimiter);
  // With honourQuotes, a delimiter inside quotes does not cut (a `\` in front
  // keeps a quote from closing). Leading empty items are not stored.
  void parse_delimitedlist(vstring* out, int maxItems, char delimiter, int honourQuotes);
  void parse_delimitedlist(vstring* out, int maxItems, const char* delimiter, int delimiterLength,
                           int honourQuotes);
  // Takes a trailing option list `(a,b,...)` off this text into `out` (first
  // clearing maxItems elements), or into the library's array of 50 when out
  // is null. More options than fit: report 216, the rest dropped. A text
  // without a proper trailing group stays (trimmed).
  vstring* split_options(vstring* out, int maxItems, int reserved);
  vstring* split_options(int maxItems);
  // Appends `(OPT1,OPT2,...)`, upper-cased outside quotes; trailing empty
  // options are left out, and all-empty options append nothing.
  void add_options(vstring* options, int count);
  // Trims, then cuts a balanced `(...)` off the end (quotes not looked at).
  void strip_options();

  // ---- equations ----------------------------------------------------------
  // (statement/equation_assign.cpp, equation_split.cpp, equation_text.cpp)
  //
  //   vstring eq("y = a(1) + x + [k(1)=.5] @ t");
  //   eq.instrAssign();                  // 3
  //   vstring l, r, group, tail;
  //   eq.SplitEquation(l, r, group, tail);  // "y", "a(1) + x", "k(1)=.5", "t"
  //
  // The position (from 1) of the first `=` behind an operand at bracket
  // depth 0, or 0 when the text is no single statement of the form (`<=`,
  // `f(a=1)`, `a b = 1` give 0; OR, AND, NOT join operands).
  int instrAssign();
  // The four pieces of an equation; the bracket group must be joined on by a
  // `+` (702) and opened (701), both reported with the statement.
  void SplitEquation(vstring& leftSide, vstring& rightSide, vstring& bracketGroup, vstring& tail);
  // `a=b=c=1,d=2` as `a=1,b=1,c=1,d=2` (commas and `=` only).
  vstring& ConvertFromCompoundEquality();
  // The text unchanged: ranges in option names are the host's to expand.
  vstring& ExpandOptionRangeNames();
  // The text in front of / behind the first plain `=`, blanks off both ends;
  // empty when there is no `=`.
  vstring& left_of_equal() const;
  vstring& right_of_equal() const;
  // Appends `(a)` / `(a,b)` in decimal; returns *this.
  vstring& paren_int(int a);
  vstring& paren_int(int a, int b);
  // 1 when the whole text is one parenthesised expression: `(a)`, ` (a) `.
  int OnlyParenExpression() const;
  // Puts the text in parentheses when it could not stand as a factor:
  // `a+b` and `a AND b` get them, `x*y`, `(a+b)` and `-x` do not.
  vstring& surroundForMult();
  // The host's value of the text as an expression (EvaluateExpression);
  // 0.0 with no host, `status` untouched.
  double evaluate(int* status);
  // A plain integer directly (atoi, held at the 32-bit limits), anything else
  // through the host; the floor of the value, 0 for a missing value, and 0
  // with report 65 outside the 32-bit range. `status` is set to 0 first.
  int evaluateToInt(int* status);

  // ---- paths and file names -----------------------------------------------
  // (statement/path_complete.cpp, statement/path_parts.cpp)
  //
  // File names as they stand in statements, in Windows style on every
  // platform: `\` separates, `x:` is a drive, `\\` opens a network path.
  // No file system is asked; the host supplies the directories through
  // QuerySetting and cleans up `..` through CanonicalizePath.
  //
  //   vstring f("data\\gdp.csv");
  //   f.GetExt();                 // ".csv"
  //   f.GetPath(nullptr);         // "data\\"
  //   f.stripPathAndExt(nullptr, 0);   // f is "gdp"
  //
  // `base` is a directory, or null for the host's default directory.
  // Completes the name: `.\x` from the running line's directory, `..\x` and
  // `<ADDINS>x` resolved, `\x` onto the base's drive or server, a plain name
  // onto the base; a name with ':' or a network path stays as it is.
  void addPathIfNone(vstring* base);
  vstring& addPathAndExt(const char* extension, vstring* base);
  vstring& addPathAndExt(vstring& extension, vstring* base);
  // Appends the extension (dot optional) unless the name already has it, in
  // any case; a different extension is kept: `a.txt` + csv is `a.txt.csv`.
  void insureExt(const vstring& extension);
  void insureExt(const char* extension);
  // The extension with its dot (at most 4 bytes behind it, or one of .macw
  // .sas7bdat .accdb .rdata .json), or an empty temporary.
  vstring& GetExt();
  // The directory part with its last backslash (or a drive `c:`), or empty.
  vstring& GetPath(vstring* base);
  // This string loses quotes, directory and extension; forwardToo != 0 lets
  // `/` end a directory too.
  vstring& stripPathAndExt(vstring* base, int forwardToo);
  // This string loses its extension (keeps directory and quotes) / its
  // directory (keeps extension and quotes).
  vstring& stripExt();
  vstring& stripPath();
  // Resolves leading `..\` steps against `base`; one step too many is
  // reported (415) and leaves the string as it was.
  vstring& replaceDotDot(vstring* base);
  // `db::object` into object and database (object unquoted); no `::`: all
  // object, database empty.
  void splitObDB(vstring& object, vstring& database);
  // At the last backslash: name behind it, directory in front (without it).
  void splitObSubdir(vstring& name, vstring& directory);

protected:
  // The text of the block, or null when the string holds no block.
  char* data;
};

TXC_API vstring& operator+(const char* a, const vstring& b);
TXC_API vstring& operator+(char c, const vstring& b);

static_assert(sizeof(vstring) == 2 * sizeof(void*), "vstring is one pointer beside its vtable");
