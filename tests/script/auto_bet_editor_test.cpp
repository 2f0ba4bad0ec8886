// The editor's operations on the game's tables and its picklists.
#include "script/auto_bet_editor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <tuple>

#include "core/game.h"
#include "core/headless_platform.h"
#include "cycle/startup.h"
#include "script/auto_bet_find.h"
#include "script/compile_script.h"
#include "script/picklists.h"
#include "script/script_printouts.h"

namespace {

class AutoBetEditor : public ::testing::Test {
 protected:
  AutoBetEditor() : game(MakeGame(platform)), g(*game), ss(g.scriptSource) {
    OpenAutoBetEditor(g);
  }
  HeadlessPlatform platform;
  std::unique_ptr<Game> game;
  Game& g;
  ScriptSource& ss;
};

TEST_F(AutoBetEditor, TypedTextReachesThePlayersSlotAndMarksItChanged) {
  g.roll.ScriptsOK = true;
  SetEditorText(g, {"bet 5 on field", "", "' done"}, false);
  EXPECT_EQ(ss.ScriptLines[1], (std::vector<std::string>{"", "bet 5 on field", "", "' done"}));
  EXPECT_EQ(ss.EdIndent.size(), ss.EdLines.size());
  EXPECT_FALSE(ss.ScriptDirty[1]);
  EXPECT_TRUE(g.roll.ScriptsOK);

  SetEditorText(g, {"bet 6 on field"}, true);
  EXPECT_EQ(ss.ScriptLines[1], (std::vector<std::string>{"", "bet 6 on field"}));
  EXPECT_TRUE(ss.ScriptDirty[1]);
  EXPECT_FALSE(g.roll.ScriptsOK);
  EXPECT_EQ(EditorText(g), (std::vector<std::string>{"bet 6 on field"}));

  // An emptied editor still holds one line.
  SetEditorText(g, {}, true);
  EXPECT_EQ(ss.EdLineCount, 1);
  EXPECT_EQ(EditorText(g), (std::vector<std::string>{""}));
}

TEST_F(AutoBetEditor, ChangingPlayerKeepsEachPlayersTextAndPlace) {
  SetEditorText(g, {"bet 5 on field", "bet 5 on big6"}, true);
  SetEditorSelection(g, {2, 4, 2, 5, 2, 5, 1, 0});
  ss.ScriptFile[1] = "/tmp/a && b.bet";
  ChangeEditorPlayer(g, 2);
  EXPECT_EQ(EditorText(g), (std::vector<std::string>{""}));
  SetEditorText(g, {"bet 10 on passline"}, true);

  ChangeEditorPlayer(g, 1);
  EXPECT_EQ(EditorText(g), (std::vector<std::string>{"bet 5 on field", "bet 5 on big6"}));
  EXPECT_EQ(ss.ScriptLines[2], (std::vector<std::string>{"", "bet 10 on passline"}));
  const EditorSelection s = EditorSelectionOf(g);
  EXPECT_TRUE(s.startLine == 2 && s.startColumn == 4 && s.endColumn == 5);
  EXPECT_EQ(ss.EditorCaption, "Auto-Bet (a && b.bet)");

  // A slot outside the players changes nothing.
  ChangeEditorPlayer(g, 0);
  ChangeEditorPlayer(g, 9);
  EXPECT_EQ(ss.EdPlayer, 1);
}

TEST_F(AutoBetEditor, TheSelectionIsCutAtItsEndsInEitherDirection) {
  SetEditorText(g, {"bet 5 on field", "bet 5 on big6", "bet 5 on big8"}, false);
  SetEditorSelection(g, {1, 4, 3, 5, 3, 5, 1, 0});
  const std::vector<std::string> forward{"5 on field", "bet 5 on big6", "bet 5"};
  EXPECT_EQ(SelectedEditorLines(g), forward);
  SetEditorSelection(g, {3, 5, 1, 4, 1, 4, 1, 0});
  EXPECT_EQ(SelectedEditorLines(g), forward);
  // Nothing selected, and columns beyond a line's end.
  SetEditorSelection(g, {2, 3, 2, 3, 2, 3, 1, 0});
  EXPECT_TRUE(SelectedEditorLines(g).empty());
  SetEditorSelection(g, {2, 9, 9, 99, 9, 99, 1, 0});
  EXPECT_EQ(SelectedEditorLines(g), (std::vector<std::string>{"big6", "bet 5 on big8"}));
}

TEST_F(AutoBetEditor, AStepSelectsItsStatementWithoutBlanksAndColons) {
  SetEditorText(g, {"bet 5 on field : bet 5 on big6", "   ", "  If point = 0 Then"}, false);
  // The marks before and after a statement, and the span selected: the
  // second statement of line 1; from the end of line 1 over a blank line to
  // the condition; a last end mark behind the last line runs to that line's
  // end; the first statement has no mark before it, and spans beyond the
  // text are held to it.
  const std::array<int, 8> cases[] = {{1, 14, 1, 30, 1, 17, 1, 30},
                                      {1, 30, 3, 19, 3, 2, 3, 19},
                                      {3, 2, 4, 0, 3, 2, 3, 19},
                                      {0, 0, 9, 99, 1, 0, 3, 19}};
  for (const auto& c : cases) {
    const EditorSelection s = StepSpan(g, c[0], c[1], c[2], c[3]);
    EXPECT_EQ(std::tie(s.startLine, s.startColumn, s.endLine, s.endColumn),
              std::tie(c[4], c[5], c[6], c[7]))
        << c[0] << ":" << c[1];
  }
}

TEST_F(AutoBetEditor, ThePrintoutNumbersTheLinesAndRulesWhereTheBandChanges) {
  SetEditorText(g, {"bet 5 on field", "If a Then", "EndIf"}, false);
  ss.EdBandMark = {0, 1, 2, 2};
  PrintDocument doc = AutoBetPrintout(g, "23-Nov-26, 9:15:00 PM", true, true);
  ASSERT_EQ(doc.lines.size(), 8u);
  EXPECT_EQ(doc.lines[0].cells[0].text, "Ravelton Auto-Bets");
  EXPECT_EQ(doc.lines[4].cells[0].text, "1");
  EXPECT_TRUE(doc.lines[4].cells[0].alignRight);
  EXPECT_EQ(doc.lines[5].cells[0].text, std::string(43, '_'));
  EXPECT_EQ(doc.lines[6].cells[1].text, "If a Then");
  doc = AutoBetPrintout(g, "", false, false);
  EXPECT_EQ(doc.lines.size(), 7u);
  EXPECT_EQ(doc.lines[4].cells.size(), 1u);
}

TEST_F(AutoBetEditor, FindGoesFromTheCaretAndWrapsOnceRoundTheScript) {
  SetEditorText(g, {"Bet 5 on field", "bet 5 on big6", "' no bets here"}, false);
  auto at = [](std::optional<ScriptMatch> m) {
    return m ? std::make_tuple(m->line, m->column, m->endColumn) : std::make_tuple(0, 0, 0);
  };
  EXPECT_EQ(at(FindInScript(g, "bet", false, true, 1, 0)), std::make_tuple(1, 0, 3));
  EXPECT_EQ(at(FindInScript(g, "bet", false, true, 1, 3)), std::make_tuple(2, 0, 3));
  EXPECT_EQ(at(FindInScript(g, "bet", false, true, 3, 9)), std::make_tuple(1, 0, 3));  // wraps
  EXPECT_EQ(at(FindInScript(g, "bet", false, false, 2, 0)), std::make_tuple(1, 0, 3));
  EXPECT_EQ(at(FindInScript(g, "BETS", false, false, 1, 0)), std::make_tuple(3, 5, 9));
  // Back at its start with the only match behind it: nothing more.
  SetEditorText(g, {"bet 5 on field"}, false);
  EXPECT_EQ(at(FindInScript(g, "field", false, true, 1, 9)), std::make_tuple(1, 9, 14));
  EXPECT_FALSE(FindInScript(g, "field", false, true, 1, 10));
  EXPECT_FALSE(FindInScript(g, "", false, true, 1, 0));

  SetEditorText(g, {"bet 5 on Field", "bet 5 on field"}, false);
  EXPECT_EQ(ReplaceAllInScript(g, "field", "big6", true), 1);
  EXPECT_EQ(EditorText(g), (std::vector<std::string>{"bet 5 on Field", "bet 5 on big6"}));
  EXPECT_EQ(ReplaceAllInScript(g, "5", "55", false), 2);  // the new text is not searched again
  EXPECT_EQ(ss.ScriptLines[1][2], "bet 55 on big6");
  // Without case, matches side by side, each keeping the text around it.
  SetEditorText(g, {"FieldfIELD and field."}, false);
  EXPECT_EQ(ReplaceAllInScript(g, "field", "Field X", false), 3);
  EXPECT_EQ(EditorText(g), (std::vector<std::string>{"Field XField X and Field X."}));
  EXPECT_EQ(ReplacementsMadeText(1), "1 replacement was made.");
  EXPECT_EQ(ReplacementsMadeText(0), "0 replacements were made.");
}

TEST_F(AutoBetEditor, AutoIndentNestsBlocksAndTheBandsFollowTheTopLevel) {
  SetEditorText(g, {"bet 5 on field :", "If point = 0 Then", "If point = 4 Then", "bet 5 on come :",
                    "EndIf", "Do", "ExitDo", "Loop", "EndIf", "bet 5 on big6 :"},
                false);
  ASSERT_FALSE(CompileScript(g, 1, ss.EdLines)) << g.msg.MsgText;
  ApplyCompiledIndents(g, true);
  EXPECT_EQ(EditorText(g),
            (std::vector<std::string>{"bet 5 on field :", "If point = 0 Then", "   If point = 4 Then",
                                      "      bet 5 on come :", "   EndIf", "   Do", "      ExitDo",
                                      "   Loop", "EndIf", "bet 5 on big6 :"}));
  EXPECT_EQ(ss.EdBandMark, (std::vector<std::int32_t>{0, 1, 2, 2, 2, 2, 2, 2, 2, 2, 1}));
  EXPECT_EQ(ss.ScriptLines[1][3], "   If point = 4 Then");
  EXPECT_TRUE(ss.ScriptDirty[1]);
}

TEST(StructureWords, AreCapitalizedOutsideQuotesAndComments) {
  std::string line = "if dice total = 7 then gosub pay else goto top endif";
  EXPECT_TRUE(CapitalizeStructureWords(line));
  EXPECT_EQ(line, "If dice total = 7 Then GoSub pay Else GoTo top EndIf");
  EXPECT_FALSE(CapitalizeStructureWords(line));

  line = "show message \"if then else\" ' and then do loop";
  EXPECT_FALSE(CapitalizeStructureWords(line));
  // Words that only begin like one stay as they are.
  line = "bet 5 on dontpass: do: loop: exitdo: xor ordinary";
  EXPECT_TRUE(CapitalizeStructureWords(line));
  EXPECT_EQ(line, "bet 5 on dontpass: Do: Loop: ExitDo: Xor ordinary");
}

TEST(Bands, FlipWhereATopLevelBlockStartsOrEnds) {
  const std::vector<std::string> lines = {
      "", "bet 5 on field", "If point = 0 Then", "   bet 5 on passline", "EndIf",
      "If point > 0 Then", "   bet 5 on come", "EndIf", "bet 5 on big6"};
  const std::vector<std::int32_t> indent = {0, 0, 1, 1, 1, 1, 1, 1, 0};
  EXPECT_EQ(BandMarks(lines, indent), (std::vector<std::int32_t>{0, 1, 2, 2, 2, 1, 1, 1, 2}));
  // A one-line If at level 1 that is not a block start does not flip.
  const std::vector<std::string> oneLine = {"", "If a Then", "If b Then bet 1 on field EndIf",
                                            "EndIf"};
  EXPECT_EQ(BandMarks(oneLine, {0, 1, 1, 1}), (std::vector<std::int32_t>{0, 1, 1, 1}));
}

TEST(Picklists, RowsThatCannotBePickedAndWhatAPickInserts) {
  EXPECT_EQ(PickText(Picklist::Logic, "EndIf"), "EndIf ");
  EXPECT_EQ(PickText(Picklist::Logic, "If/Then/Else/EndIf"), "If \nThen \nElse \nEndIf ");
  EXPECT_EQ(PickText(Picklist::Logic, kPicklistSeparator), std::nullopt);
  EXPECT_EQ(PickText(Picklist::Modifiers, "        Bets"), std::nullopt);
  EXPECT_EQ(PickText(Picklist::Modifiers, "current $ <def>"), "current $ ");
  // Only the qualifier list has headings.
  EXPECT_EQ(PickText(Picklist::Actions, " from roll # X"), " from roll # X ");
}

TEST(Picklists, NumberedFamiliesAreFollowedByTheirMembers) {
  const auto& rows = PicklistRows(Picklist::Variables);
  auto at = [&](const std::string& row) {
    return static_cast<std::size_t>(std::find(rows.begin(), rows.end(), row) - rows.begin());
  };
  const std::size_t lay = at("Lay");
  ASSERT_LT(lay + 7, rows.size());
  EXPECT_EQ(rows[lay + 7], "Lay()");
  EXPECT_EQ(rows[at("Hop") + 21], "Hop66");
  // The line bet "Come" further down stands alone.
  EXPECT_EQ(rows[at("PassLineOdds") + 1], "Come");
  EXPECT_EQ(std::count(rows.begin(), rows.end(), "Come4"), 1);
}

}  // namespace
