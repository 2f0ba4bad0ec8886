#include "script/tokenizer.h"

#include <cctype>
#include <charconv>
#include <cstring>
#include <optional>

#include "core/game.h"
#include "script/compile_common.h"
#include "script/vocabulary.h"

namespace {

// Room for any finite double in plain digits: 309 before the point and the
// shortest fraction that reads back as the same number.
constexpr std::size_t kPlainNumberChars = 1100;
std::string Padded(std::string_view text) {
  std::string out;
  out.reserve(text.size() + 2);
  out += ' ';
  out.append(text);
  out += ' ';
  return out;
}

bool EndsWith(std::string_view text, std::string_view tail) {
  return text.size() >= tail.size() && text.substr(text.size() - tail.size()) == tail;
}

bool AllBlank(std::string_view text) {
  return text.find_first_not_of(' ') == std::string_view::npos;
}

bool IsWordChar(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; }

// True when `text` is the word `word` or ends with a blank and that word.
// Looks at the tail only: it runs for every blank of a line.
bool EndsWithWord(std::string_view text, std::string_view word) {
  if (text.size() < word.size()) return false;
  const std::size_t start = text.size() - word.size();
  if (LowerCase(text.substr(start)) != word) return false;
  return start == 0 || !IsWordChar(text[start - 1]);
}

// True when `text` from `at` holds the word `word` (case-insensitive).
bool WordAt(std::string_view text, std::size_t at, std::string_view word) {
  if (at + word.size() > text.size()) return false;
  if (LowerCase(text.substr(at, word.size())) != word) return false;
  return at + word.size() == text.size() || !IsWordChar(text[at + word.size()]);
}

// True when `out` ends in a number's mantissa and its "e" ("1e", "2.5E"):
// a sign that follows is the exponent's ("1e+300"), not an operator.
bool EndsInExponentMark(const std::string& out) {
  if (out.empty() || (out.back() != 'e' && out.back() != 'E')) return false;
  std::size_t k = out.size() - 1;
  bool digits = false;
  for (; k > 0 && (std::isdigit(static_cast<unsigned char>(out[k - 1])) || out[k - 1] == '.'); --k)
    digits = digits || out[k - 1] != '.';
  return digits && (k == 0 || !IsWordChar(out[k - 1]));
}

// Sweep 1: blanks around operators, quotes, apostrophes and colons.
std::string SpreadLine(const std::string& s) {
  std::string out;
  out.reserve(s.size() * 2);
  bool inQuote = false, inComment = false;
  // `out` holds more than blanks (kept as a flag: lines may be very long).
  bool content = false;
  auto blankBefore = [&out, &content] {
    if (content && out.back() != ' ') out += ' ';
  };
  for (std::size_t i = 0; i < s.size(); ++i) {
    const char c = s[i];
    const char next = i + 1 < s.size() ? s[i + 1] : '\0';
    if (inComment) {
      out += c;
    } else if (inQuote) {
      out += c;
      if (c == '"') {
        inQuote = false;
        if (next != ' ') out += ' ';
      }
    } else if (c == '"') {
      blankBefore();
      out += c;
      inQuote = true;
    } else if (c == '\'') {
      blankBefore();
      out += c;
      inComment = true;
    } else if (c == ' ') {
      if (!content || out.back() != ' ') out += c;
      continue;
    } else if (c == ':') {
      const auto k = out.find_last_not_of(' ');
      if (k != std::string::npos && out[k] == ':') continue;
      blankBefore();
      out += c;
      if (next != ' ') out += ' ';
    } else if ((c == '+' || c == '-') && std::isdigit(static_cast<unsigned char>(next)) &&
               EndsInExponentMark(out)) {
      out += c;  // the numbers the tidy itself writes stay one word
    } else {
      if (std::strchr("()=^*/\\+-<>&", c) && !out.empty() && out.back() != ' ') out += ' ';
      out += c;
      if (std::strchr("$;,()=^*/\\&+-<>", c) && next != ' ') out += ' ';
    }
    content = true;
  }
  if (inQuote) out += '"';
  return out;
}

// Sweep 2: numbers in the format of a double ("007" -> "7", "1.50," -> "1.5,").
std::string FormatNumbers(std::string s) {
  const auto last = s.find_last_not_of(' ');
  s.resize(last == std::string::npos ? 0 : last + 1);
  s += ' ';
  std::string out;
  out.reserve(s.size());
  bool inQuote = false;
  std::size_t i = 0;
  while (i < s.size()) {
    const char c = s[i];
    if (inQuote || c == '"' || c == ' ') {
      if (c == '"') inQuote = !inQuote;
      out += c;
      ++i;
      continue;
    }
    if (c == '\'') {
      out.append(s, i, std::string::npos);
      break;
    }
    std::size_t j = i;
    while (j < s.size() && s[j] != ' ' && s[j] != '"' && s[j] != '\'') ++j;
    std::string_view word(s.data() + i, j - i);
    if (j < s.size() && s[j] == ' ') {
      const bool comma = word.size() > 1 && word.back() == ',';
      if (auto v = ParseNumberWord(comma ? word.substr(0, word.size() - 1) : word);
          v && word[0] != '-' && word[0] != '+') {
        out += FormatGeneral(*v);
        if (comma) out += ',';
        i = j;
        continue;
      }
    }
    out.append(word);
    i = j;
  }
  return out;
}

bool IsSignMinus(std::string_view o) {
  if (o == "-" || o == " -") return true;
  for (std::string_view t : {"= -", "  -", " (-", "( -", "^ -", "* -", "/ -", "\\ -"})
    if (EndsWith(o, t)) return true;
  return false;
}

// `leading`: the line's count of leading blanks.
bool KeepBlankBeforeParen(std::string_view o, std::size_t leading) {
  const std::string_view t = o.substr(0, o.size() - 1);
  if (t.size() <= leading) return true;
  if (std::strchr("&=:^*/\\+-<>", t.back())) return true;
  for (std::string_view w :
       {"do", "or", "if", "xor", "and", "wend", "else", "then", "when", "while", "elseif"})
    if (EndsWithWord(t, w)) return true;
  return false;
}

// Sweep 3: signs, joined comparison pairs, brackets and compound words.
std::string JoinLine(const std::string& s) {
  std::string o;
  o.reserve(s.size());
  // The leading blanks pass unchanged; o has content once it is longer.
  const std::size_t leading = std::min(s.size(), s.find_first_not_of(' '));
  bool inQuote = false;
  for (std::size_t i = 0; i < s.size(); ++i) {
    const char c = s[i];
    if (inQuote || c == '"') {
      if (c == '"') inQuote = !inQuote;
      o += c;
      continue;
    }
    if (c == '\'') {
      o.append(s, i, std::string::npos);
      break;
    }
    if (c == ' ') {
      if (!o.empty() && o.back() == '-' && IsSignMinus(o)) continue;
      if (!o.empty() && o.back() == '$' && i + 1 < s.size() &&
          std::isdigit(static_cast<unsigned char>(s[i + 1])))
        continue;
      if (!o.empty() && o.back() == '(') continue;
      if (EndsWithWord(o, "go") && WordAt(s, i + 1, "to")) continue;
      if (EndsWithWord(o, "end") && WordAt(s, i + 1, "if")) continue;
      o += c;
      continue;
    }
    if (c == '-' && EndsWith(o, "- ")) {
      o.resize(o.size() - 2);
      o += '+';
      continue;
    }
    if (c == '-' && EndsWith(o, "+ ")) {
      o.resize(o.size() - 2);
      o += '-';
      continue;
    }
    if (c == '+') {
      bool drop = false;
      for (std::string_view t : {"< ", "= ", "> ", "^ ", "* ", "/ ", "\\ ", "- ", "+ "})
        drop = drop || EndsWith(o, t);
      if (drop) {
        o.pop_back();
        continue;
      }
    }
    if ((c == '=' && (EndsWith(o, "< ") || EndsWith(o, "> "))) ||
        (c == '>' && (EndsWith(o, "= ") || EndsWith(o, "< "))) || (c == '<' && EndsWith(o, "= "))) {
      o.pop_back();
      o += c;
      continue;
    }
    if (c == '<' && EndsWith(o, "> ")) {
      o.resize(o.size() - 2);
      o += '<';
      continue;
    }
    if (c == '(' && !o.empty() && o.back() == ' ' && !KeepBlankBeforeParen(o, leading))
      o.pop_back();
    if ((c == ')' || c == ';' || c == ',') && !o.empty() && o.back() == ' ' && o.size() > leading)
      o.pop_back();
    o += c;
  }
  return o;
}

// Tabs outside quotes count as blanks, so that indenting with tabs works.
void BlankTabs(std::string& line) {
  bool inQuote = false;
  for (char& c : line) {
    if (c == '"')
      inQuote = !inQuote;
    else if (c == '\t' && !inQuote)
      c = ' ';
  }
}

// Position of the first apostrophe outside double quotes, or npos.
std::size_t CommentStart(std::string_view line) {
  bool inQuote = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '"')
      inQuote = !inQuote;
    else if (line[i] == '\'' && !inQuote)
      return i;
  }
  return std::string_view::npos;
}

// The shadow of a source line: lower-cased, comment cut, quoted text and the
// quotes blanked, between two blanks. It keeps the source's columns (+1).
std::string ShadowOf(const std::string& source) {
  std::string shadow = LowerCase(source.substr(0, std::min(source.size(), CommentStart(source))));
  bool inQuote = false;
  for (char& c : shadow) {
    if (c == '"') {
      inQuote = !inQuote;
      c = ' ';
    } else if (inQuote || c == '\t') {
      c = ' ';
    }
  }
  return Padded(shadow);
}

// Finds `word` as a whole word in the shadow from `from` on, blanks it, and
// returns its source column; -1 if absent.
int TakeWordFromShadow(std::string& shadow, std::string_view word, std::size_t from) {
  for (std::size_t pos = shadow.find(word, from); pos != std::string::npos;
       pos = shadow.find(word, pos + 1)) {
    const bool startOk = pos == 0 || !IsWordChar(shadow[pos - 1]);
    const bool endOk = pos + word.size() >= shadow.size() || !IsWordChar(shadow[pos + word.size()]);
    if (startOk && endOk) {
      shadow.replace(pos, word.size(), word.size(), ' ');
      return static_cast<int>(pos) - 1 < 0 ? 0 : static_cast<int>(pos) - 1;
    }
  }
  return -1;
}

std::string_view StructureWord(int n) {
  switch (n) {
    case 1:
      return "if";
    case 9:
      return "then";
    case 10:
      return "else";
    case 11:
      return "elseif";
    case 12:
      return "endif";
    case 13:
      return "return";
    case 14:
      return "goto";
    case 15:
      return "gosub";
    case 16:
      return "do";
    case 17:
      return "loop";
    case 18:
      return "exitdo";
    default:
      return {};
  }
}

// The same word spelled in two (the tidy step joins them in the working copy only).
std::string_view SplitStructureWord(int n) {
  if (n == 14) return "go to";
  if (n == 12) return "end if";
  if (n == 18) return "exit do";
  return {};
}

std::int32_t KindOfLetter(char c) {
  switch (c) {
    case 'F':
      return kFunction;
    case 'V':
      return kVariable;
    case 'P':
      return kPlayerRef;
    case 'H':
      return kFrame;
    case 'X':
      return kStatClass;
    case 'Y':
      return kStatField;
    case 'I':
      return kList;
    case 'A':
      return kAction;
    case 'S':
      return kString;
    default:
      return 0;
  }
}

std::string UnknownWordMessage(const std::string& word) {
  if (word == "playername")
    return "Unknown player\r\rPlease enter actual name of player or refer to player's position "
           "such as player1, player2, etc.";
  if (word == "session")
    return "Please specify:\r\rcurrent session, last session, or all sessions.";
  if (word == "hand") return "Please specify:\r\rcurrent hand, last hand, or all hands.";
  return "Unknown or misplaced element:\r\r" + word + "\r";
}

// Moves the quoted strings of a tidied line to the pool; false on a quote
// without partner.
bool PoolStrings(std::string& line, std::vector<PoolString>& pool) {
  if (line.find('"') == std::string::npos) {
    line = LowerCase(line);
    return true;
  }
  std::string out;
  std::size_t i = 0;
  while (i < line.size()) {
    const std::size_t q = line.find('"', i);
    if (q == std::string::npos) {
      out += LowerCase(std::string_view(line).substr(i));
      break;
    }
    out += LowerCase(std::string_view(line).substr(i, q - i));
    const std::size_t e = line.find('"', q + 1);
    if (e == std::string::npos) return false;
    if (e == q + 1) {
      out += " S0 ";
    } else {
      pool.push_back({line.substr(q + 1, e - q - 1), 0});
      char index[16];
      std::snprintf(index, sizeof index, " S%03zu ", pool.size() - 1);
      out += index;
    }
    i = e + 1;
  }
  line = std::move(out);
  return true;
}

// Replaces each occurrence of `word` (" the ") by one blank.
void CutWords(std::string& work, std::string_view word) {
  for (std::size_t pos = work.find(word); pos != std::string::npos; pos = work.find(word, pos))
    work.erase(pos + 1, word.size() - 1);
}

// Fails the tokenizer on line `line`: the whole line is the span.
CompileError FailLine(Game& game, int line, int col, int endCol, std::string text) {
  SetCompileMessage(game, text);
  ScriptCode& code = game.scriptCode;
  code.errLine = code.errEndLine = line;
  code.errCol = col;
  code.errEndCol = endCol;
  return CompileError{line, col, line, endCol, std::move(text)};
}

void PushMark(std::vector<ScriptElement>& s, int line, int col) {
  s.push_back({kMark + line, static_cast<double>(col < 0 ? 0 : col)});
}

// The format of a double writes a number of 15 digits or more, or a small
// fraction, with an exponent ("1e+20"), whose sign the vocabulary would take
// for an operator. The compile's copy of the line spells such numbers out in
// plain digits, so that they read as the numbers they are; the line the
// editor shows keeps its exponents.
void SpellOutExponents(std::string& work) {
  std::string out;
  out.reserve(work.size());
  std::size_t i = 0;
  while (i < work.size()) {
    const std::size_t end = std::min(work.find(' ', i), work.size());
    const std::string_view word(work.data() + i, end - i);
    const auto value =
        word.find_first_of("eE") == std::string_view::npos ? std::nullopt : ParseNumberWord(word);
    if (value) {
      char digits[kPlainNumberChars];
      const auto written =
          std::to_chars(digits, digits + sizeof digits, *value, std::chars_format::fixed);
      out.append(digits, written.ptr);
    } else {
      out.append(word);
    }
    if (end < work.size()) out += ' ';
    i = end + 1;
  }
  work = std::move(out);
}

}  // namespace

void TidyScriptLine(std::string& line) { line = JoinLine(FormatNumbers(SpreadLine(line))); }

bool IsReservedWord(std::string_view name) {
  const std::string padded = Padded(LowerCase(name));
  const PhraseSignature sig = SignatureOf(padded);
  for (const VocabularyRow& row : StaticVocabulary())
    if (!row.Key.empty() && row.sig.Within(sig) && padded.find(row.Key) != std::string::npos)
      return true;
  return false;
}

std::string ReservedWordMessage(std::string_view name) {
  return "Unfortunately, \"" + std::string(name) +
         "\" contains a word, phrase, or symbol used in auto-betting and therefore can't be used "
         "as a player's name.\r\rPlease enter a different name.\r\r";
}

bool RefuseReservedName(Game& game, std::string& name) {
  if (!IsReservedWord(name)) return false;
  SetCompileMessage(game, ReservedWordMessage(name));
  name = std::string(kReservedNameMarker);
  return true;
}

std::optional<CompileError> TokenizeScript(Game& game, int p, const std::vector<std::string>& lines) {
  ScriptCode& code = game.scriptCode;
  code.errLine = code.errCol = code.errEndLine = code.errEndCol = 0;

  std::vector<VocabularyRow> playerRows;
  for (int slot = 1; slot <= 8; ++slot)
    if (!game.PlayerName[slot].empty())
      playerRows.push_back(MakeVocabularyRow(Padded(LowerCase(game.PlayerName[slot])),
                                             " P" + std::to_string(slot) + " "));

  auto& s = code.CompiledScript;
  auto& pool = code.StringPool;
  s.assign(1, ScriptElement{});
  if (pool.empty()) pool.resize(1);
  s.push_back({kHead, static_cast<double>(p)});
  s.push_back({kMark, 0});

  const int lineCount = lines.empty() ? 0 : static_cast<int>(lines.size()) - 1;
  for (int curLine = 1; curLine <= lineCount; ++curLine) {
    std::string work = lines[curLine];
    BlankTabs(work);
    TidyScriptLine(work);
    work.resize(std::min(work.size(), CommentStart(work)));
    if (AllBlank(work)) continue;
    if (!PoolStrings(work, pool)) {
      return FailLine(game, curLine, 0, static_cast<int>(lines[curLine].size()),
                      "Missing quotation mark.");
    }
    std::string shadow = ShadowOf(lines[curLine]);
    work = Padded(work);
    SqueezeBlanks(work);
    SpellOutExponents(work);
    ApplyVocabulary(work, shadow, playerRows);
    CutWords(work, " the ");
    CutWords(work, " a ");
    std::erase(work, '$');
    std::erase(work, '#');

    if (IsMark(s.back()) && !AllBlank(work)) s.back() = {kMark + curLine, 0};
    std::size_t shadowFrom = 0;
    std::size_t i = 0;
    while (i < work.size()) {
      if (work[i] == ' ') {
        ++i;
        continue;
      }
      std::size_t j = work.find(' ', i);
      if (j == std::string::npos) j = work.size();
      const std::string word = work.substr(i, j - i);
      i = j;
      if (auto v = ParseNumberWord(word)) {
        s.push_back({kNumber, *v});
        continue;
      }
      const char lead = word[0];
      if (const std::int32_t kind = KindOfLetter(lead)) {
        std::string_view rest = std::string_view(word).substr(1);
        if (lead == 'F' || lead == 'V') rest = rest.substr(0, rest.find('.'));
        if (auto v = ParseNumberWord(rest)) {
          s.push_back({kind, *v});
          continue;
        }
      } else if (lead == 'L') {
        if (auto v = ParseNumberWord(std::string_view(word).substr(1))) {
          const int n = Code(*v);
          if (n == 1 || (n >= 9 && n <= 18)) {
            // Structure words and colons are taken in the order of the line,
            // so the search starts behind the last one and falls back to 0.
            std::string_view source = StructureWord(n);
            int c = TakeWordFromShadow(shadow, source, shadowFrom);
            if (c < 0) c = TakeWordFromShadow(shadow, source, 0);
            if (c < 0 && !SplitStructureWord(n).empty()) {
              source = SplitStructureWord(n);
              c = TakeWordFromShadow(shadow, source, 0);
            }
            if (c >= 0) shadowFrom = static_cast<std::size_t>(c) + 1 + source.size();
            if (c < 0) c = IsMark(s.back()) ? Code(s.back().Value) : 0;
            if (!IsMark(s.back())) PushMark(s, curLine, c);
            s.push_back({n, 0});
            if (n != kGoTo && n != kGoSub)
              PushMark(s, curLine, c + static_cast<int>(source.size()));
          } else if (n == 100) {
            auto colon = shadow.find(':', shadowFrom);
            if (colon == std::string::npos) colon = shadow.find(':');
            int c = 0;
            if (colon != std::string::npos) {
              shadowFrom = colon + 1;
              shadow[colon] = ' ';
              c = colon > 0 ? static_cast<int>(colon) - 1 : 0;
            }
            PushMark(s, curLine, c);
          } else {
            s.push_back({n, 0});
          }
          continue;
        }
      }
      const std::string lowerSource = LowerCase(lines[curLine]);
      const auto at = lowerSource.find(word);
      const int col = at == std::string::npos ? 0 : static_cast<int>(at);
      const int end = at == std::string::npos ? static_cast<int>(lines[curLine].size())
                                              : col + static_cast<int>(word.size());
      return FailLine(game, curLine, col, end, UnknownWordMessage(word));
    }
  }
  if (IsMark(s.back()))
    s.back() = {kMark + lineCount + 1, 0};
  else
    PushMark(s, lineCount + 1, 0);
  return std::nullopt;
}
