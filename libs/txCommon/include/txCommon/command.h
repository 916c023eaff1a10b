// command: a vstring with a read cursor that cuts statement text into words.
//
// Every read starts at the cursor, takes one word, and moves the cursor past
// the word and the blanks behind it:
//
//   command c("GENR Y = f(a b) + 1");
//   c.word(1);        // "GENR"
//   c.word(1);        // "Y"
//   c.backup();       // back to in front of "Y"
//   c.num_words();    // 6; both cursors back at 0
//
// A blank is any byte 1..32; bytes of 0x80 and up are word bytes. Quotes and
// parentheses hold a word together; after a closing parenthesis at depth 0 the
// word goes on only when one of + * , - . / < = > ] ^ follows, so `f(x)+y` is
// one word and `f(x)y` two. Results are temporaries, as for every const string
// operation: copy what you keep. Bad quotes and parentheses are reported to the
// host (23: parenthesis, 102: quote, 2146: word longer than the scratch
// buffer) and the scan goes on.
#pragma once

#include <txCommon/frequency.h>
#include <txCommon/vstring.h>

class TXC_API command : public vstring {
public:
  // ---- construction and whole-text operations (cursors to 0) ---------------
  command();
  command(const vstring& text);
  command(vstring& text);
  command(command& other);  // copies the text, not the cursors
  command(const char* text);
  ~command() override;

  command& operator=(const command& other);
  command& operator=(const vstring& other);
  command& operator=(const char* text);
  command& putUpr(const char* text);
  vstring& cat(vstring& other);
  vstring& cat(char* text);
  vstring& cat(const vstring& other);
  vstring& cat(const char* text);
  vstring& cat(char c);

  // ---- the cursor ----------------------------------------------------------
  command& reset();
  // Returns to where the last word read began (in front of its blanks).
  void backup();
  int GetOffset();
  void SetOffset(int position);  // unchecked; reads treat a cursor beyond the text as its end
  int AtEnd();
  // The text from the cursor on, at most TempBufLen() bytes, leading blanks off.
  vstring& Remainder() const;
  // Cuts the text to n bytes (see vstring::trunc); the cursors stay.
  command& trunc(int n);

  // ---- word readers ----------------------------------------------------------
  // The next word with its quotes and parentheses; report != 0 sends 23/102
  // for an open parenthesis or quote. A word longer than the scratch buffer is
  // cut silently and the next read yields the rest.
  vstring& word(int report);
  // The next word up to `sep` (or any blank when sep is ' '); raw != 0 ignores
  // quotes and parentheses. A lone `@` ends a word and is left unread.
  vstring& word(char sep, int raw, int report);
  // As word(1), and square brackets hold the word together too.
  vstring& wordwithbracket();
  // word(1) with its outer quotes taken off (StripQuotesEx).
  vstring& forWord();
  // word(1); when that holds a comma, the word up to the next top-level comma.
  vstring& wordCommaSpace();
  // word(1) without what stands up to its first "::".
  vstring& wordStripDB();
  // The head of a statement such as `name(args) = ...`, read from the start.
  vstring& FirstWordToSeperator(char& sep, int& paren);
  // A word, or one operator byte of ( ) * + , - / < = > ^.
  vstring& WordToSeperator();

  // ---- counting and editing ---------------------------------------------------
  // Words read by word(1); both cursors are 0 before and after.
  int num_words();
  int wordcount();
  // Removes the words with the given 0-based numbers (ascending).
  void dropWord(int* indices, int count);

  // ---- equation tokens ---------------------------------------------------------
  // One token of an expression: a name or number, one operator byte, or a
  // "string". `y=2*x+1` is seven tokens; an exponent comes out as one token
  // with a capital E (`1.5 E + 3` gives `1.5E+3`); text from a `'` on is never
  // read. The empty string means there is none, or the token failed (14: over
  // 200 bytes, 102: open string; the cursor then stays).
  void eqword(vstring& target);
  vstring& eqword();
  // Arguments of the parenthesised list at the cursor: `(a, b)` 2, `()` 0.
  // The cursor stays; 102 / 23 for an open string / parenthesis.
  int eqCountArgs();
  // Replaces the text with its tokens from the cursor on, without blanks;
  // AND, NOT, OR (and IF before a blank) keep one blank on each side.
  void eqRemoveWhiteSpace();
  // The parenthesised group at the cursor with its blanks removed, except
  // inside quotes and in " AND " / " OR "; 14 when it isn't closed.
  vstring& get_between_parens();

  // ---- dates -------------------------------------------------------------------
  // The next word, joined by one blank with the word behind it when that is a
  // time of day: `1/15/90 10:30 x` gives `1/15/90 10:30`.
  vstring& word_date();
  vstring word_date(RegularFreq& freq);  // the same by value; `freq` is not read
  // One whole date as far as the date parser takes it (`1/15/90 10:30 EST`),
  // no coarser than `freq` asks when a record is given; a plain word(1) when
  // `plain` is not 0 or the text is no date.
  vstring& word_date_full(int plain, const RegularFreq* freq);
  // Dates read by word_date_full; both cursors are 0 before and after.
  int num_dates(int plain, const RegularFreq* freq);

  // ---- list forms and wildcard expansion ----
  // (scanner/list_forms.cpp, scanner/expand_wildcards.cpp)
  //
  //   command c("a \"b c\" f(x, y)");
  //   c.TranslateIntoListForm();    // {a, "b c", f(x, y)}
  //   c.TranslateFromListForm();    // a "bc" f(x y): every blank goes, commas split
  //   command("a b").ExpandListWithWildcards(pattern);  // x* gives "XA XB"
  //
  // Replaces the text by `{w1, w2, ...}` of its words (word(1)); cursors to 0.
  void TranslateIntoListForm();
  // Drops every byte 0x00-0x20 (quotes are not looked at), turns commas into
  // blanks and takes off an outer `{` `}` pair; cursors to 0.
  void TranslateFromListForm();
  // Each word rewritten by `pattern`, whose one `*` stands for the word (a
  // pattern without wildcards is the result itself), upper-cased, as a
  // temporary; the text stays. Empty for an empty text or an error pending;
  // a pattern with another wildcard than one `*` reports 828 and gives empty.
  // Not for two threads at once: the rewrites share one process-wide buffer.
  vstring& ExpandListWithWildcards(vstring& pattern);

protected:
  txlong offset = 0;      // next byte to read
  txlong prevOffset = 0;  // where the last word read began

  // Moves the cursor as word(1) does, with no result, no limit, no reports.
  void skip_word();

private:
  // The cursor as a position inside the text.
  unsigned cursor() const;
};
