// Hot-Keys: the HotKeys.dta records byte by byte, short and hostile files,
// the clipboard rows, and a key fired on a seated table.
#include "script/hot_keys.h"

#include <gtest/gtest.h>

#include "core/atomic_file.h"
#include "core/catalogue.h"
#include "core/message_dialog.h"
#include "script/auto_bet_editor.h"
#include "tests/store/store_fixture.h"

namespace {

std::vector<HotKeyRow> TwoRows() {
  return {{'F', "/data/field.bet", "Field once", false}, {'P', "pass.bet", "", false}};
}

TEST(HotKeyFile, RecordsHoldTheirFieldsAtTheirOffsetsPaddedWithBlanks) {
  const std::string bytes = HotKeyFileBytes(TwoRows());
  ASSERT_EQ(bytes.size(), 3 * kHotKeyRecordSize);
  EXPECT_EQ(bytes[0], ' ');
  EXPECT_EQ(bytes.substr(1, 22), "Ravelton Hot-Key File ");
  EXPECT_EQ(bytes.substr(101, 2), "2 ");
  EXPECT_EQ(bytes[200], ' ');   // the last byte of the fields
  EXPECT_EQ(bytes[201], '\0');  // the rest of the record is not read
  EXPECT_EQ(bytes[256], 'F');
  EXPECT_EQ(bytes.substr(257, 16), "/data/field.bet ");
  EXPECT_EQ(bytes.substr(357, 11), "Field once ");

  std::vector<HotKeyRow> rows;
  std::string error;
  ASSERT_TRUE(ReadHotKeyFileBytes(bytes, rows, error)) << error;
  EXPECT_EQ(rows, TwoRows());
  // A last record that ends with its fields is whole.
  ASSERT_TRUE(ReadHotKeyFileBytes(bytes.substr(0, 2 * kHotKeyRecordSize + kHotKeyFieldsSize), rows,
                                  error));
  EXPECT_EQ(rows.size(), 2u);
  // An empty table is the header alone.
  ASSERT_TRUE(ReadHotKeyFileBytes(HotKeyFileBytes({}), rows, error));
  EXPECT_TRUE(rows.empty());
}

TEST(HotKeyFile, ShortCorruptAndHostileFilesAreRefused) {
  const std::string good = HotKeyFileBytes(TwoRows());
  std::vector<HotKeyRow> rows = TwoRows();
  std::string error;
  EXPECT_FALSE(ReadHotKeyFileBytes("", rows, error));
  EXPECT_TRUE(rows.empty());
  EXPECT_FALSE(ReadHotKeyFileBytes(good.substr(0, 2 * kHotKeyRecordSize + 200), rows, error));
  EXPECT_NE(error.find("shorter"), std::string::npos);

  std::string hostile = good;
  hostile.replace(101, 12, "999999999999");  // a count no file holds
  EXPECT_FALSE(ReadHotKeyFileBytes(hostile, rows, error));
  hostile.replace(101, 12, "-1          ");
  EXPECT_FALSE(ReadHotKeyFileBytes(hostile, rows, error));
  hostile.replace(101, 12, "2x          ");
  EXPECT_FALSE(ReadHotKeyFileBytes(hostile, rows, error));
  std::string badKey = good;
  badKey[2 * kHotKeyRecordSize] = 'p';
  EXPECT_FALSE(ReadHotKeyFileBytes(badKey, rows, error));
  EXPECT_NE(error.find("Hot-Key 2"), std::string::npos);
}

TEST(HotKeyClipboard, RowsGoOutAndComeBack) {
  const HotKeyRow row{'F', "/data/field.bet", "Field once", false};
  EXPECT_EQ(HotKeyClipboardText(row), "Ctrl F   /data/field.bet   Field once");
  const auto back = ParseHotKeyClipboard(HotKeyClipboardText(row) + "\r\nnot a row\r\n" +
                                         "Ctrl P   pass.bet   \nCtrl x   lower.bet   \n");
  ASSERT_EQ(back.size(), 2u);
  EXPECT_EQ(back[0], row);
  EXPECT_EQ(back[1].file, "pass.bet");
  EXPECT_EQ(HotKeyRowProblem({'A', std::string(101, 'a'), "", false}).substr(0, 24),
            "The Auto-Bet file's path");
  EXPECT_EQ(HotKeyRowProblem({'A', "  ", "", false}),
            "Please enter an Auto-Bet filename to define this Hot-Key.");
}

class HotKeys : public StoreFixture {
 protected:
  HotKeys() {
    SeatPlayer(*game, 2, "Ann", Currency::FromWhole(500));
    game->betting.CurPlayer = 2;
    game->scriptRun.RunStatementLimit = 10'000;
  }
};

TEST_F(HotKeys, TheFileIsWrittenAtomicallyAndReadBackAtStartUp) {
  game->scriptSource.HotKeyTable = TwoRows();
  ASSERT_TRUE(SaveHotKeys(*game));
  for (const auto& entry : std::filesystem::directory_iterator(dir.Path()))
    EXPECT_FALSE(IsAtomicTemporaryName(entry.path().filename().string()));
  game->scriptSource.HotKeyTable.clear();
  ASSERT_TRUE(LoadHotKeys(*game));
  EXPECT_EQ(game->scriptSource.HotKeyTable, TwoRows());

  WriteWholeFile(HotKeysPath(*game), "Ravelton");
  EXPECT_FALSE(LoadHotKeys(*game));
  EXPECT_TRUE(game->scriptSource.HotKeyTable.empty());
  EXPECT_NE(LastMessage().find(HotKeysPath(*game)), std::string::npos) << LastMessage();
  std::filesystem::remove(HotKeysPath(*game));
  EXPECT_TRUE(LoadHotKeys(*game));  // no file: no Hot-Keys, no message
}

TEST_F(HotKeys, AKeyRunsItsScriptOnceForTheCurrentPlayerAndTouchesNoPlayersScript) {
  WriteWholeFile(Path("field.bet"), "bet 5 on field\r\n");
  game->scriptSource.HotKeyTable = {{'F', Path("field.bet"), "", false}};
  SetEditorText(*game, {"bet 1 on big6"}, false);
  game->roll.ScriptsOK = true;

  EXPECT_FALSE(FireHotKey(*game, 'G'));  // no such key: the table's
  EXPECT_TRUE(FireHotKey(*game, 'F'));
  EXPECT_EQ(game->Bet(2, bet::kField), Currency::FromWhole(5));
  EXPECT_FALSE(game->roll.ScriptsOK);
  EXPECT_FALSE(game->scriptSource.HotKeyRunning);
  const ScriptSource& ss = game->scriptSource;
  EXPECT_EQ(ss.EdPlayer, 1);
  EXPECT_EQ(EditorText(*game), (std::vector<std::string>{"bet 1 on big6"}));
  for (int p = 1; p <= 8; ++p) {
    EXPECT_FALSE(ss.ScriptDirty[p]);
    EXPECT_TRUE(ss.ScriptFile[p].empty());
  }

  // While one runs, another key is not taken.
  game->scriptSource.HotKeyRunning = true;
  EXPECT_FALSE(FireHotKey(*game, 'F'));
}

TEST_F(HotKeys, AMissingFileOrAScriptWithAnErrorChangesNothingAtTheTable) {
  WriteWholeFile(Path("broken.bet"), "If dice total = 7\r\nbet 5 on field\r\n");
  game->scriptSource.HotKeyTable = {{'M', Path("missing.bet"), "", false},
                                    {'B', Path("broken.bet"), "", false}};
  EXPECT_TRUE(FireHotKey(*game, 'M'));
  EXPECT_EQ(platform.messages.back().title, "Hot-Key");
  EXPECT_EQ(platform.messages.back().helpId, 110);
  EXPECT_TRUE(FireHotKey(*game, 'B'));
  EXPECT_EQ(platform.messages.back().title, "Auto-Bet Script Error");
  EXPECT_EQ(game->Bet(2, bet::kField), Currency());
  EXPECT_FALSE(game->roll.ScriptsOK);
  EXPECT_FALSE(game->scriptSource.HotKeyRunning);
}

}  // namespace
