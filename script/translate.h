// The one-way translation of the older record-file vocabularies into the
// present script language.
//
// A record file is a header record followed by 256-byte records of text and
// kind. Each record's text is rewritten by a fixed, ordered table of
// replacements (ReplacementTable), five of which have a side effect, and the
// lines are then reworked by whole-script passes (TranslatePasses). What
// must stay true:
// - The table is applied row by row in its order; a later row sees what the
//   earlier rows made of the line, and never sees the text a row inserted
//   through the same row.
// - Nothing right of a line's first double quote is ever rewritten, and a
//   line keeps at most its first and last double quote.
// - Every input, however short or strange, yields lines; nothing indexes
//   out of bounds.
#pragma once

#include "core/text.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

enum class ReplaceEffect : std::uint8_t {
  kNone,
  kCloseList,  // "highest of " etc.: ")" before the first " on ", " to " or " from "
  kCloseRef,   // " ref #", " ref ": ")" at the first blank behind the inserted text
  kNamed,      // "is named", "is not named": the first checkstack becomes CheckStackName
};

struct Replacement {
  std::string_view key;  // lower case, matched case-insensitively
  std::string_view value;
  ReplaceEffect effect;
};

// The replacement rows in the order they are applied.
std::span<const Replacement> ReplacementTable();

// One record of an older script file: its text (up to the first NUL) and kind.
struct LegacyRecord {
  std::string text;
  std::int16_t kind = 0;
  bool startsWithNul = false;  // such a record is skipped as a whole
};

// Keeps at most the first and the last double quote: the ones between become
// apostrophes.
void QuoteStep(std::string& line);
// Applies one row of the table to a line (quote step, search, replace, effect).
void ApplyReplacement(std::string& line, const Replacement& row);
// Applies every row of the table in order.
void ApplyReplacementTable(std::string& line);
// Translates the script records (header excluded) into lines, without the passes.
std::vector<std::string> TranslateRecords(std::span<const LegacyRecord> records);
// Runs the whole-script passes over translated lines (index 0 is the first line).
void TranslatePasses(std::vector<std::string>& lines);
// TranslateRecords followed by TranslatePasses.
std::vector<std::string> TranslateLegacyScript(std::span<const LegacyRecord> records);

// Text helpers shared by the translation files.
// Position of `key` (lower case) in `s`, ignoring ASCII case, from `from`.
std::size_t FindNoCase(std::string_view s, std::string_view key, std::size_t from = 0);
