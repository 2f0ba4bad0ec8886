#include "dice/probability_file.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "dice/probability.h"

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kRecordBytes = 256;
constexpr std::size_t kHeaderBytes = 200;
constexpr std::size_t kRecords = 5;
constexpr int kEntries = 2 * 8 * 14;  // k 0..1, a 0..7, b 0..13
// Bytes a reader needs: record 1 and the 224 entries; the end of record 5 is ignored.
constexpr std::size_t kNeededBytes = kRecordBytes + kEntries * 4;
constexpr int kNoticeHelp = kHelpProbabilities;
constexpr int kSaveQuestionHelp = kHelpSaveFiles;
constexpr std::string_view kDefaultFileName = "default.prb";

using Table = decltype(ProbabilityState{}.ProbabilityTable);

// The entries in file order: k, then a, then b fastest.
template <class F>
void ForEachEntryInFileOrder(F&& visit) {
  for (int k = 0; k <= 1; ++k)
    for (int a = 0; a <= 7; ++a)
      for (int b = 0; b <= 13; ++b) visit(k, a, b);
}

std::int32_t ReadLittleEndian(const unsigned char* p) {
  const std::uint32_t u = static_cast<std::uint32_t>(p[0]) | static_cast<std::uint32_t>(p[1]) << 8 |
                          static_cast<std::uint32_t>(p[2]) << 16 |
                          static_cast<std::uint32_t>(p[3]) << 24;
  return static_cast<std::int32_t>(u);
}

void AppendLittleEndian(std::string& out, std::int32_t v) {
  const auto u = static_cast<std::uint32_t>(v);
  for (int shift = 0; shift < 32; shift += 8) out += static_cast<char>((u >> shift) & 0xFF);
}

std::string_view TrimBlanks(std::string_view s) {
  while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
  while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
  return s;
}

// The checks on a table read from a file: what operations rely on. Entries
// in use hold no negative value; flags between operations are 0 or locked;
// the kind of dice is one of the two.
bool HoldsTable(const Table& t) {
  const Long kind = t(0, 0, 0);
  if (kind != kPercentageDice && kind != kFreeFormDice) return false;
  for (int a = kTotalRow; a <= kLastCellRow; ++a) {
    for (int b = 1; b <= kSecondDieColumn; ++b) {
      const Long flag = t(0, a, b);
      if (flag != 0 && flag != kProbLocked) return false;
      if (ProbabilityEntryKind(a, b) != ProbEntryKind::None && t(1, a, b) < 0) return false;
    }
  }
  return true;
}

void TellNotAProbabilityFile(Game& game, const std::string& path) {
  ShowNotice(game,
             path +
                 "\ris either from an older version, has been corrupted, or is not a true "
                 "Ravelton Probability File.",
             "Unable to Open Probability File", kNoticeHelp, kMsgOk | kMsgPicStop);
}

}  // namespace

std::string ProbabilityFilePath(const Game& game, const std::string& name) {
  if (name.find('/') != std::string::npos) return name;
  return game.roll.DataFolder + name;
}

std::string ProbabilityFileBytes(const Game& game) {
  std::string out(kHeaderBytes, ' ');
  out.replace(0, kProbabilityFileHeader.size(), kProbabilityFileHeader);
  out.resize(kRecordBytes, '\0');
  const Table& t = game.probability.ProbabilityTable;
  ForEachEntryInFileOrder([&](int k, int a, int b) { AppendLittleEndian(out, t(k, a, b)); });
  out.resize(kRecords * kRecordBytes, '\0');
  return out;
}

ProbFileStatus ReadProbabilityFile(Game& game, const std::string& name, bool pickedByHand) {
  const std::string path = ProbabilityFilePath(game, name);
  std::error_code ec;
  if (path.empty() || !fs::exists(path, ec)) return ProbFileStatus::NotFound;
  if (fs::is_directory(path, ec)) return ProbFileStatus::Unreadable;
  std::ifstream in(path, std::ios::binary);
  if (!in) return ProbFileStatus::Unreadable;
  std::array<unsigned char, kNeededBytes> bytes{};
  in.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  if (in.bad()) return ProbFileStatus::Unreadable;
  const auto got = static_cast<std::size_t>(in.gcount());

  const std::string_view header(reinterpret_cast<const char*>(bytes.data()),
                                std::min(got, kHeaderBytes));
  Table table{};
  bool ok = got == kNeededBytes && TrimBlanks(header) == kProbabilityFileHeader;
  if (ok) {
    const unsigned char* p = bytes.data() + kRecordBytes;
    ForEachEntryInFileOrder([&](int k, int a, int b) {
      table(k, a, b) = ReadLittleEndian(p);
      p += 4;
    });
    ok = HoldsTable(table);
  }
  if (!ok) {
    if (pickedByHand) TellNotAProbabilityFile(game, path);
    return ProbFileStatus::NotProbabilityFile;
  }
  ProbabilityState& s = game.probability;
  s.ProbabilityTable = table;
  s.ProbFilePath = path;
  s.ProbDirty = false;
  return ProbFileStatus::Ok;
}

bool LoadProbabilityFile(Game& game, const std::string& name, bool pickedByHand) {
  return ReadProbabilityFile(game, name, pickedByHand) == ProbFileStatus::Ok;
}

bool SaveProbabilityFile(Game& game, const std::string& name) {
  const std::string path = ProbabilityFilePath(game, name);
  if (path.empty()) return false;
  const std::string temp = path + ".~prb";
  const std::string bytes = ProbabilityFileBytes(game);
  {
    std::ofstream out(temp, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.flush();
    if (!out) {
      out.close();
      std::remove(temp.c_str());
      return false;
    }
  }
  std::error_code ec;
  fs::rename(temp, path, ec);
  if (ec) {
    std::remove(temp.c_str());
    return false;
  }
  game.probability.ProbFilePath = path;
  game.probability.ProbDirty = false;
  return true;
}

bool ProbabilitySaveNeedsName(const Game& game) {
  const std::string& path = game.probability.ProbFilePath;
  return path.empty() || (path.size() >= kDefaultFileName.size() &&
                          path.compare(path.size() - kDefaultFileName.size(),
                                       kDefaultFileName.size(), kDefaultFileName) == 0);
}

ProbSaveChoice AskToSaveProbabilities(Game& game) {
  if (!game.probability.ProbDirty) return ProbSaveChoice::Go;
  const int answer = ShowNotice(
      game, "These numbers have not been saved.\r\rDo you want to save them now?",
      "Save Probabilities?", kSaveQuestionHelp, kMsgYes | kMsgNo | kMsgCancel | kMsgFocusYes);
  if (answer == kAnswerCancel) return ProbSaveChoice::Cancel;
  if (answer != kAnswerYes) return ProbSaveChoice::Go;
  if (ProbabilitySaveNeedsName(game)) return ProbSaveChoice::SaveAs;
  return SaveProbabilityFile(game, game.probability.ProbFilePath) ? ProbSaveChoice::Go
                                                                  : ProbSaveChoice::Cancel;
}
