// Text helpers shared by every folder: ASCII case folding, trimming, and a
// dialog's message on one line. The game's names, script words and file
// names compare without regard to case in ASCII only, so nothing here
// depends on the locale.
#pragma once

#include <string>
#include <string_view>

// The lower-case form of an ASCII letter; any other byte unchanged.
constexpr char LowerChar(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}
// The text with its ASCII letters lower-cased.
std::string LowerCase(std::string_view text);
// The text without the given characters (blanks by default) at either end.
std::string_view Trim(std::string_view text, std::string_view chars = " ");
// Cuts the given characters (blanks by default) off the end of s, in place.
void TrimRight(std::string& s, std::string_view chars = " ");
// A message of the game on one line (a command line's output): its CR
// pieces, the dialog's line breaks, joined by single blanks (after a colon
// where a heading without a stop meets a capital), none at the end.
std::string MessageLine(std::string_view text);
