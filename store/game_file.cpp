#include "store/game_file.h"

#include <sys/stat.h>

#include <algorithm>
#include <bit>
#include <memory>

#include "config/payoffs.h"
#include "config/sound.h"
#include "core/data_folder.h"
#include "core/file_io.h"
#include "core/game.h"
#include "core/graph_rows.h"
#include "core/message_dialog.h"
#include "core/payoff_math.h"
#include "core/platform.h"
#include "core/seats.h"
#include "core/text.h"
#include "dice/probability_file.h"
#include "engine/resolve.h"
#include "logs/events_log.h"
#include "script/files.h"
#include "stats/roll_categories.h"
#include "stats/sessions_log.h"
#include "store/file_stamp.h"
#include "store/game_file_check.h"
#include "store/game_file_records.h"
#include "store/game_file_refs.h"

namespace {

using namespace game_file;

constexpr const char* kOpenTitle = "Unable to Open Ravelton Game File";
// The longest file worth reading: eight players and the most check images.
const std::size_t kLongestFile = GameFileLength(8, kMaxCheckImages);

void SetTitle(Game& g, const std::string& path) {
  if (IsDefaultGameFile(path)) {
    g.gamefile.WindowTitle = "Ravelton";
    g.gamefile.GameFilePath.clear();
  } else {
    g.gamefile.WindowTitle = "Ravelton (" + std::string(FileNameOf(path)) + ")";
    g.gamefile.GameFilePath = path;
  }
}

// A reference with its stamp, both blank when the file is not there.
PathField Reference(const std::string& path) {
  const std::string stamp = FileStamp(path);
  return stamp.empty() ? PathField{} : PathField{path, stamp};
}

Long NamedSeats(const Game& g) {
  Long n = 0;
  for (int p = 1; p <= 8; ++p) n += !g.PlayerName[static_cast<std::size_t>(p)].empty();
  return n;
}

// Every table of seats 1..8 as a new game has it, through the seat visitor,
// so that no seat keeps anything of the game in play.
void FreshSeats(Game& g) {
  StraightenGraphRows(g);  // the rows are read with the rings' start at 0
  const auto fresh = std::make_unique<const Game>();
  ForEachSeatTable(
      [](const char*, auto axis, SeatReset, auto& table, const auto& freshTable) {
        for (int p = 1; p <= 8; ++p)
          for (int frame = 0; frame < SeatFrames(axis); ++frame) {
            auto from = SeatRow(freshTable, p, frame);
            std::copy(from.begin(), from.end(), SeatRow(table, p, frame).begin());
          }
      },
      g, *fresh);
}

void ShowOpenFailure(Game& g, const std::string& path, bool notFound) {
  if (notFound)
    ShowNotice(g, path + "\r\rFile not found.\r\rCheck path, filename, or device.",
               "Game File Not Found", 0, kMsgOk);
  else
    ShowNotice(g,
               "An error occurred while attempting to open:\r\r" + path +
                   "\r\rIt may be corrupted or not a true Ravelton game file. \r\rCheck path, "
                   "filename, or device.",
               kOpenTitle, 0, kMsgOk);
}

// The file's bytes, at most one past the longest game file; false when it
// cannot be read (not found is told apart).
bool ReadFileBytes(const std::string& path, std::string& bytes, bool& notFound) {
  struct stat st {};
  notFound = ::stat(path.c_str(), &st) != 0;
  return !notFound && ReadFileStart(path, kLongestFile + 1, bytes) == WholeFileRead::Read;
}

// Record 1: the header's message when it is not this program's file, or "".
std::string HeaderProblem(std::string_view bytes) {
  RecordReader io(bytes);
  std::string header;
  HeaderRecord(io, header);
  if (header.find("Ravelton") == std::string::npos) return "This is not a Ravelton game file.";
  if (header.find(kGameFileHeader) == std::string::npos)
    return "This file appears to be from an incompatible version or is not a true Ravelton game "
           "file.";
  return {};
}

// Whether the counts of record 5 are in range and the file is long enough
// for them, seen before anything is built from the file.
bool LengthFitsCounts(std::string_view bytes) {
  constexpr std::size_t kPosition = 4 * kRecordBytes;
  constexpr std::size_t kCountsEnd = kPosition + 80;
  if (bytes.size() < kCountsEnd) return false;
  const auto* at = reinterpret_cast<const unsigned char*>(bytes.data()) + kPosition;
  const auto players = static_cast<std::int32_t>(GetLE(at, 4));
  const auto images = static_cast<std::int32_t>(GetLE(at + 76, 4));
  return players >= 0 && players <= 8 && images >= 0 && images <= kMaxCheckImages &&
         bytes.size() >= GameFileLength(players, images);
}

struct ReadResult {
  bool ok = false;
  GameFilePaths paths;
  std::array<BlockPaths, 9> blockPaths{};
  GameFileState windows;  // records 2 and 3 as read
  TableState views;       // record 4 as read
};

// Reads every record into g (already a copy of the game in play with fresh
// seats); false when the file is short or a count, slot or text is bad.
ReadResult ReadRecords(std::string_view bytes, Game& g) {
  ReadResult result;
  RecordReader io(bytes);
  std::string header;
  HeaderRecord(io, header);
  result.windows = g.gamefile;
  result.views = g.table;
  WindowRecords(io, result.windows);
  if (!WindowPlacesSound(result.windows)) io.Fail();
  SavedViewsRecord(io, result.views);
  Long checkImages = 0;
  PositionRecord(io, g, checkImages);
  if (!io.Ok() || g.PlayerCount < 0 || g.PlayerCount > 8 || checkImages < 0 ||
      checkImages > kMaxCheckImages)
    return result;
  if (bytes.size() < GameFileLength(g.PlayerCount, checkImages)) return result;
  PathRecords(io, result.paths);
  SettingsRecords(io, g);
  PayoffAndColourRecords(io, g);
  TallyRecords(io, g);
  ViewRecords(io, g);
  if (io.Record() != kFixedRecords || !io.Ok()) return result;

  for (auto& name : g.PlayerName) name.clear();
  g.PlayerName[0] = "House";
  for (Long n = 0; n < g.PlayerCount; ++n) {
    Long slot = 0;
    BlockPaths paths;
    PlayerBlock(io, g, slot, paths);
    if (!io.Ok()) return result;
    // A block without a name, or a slot given twice, is not a game.
    const auto named = std::count_if(g.PlayerName.begin() + 1, g.PlayerName.end(),
                                     [](const std::string& x) { return !x.empty(); });
    if (g.PlayerName[static_cast<std::size_t>(slot)].empty() || named != n + 1) return result;
    result.blockPaths[static_cast<std::size_t>(slot)] = paths;
  }
  g.gamefile.CheckImages.assign(static_cast<std::size_t>(checkImages), CheckImage{});
  CheckImageRecords(io, g.gamefile.CheckImages);
  result.ok = io.Ok();
  return result;
}

// What follows from the values read: the totals and counts the file does
// not hold, figured again.
void DeriveAfterReading(Game& g) {
  g.DiceTotal = g.Die1 + g.Die2;
  g.PointsMade = std::popcount(static_cast<unsigned>(g.PointsMadeMask));
  g.diceFile.DiceSelEnd = g.diceFile.DiceFilePos;
  g.RollsSince.Set(kEventRolls, g.RollTally(kTableSession, kEventRolls));
  for (int p = 1; p <= 8; ++p)
    for (int b = 1; b <= kLastRealBet; ++b) g.BetWorkingAfterRoll(p, b) = g.BetWorking(p, b);
  // Rows of the hand frames may hold figures anywhere after a load.
  g.StatRowsThisHand = AllStatRows();
  g.StatRowsLastHand = AllStatRows();
  FigureProperUnits(g);
  SetLineOddsPayoffs(g);
  g.PlayerCount = NamedSeats(g);
  // A file that never chose a frequencies category opens on the 7.
  if (CategoryText(g.views.RollFreqCategory).empty()) g.views.RollFreqCategory = ViewsState{}.RollFreqCategory;
}

}  // namespace

std::size_t GameFileLength(int players, int checkImages) {
  const int imageRecords = (checkImages + kCheckImagesPerRecord - 1) / kCheckImagesPerRecord;
  return static_cast<std::size_t>(kFixedRecords + kBlockRecords * players + imageRecords) *
         kRecordBytes;
}

bool IsDefaultGameFile(std::string_view path) {
  return LowerCase(FileNameOf(path)) == "default.rvg";
}

std::string GameFileBytes(Game& g) {
  // A total that passed its limit since the roll last held it is held now,
  // so that the file opens again.
  HoldStatTotals(g);
  RecordWriter io;
  std::string header = kGameFileHeader;
  HeaderRecord(io, header);
  WindowRecords(io, g.gamefile);
  SavedViewsRecord(io, g.table);
  const Long savedCount = g.PlayerCount;
  g.PlayerCount = NamedSeats(g);
  Long checkImages = static_cast<Long>(g.gamefile.CheckImages.size());
  PositionRecord(io, g, checkImages);
  g.PlayerCount = savedCount;
  GameFilePaths paths;
  const std::string& dice = g.diceFile.DiceFilePath;
  paths.dice = {dice, dice.empty() ? std::string() : FileStamp(dice)};
  // Unsaved probabilities are referenced only once saved (see SaveGame).
  if (!g.probability.ProbDirty) paths.probability = Reference(g.probability.ProbFilePath);
  // A log in its default place is stored without a path, so the game opens
  // quietly in another data folder (shared, or moved to another machine)
  // onto the logs of whoever opens it; in the same folder that is the same file.
  if (g.roll.EventsLogPath != DefaultEventsLogPath(g))
    paths.eventsLog = Reference(g.roll.EventsLogPath);
  PathRecords(io, paths);
  SettingsRecords(io, g);
  PayoffAndColourRecords(io, g);
  TallyRecords(io, g);
  ViewRecords(io, g);
  for (int p = 1; p <= 8; ++p) {
    const auto s = static_cast<std::size_t>(p);
    if (g.PlayerName[s].empty()) continue;
    BlockPaths block;
    const std::string script = UndoubleAmpersands(g.scriptSource.ScriptFile[s]);
    block.script = {script, script.empty() ? std::string() : FileStamp(script)};
    block.output.path = g.scriptSource.ScriptOutputFile[s];
    if (g.roll.SessionLogPath[s] != DefaultSessionLogPath(g, p))
      block.sessionLog.path = g.roll.SessionLogPath[s];
    Long slot = p;
    PlayerBlock(io, g, slot, block);
  }
  CheckImageRecords(io, g.gamefile.CheckImages);
  return io.Bytes();
}

bool SaveGame(Game& g, const std::string& path, const WriteProbe& probe) {
  // The program's own game keeps unsaved probabilities in default.prb.
  if (g.probability.ProbDirty && IsDefaultGameFile(path))
    SaveProbabilityFile(g, g.roll.DataFolder + "default.prb");
  const std::string bytes = GameFileBytes(g);
  std::string error;
  if (!WriteFileAtomically(path, bytes, error, probe)) {
    ShowNotice(g, "The game could not be saved to:\r\r" + path + "\r\r" + error,
               "Unable to Save Ravelton Game File", 0, kMsgOk);
    return false;
  }
  SetTitle(g, path);
  g.roll.SessionDirty = false;
  return true;
}

bool OpenGame(Game& live, const std::string& path) {
  std::string bytes;
  bool notFound = false;
  if (!ReadFileBytes(path, bytes, notFound)) {
    ShowOpenFailure(live, path, notFound);
    return false;
  }
  return OpenGameBytes(live, path, bytes);
}

bool OpenGameBytes(Game& live, const std::string& path, std::string_view bytes) {
  if (const std::string problem = HeaderProblem(bytes); !problem.empty()) {
    ShowNotice(live, path + "\r\r" + problem, kOpenTitle, 0, kMsgOk);
    return false;
  }
  if (!LengthFitsCounts(bytes)) {
    ShowOpenFailure(live, path, false);
    return false;
  }
  auto next = std::make_unique<Game>(live);
  FreshSeats(*next);
  ReadResult read = ReadRecords(bytes, *next);
  if (!read.ok || !CheckLoadedGame(*next)) {
    ShowOpenFailure(live, path, false);
    return false;
  }
  // Seats without a player take the table's working defaults, as a new seat does.
  for (int p = 1; p <= 8; ++p) {
    if (!next->PlayerName[static_cast<std::size_t>(p)].empty()) continue;
    for (int b = 0; b <= 100; ++b) {
      next->BetWorkingDefault(p, b) = next->BetWorkingDefault(0, b);
      next->BetWorking(p, b) = next->Point == 0 ? next->BetWorkingDefault(p, b) : 1;
    }
  }
  if (!IsDefaultGameFile(path)) {
    GameFileState& f = next->gamefile;
    f.LayoutA = read.windows.LayoutA;
    f.LayoutB = read.windows.LayoutB;
    next->table.SavedView = read.views.SavedView;
  }
  FollowReferences(*next, read.paths, read.blockPaths);
  DeriveAfterReading(*next);
  LoadStickCallSet(*next);
  next->roll.ScriptsOK = false;
  SetTitle(*next, path);
  next->roll.SessionDirty = false;
  live = std::move(*next);
  live.platform->RequestRedraw(Redraw::Table);
  live.platform->RequestRedraw(Redraw::OpenViews);
  return true;
}
