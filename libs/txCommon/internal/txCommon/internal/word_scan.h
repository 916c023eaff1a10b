// The one word step that every word-list operation follows.
//
// A word starts at the first byte above 0x20 (bytes of 0x80 and up are word
// bytes) and ends at a separator (0x01-0x20) met outside quotes and at
// parenthesis depth 0. Quote bytes (isQuoteByte) toggle one quoted flag;
// outside quotes `(` deepens and `)` shallows. A `)` that closes the outermost
// pair ends the word right behind it unless a continuation byte
// (* + - . / < = > ^) follows, so `(a b)c` is two words and `(a b)+(c d)` one.
// Unclosed quotes or parentheses run to the end of the text.
#pragma once

// Finds the word at or after `cursor` and moves `cursor` behind it. `start`
// and `length` receive the word. With `strip`, a quoted word of two bytes or
// more that also ends in a quote byte loses that one outer pair. `quoted`, when
// given, says whether the word's first byte is a quote byte. Returns nonzero
// when a word was found: a word that stripping leaves empty still counts.
// A null cursor reads as the empty text.
int nextWord(const char*& cursor, const char*& start, int& length, bool strip = false,
             bool* quoted = nullptr);

// True for the bytes that let a word run on past a closing parenthesis.
bool isWordContinuation(char c);
