// The phrase table of the script language and its application to one line.
//
// The table is ordered, and the order is the language's precedence: longer
// phrases stand before their parts, and the punctuation rows come first so
// that later keys may contain their codes (" stop autoroll L062 hyperdrive ").
// Applying it means, row by row in order, replacing every occurrence of the
// key in the working line by the code.
//
// Most rows cannot occur in a given line, so each row carries a signature:
// a 256-bit set of the characters and character pairs of its key. A row is
// searched only when its signature is inside the line's, which keeps a
// compile to a few hundred bit tests a line instead of ~900 string searches.
// The signature is a pure filter: the result is exactly that of trying every
// row in order.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct PhraseSignature {
  std::array<std::uint64_t, 4> bits{};
  bool Within(const PhraseSignature& whole) const {
    for (int i = 0; i < 4; ++i)
      if (bits[i] & ~whole.bits[i]) return false;
    return true;
  }
};

struct VocabularyRow {
  std::string Key;
  std::string Code;
  PhraseSignature sig;
  bool blankInShadow = true;  // false for the logic words and the colon
  bool keyHasCode = false;    // the key holds a code, so never occurs in source text
  bool codeHoldsKey = false;  // replacing must move on instead of restarting
  // A one-character key absent from its code: no replacement can make a new
  // occurrence, so one left-to-right pass replaces them all.
  bool onePass = false;
};

// Signature of a text: its characters and adjacent pairs.
PhraseSignature SignatureOf(std::string_view text);

// Builds a row from a key and code.
VocabularyRow MakeVocabularyRow(std::string key, std::string code);

// The static rows, in order (row 0 of the original table is not stored).
const std::vector<VocabularyRow>& StaticVocabulary();

// Applies the static rows and then `extraRows` to `work`, blanking the keys
// in `shadow` as it goes (see the tokenizer). Both are lower-case texts
// between two blanks.
void ApplyVocabulary(std::string& work, std::string& shadow,
                     const std::vector<VocabularyRow>& extraRows);

// Cuts runs of blanks to one blank.
void SqueezeBlanks(std::string& text);
