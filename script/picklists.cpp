#include "script/picklists.h"

#include <array>
#include <initializer_list>

namespace {

using Rows = std::vector<std::string>;
const std::string kSep(kPicklistSeparator);

constexpr std::string_view kDefaultMark = " <def>";
constexpr std::string_view kHeadingIndent = "   ";

Rows LogicRows() {
  return {"If",  "Then", "Else", "ElseIf", "EndIf", "If/Then/EndIf", "If/Then/Else/EndIf",
          kSep,  "And",  "Or",   "Xor",    "Not",   "Do",            "Loop",
          "ExitDo", "GoTo", "GoSub", "Return"};
}

// The numbered members of a family row ("Lay" -> "Lay4" ... "Lay10").
void AddFamily(Rows& rows, const std::string& family) {
  static constexpr std::array<int, 6> kNumbers = {4, 5, 6, 8, 9, 10};
  static constexpr std::array<int, 4> kHardNumbers = {4, 6, 8, 10};
  if (family == "Hop") {
    for (int a = 1; a <= 6; ++a)
      for (int b = a; b <= 6; ++b) rows.push_back("Hop" + std::to_string(a * 10 + b));
    return;
  }
  if (family == "Hard") {
    for (int n : kHardNumbers) rows.push_back(family + std::to_string(n));
    return;
  }
  for (int n : kNumbers) rows.push_back(family + std::to_string(n));
}

Rows VariableRows() {
  Rows rows = {"Initializing script", "Beginning new session", "Beginning new hand", "New shooter",
               kSep};
  for (const char* r :
       {"Dice total", "Dice combo", "Die1", "Die2", "Die()", "Next roll is a comeout roll",
        "Next roll is NOT a comeout roll", "Last roll was a comeout roll",
        "Last roll was NOT a comeout roll", "Rolls per hour", "# of rolls", "# of rolls since",
        "% of rolls", "Point", "Last Point", "A point is established",
        "A point is NOT established", "A point is established on X",
        "A point is NOT established on X", "A point is decided", "A point is decided FOR X",
        "A point is decided AGAINST X", "Shooter passes", "Shooter misses", "Seven out",
        "# of points", "% of points", "# of comeout rolls", "# of passes", "# of misses",
        "% of comeout rolls", "% of passes", "% of misses", "Bankroll", "High bankroll",
        "Low bankroll", "Average bankroll()", "Available bankroll", "Rnd", "Date$", "Time$",
        "Timer", "Simulated hours", "Answer", "Comps", "Comp rate", "RNG", "Seed", "Minimum bet",
        "Maximum bet", "AutoHandle Winning Bets", "AutoHandle Losing Bets", "AutoTake Full Odds",
        "AutoLay Full Odds", "AutoDown Place Bets", "AutoPass the Dice"})
    rows.emplace_back(r);
  rows.push_back(kSep);
  const std::initializer_list<const char*> bets = {
      "Dice roll file next roll #", "Dice roll file length", "Dice roll file end reached",
      "CheckStackX", "CheckStack()", "CSX", "CS()", "CheckStackNameX", "CheckStackName()",
      "CSNX", "CSN()", "Bets", "Lay bets", "Inside Lay bets", "Outside Lay bets", "Lay", "Lay()",
      "DontCome bets", "Inside DontCome bets", "Outside DontCome bets", "DontCome", "DontCome()",
      "DontComeOdds bets", "Inside DontComeOdds bets", "Outside DontComeOdds bets",
      "DontComeOdds", "DontComeOdds()", "Come bets", "Inside Come bets", "Outside Come bets",
      "Come", "Come()", "ComeOdds bets", "Inside ComeOdds bets", "Outside ComeOdds bets",
      "ComeOdds", "ComeOdds()", "Place bets", "Inside Place bets", "Outside Place bets", "Place",
      "Place()", "Buy bets", "Inside Buy bets", "Outside Buy bets", "Buy", "Buy()", "PassLine",
      "PassLineOdds", "Come", "DontPass", "DontPassOdds", "DontCome", "Field", "Big bets", "Big6",
      "Big8", "Big()", "Hardway bets", "Hard", "Hard()", "CandE", "Horn", "World", "Over7",
      "Under7", "Midway", "Fire", "Hop bets", "Hop", "Hop()"};
  // A family row is the one followed by its "X()" row; the line bets
  // "Come" and "DontCome" further down stand alone.
  const std::vector<std::string> list(bets.begin(), bets.end());
  for (std::size_t i = 0; i < list.size(); ++i) {
    rows.push_back(list[i]);
    if (i + 1 < list.size() && list[i + 1] == list[i] + "()" && list[i] != "CheckStack" &&
        list[i] != "CS")
      AddFamily(rows, list[i]);
  }
  return rows;
}

Rows ModifierRows() {
  return {"playerX", "player()", "player name()", "autobettor <def>", "bettor", "shooter",
          "last shooter", "original shooter", kSep, "current hand", "last hand",
          "current session <def>", "last session", "all sessions", "        Bets", "current #",
          "current $ <def>", "total #", "total $", "high $", "low $", "avg $", "last $",
          "last roll #", "last roll $ <def>", "avg # / hr", "avg $ / hr", "expected value",
          "wagers <def>", "wins", "losses", "net", "net %", "resolves", "working", "called on",
          "called off", "        Hands", "2 thru 12", "total <def>", "naturals", "points",
          "        Points", "established <def>", "passed", "missed", "4,5,6,8,9,10",
          "        Rolls", "1.1 thru 6.6", "DieX faceX", kSep, "are equal to",
          "are not equal to", "are greater than", "are not greater than", "are less than",
          "are not less than", "are named", "are not named"};
}

Rows ActionRows() {
  return {"Bet X on Y", "Add X to Y", "Subtract X from Y", "Multiply by X on Y",
          "Divide by X on Y", "Name CheckStackX as Y", "Clear X", "Remove X", "Take down X",
          "Swap X,Y", "Round Up to the nearest X on Y", "Round Down to the nearest X on Y",
          "Round to the nearest X on Y", "Buy the Place Bet on X", "Call OFF X", "Call ON X",
          "Remove ON/OFF button from X", "Yes/No question X", "Show message X",
          "Stop AutoRolling/HyperDrive", "Pass the dice", "Play sound", "\"filename.wav\"",
          "Show Steps", "Activate probability file", "\"filename.prb\"",
          "Deactivate probability file", "Playback dice roll file", "\"filename.rol\"",
          " from roll # X", "Deactivate dice roll file", "ATM withdraw X", "ATM deposit X",
          "Select RNG X", "Seed RNG", "Seed RNG with X", "Open/clear file for output",
          "\"filename.txt\"", "Open/append file for output", "Output to file X",
          "Start new session", "Start new session(preserve checkstacks)",
          "Start new session(preserve dice roll file)",
          "Start new session(preserve checkstacks, dice roll file)"};
}

Rows FunctionRows() {
  return {"Highest()", "Lowest()", "Average()", "Sum()", "Count()", "StdDev()",
          "Abs(#)", "Int(#)", "Sqr(#)", "Asc(s)", "Val(s)", "Len(s)",
          "Instr(#,ss,sf)", "Input()", "Input$()", "Chr$(#)", "Str$(#)", "Space$(#)",
          "Left$(s,#)", "Right$(s,#)", "Mid$(s,#s,#c)", "Insert$(ss,#,si)", "RemoveLeft$(s,#)",
          "RemoveRight$(s,#)", "RemoveMid$(s,#s,#c)"};
}

}  // namespace

const std::vector<std::string>& PicklistRows(Picklist list) {
  static const std::array<Rows, static_cast<std::size_t>(Picklist::kCount)> kLists = {
      LogicRows(), VariableRows(), ModifierRows(), ActionRows(), FunctionRows()};
  return kLists[static_cast<std::size_t>(list)];
}

std::optional<std::string> PickText(Picklist list, std::string_view row) {
  if (row.empty() || row == kPicklistSeparator) return std::nullopt;
  if (list == Picklist::Modifiers && row.starts_with(kHeadingIndent)) return std::nullopt;
  if (list == Picklist::Logic && row == "If/Then/EndIf") return std::string("If \nThen \nEndIf ");
  if (list == Picklist::Logic && row == "If/Then/Else/EndIf")
    return std::string("If \nThen \nElse \nEndIf ");
  std::string text(row);
  if (text.ends_with(kDefaultMark)) text.resize(text.size() - kDefaultMark.size());
  return text + " ";
}
