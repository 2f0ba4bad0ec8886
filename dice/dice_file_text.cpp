#include "dice/dice_file_text.h"

#include <cctype>
#include <vector>

#include "core/file_io.h"
#include "core/money.h"
#include "dice/dice_file.h"

namespace {

constexpr std::string_view kPadding = "    ";

bool WordAt(std::string_view s, std::size_t i, std::string_view word) {
  return s.substr(i, word.size()) == word;
}

}  // namespace

std::string PrepareDiceOutputFormat(std::string_view format) {
  const auto first = format.find_first_not_of(' ');
  std::string s;
  if (first != std::string_view::npos)
    s = format.substr(first, format.find_last_not_of(' ') - first + 1);
  if (s.empty()) s = kDefaultDiceOutputFormat;
  for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  s += kPadding;
  return s;
}

bool HasDiceInformation(std::string_view format) {
  const std::string s = PrepareDiceOutputFormat(format);
  return s.find("die1") != std::string::npos || s.find("die2") != std::string::npos ||
         s.find("total") != std::string::npos;
}

bool HasRollNumber(std::string_view format) {
  return PrepareDiceOutputFormat(format).find("roll#") != std::string::npos;
}

void AppendDiceRollText(std::string& out, std::string_view prepared, std::int64_t number,
                        unsigned char roll) {
  const int die1 = DieOneOf(roll), die2 = DieTwoOf(roll);
  // The padding lets each word be read ahead; it is not written.
  const std::size_t end = prepared.size() - kPadding.size();
  for (std::size_t i = 0; i < end;) {
    if (WordAt(prepared, i, "roll#")) {
      AppendCount(out, number);
      i += 5;
    } else if (WordAt(prepared, i, "die1")) {
      out += static_cast<char>('0' + die1);
      i += 4;
    } else if (WordAt(prepared, i, "die2")) {
      out += static_cast<char>('0' + die2);
      i += 4;
    } else if (WordAt(prepared, i, "total")) {
      out += std::to_string(die1 + die2);
      i += 5;
    } else {
      out += prepared[i++];
    }
  }
}

bool WriteDiceRollsAsText(const std::string& path, std::int64_t first, std::int64_t last,
                          std::string_view format, std::int64_t firstNumber,
                          std::string_view lineEnd,
                          const std::function<bool(std::string_view)>& emit, std::string& error) {
  FileHandle file = OpenForReading(path);
  if (!file.IsOpen()) {
    error = "Cannot read " + path + ": " + SystemErrorText();
    return false;
  }
  const std::string prepared = PrepareDiceOutputFormat(format);
  std::vector<unsigned char> block(kDiceFileBlock);
  std::string text;
  std::int64_t number = firstNumber;
  for (std::int64_t at = first; at <= last;) {
    const auto want = static_cast<std::size_t>(
        std::min<std::int64_t>(last - at + 1, static_cast<std::int64_t>(block.size())));
    const std::int64_t got = ReadAt(file, at - 1, block.data(), want);
    if (got < 0) {
      error = "Cannot read " + path + ": " + SystemErrorText();
      return false;
    }
    if (got == 0) break;  // a short file: what is there is written
    for (std::int64_t i = 0; i < got; ++i) {
      AppendDiceRollText(text, prepared, number++, block[static_cast<std::size_t>(i)]);
      text += lineEnd;
    }
    if (!emit(text)) {
      error = "Cannot write the rolls of " + path + " as text.";
      return false;
    }
    text.clear();
    at += got;
  }
  return true;
}

std::int64_t ConvertTextToDiceRolls(const std::string& source, const std::string& target,
                                    std::string& error) {
  FileHandle in = OpenForReading(source);
  if (!in.IsOpen()) {
    error = "Cannot read " + source + ": " + SystemErrorText();
    return -1;
  }
  TempFileBeside out(target);
  if (!out.IsOpen()) {
    out.Commit(error);
    return -1;
  }
  std::vector<char> block(kDiceFileBlock);
  std::vector<unsigned char> rolls;
  rolls.reserve(kDiceFileBlock / 2);
  std::int64_t count = 0;
  int pending = 0;  // a first digit waiting for its partner
  for (std::int64_t offset = 0;;) {
    const std::int64_t got = ReadAt(in, offset, block.data(), block.size());
    if (got < 0) {
      error = "Cannot read " + source + ": " + SystemErrorText();
      return -1;
    }
    if (got == 0) break;
    offset += got;
    for (std::int64_t i = 0; i < got; ++i) {
      const char c = block[static_cast<std::size_t>(i)];
      if (c < '1' || c > '6') continue;
      if (pending == 0) {
        pending = c - '0';
      } else {
        rolls.push_back(DiceRollByte(pending, c - '0'));
        pending = 0;
      }
    }
    if (!WriteAll(out.File(), rolls.data(), rolls.size())) {
      error = "Cannot write " + target + ": " + SystemErrorText();
      return -1;
    }
    count += static_cast<std::int64_t>(rolls.size());
    rolls.clear();
  }
  if (!out.Commit(error)) return -1;
  return count;
}
