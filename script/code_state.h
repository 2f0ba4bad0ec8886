// Compiled scripts: the element stream, its string pool and the compile state.
//
// A compiled script is not a tree but a flat stream of ScriptElement: the
// English of the source rewritten into codes, with jump links filled in. The
// interpreter runs the stream as it is, statement by statement, where a
// statement is the run of elements between two statement marks.
//
// What must stay true:
// - CompiledScript[0] is an empty element and CompiledScript[1] the head
//   (kHead, Value = slot). After a successful compile the stream ends in a
//   statement mark.
// - StringPool is 1-based; entry 0 is never used. A string element's Value is
//   a pool index, 0 and below are the special strings (empty, date, time ...).
// - Every element kind below has exactly one entry in kKindNames, in the same
//   order (checked at compile time).
#pragma once

#include <array>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

// The element kinds. Statement marks are 100 + source line (100: no line yet).
enum ElementKind : std::int32_t {
  kEmpty = 0,             // empty element; terminator of a list or aggregate function
  kIf = 1,                // If
  kThen = 9,              // Then: Value = the Else/ElseIf/EndIf taken when false
  kElse = 10,             // Else: Value = its EndIf
  kElseIf = 11,           // ElseIf: Value = its EndIf
  kEndIf = 12,            // EndIf
  kReturn = 13,           // Return from GoSub
  kGoTo = 14,             // GoTo; the reference behind it holds the label index
  kGoSub = 15,            // GoSub; the reference behind it holds the label index
  kDo = 16,               // Do: Value = its Loop
  kLoop = 17,             // Loop: Value = its Do
  kExitDo = 18,           // ExitDo: Value = its Loop
  kOpen = 20,             // opening bracket of any shape
  kClose = 21,            // closing bracket of any shape
  kEqual = 50,            // =
  kNotEqual = 51,         // <>
  kLess = 52,             // <
  kGreater = 53,          // >
  kLessEqual = 54,        // <=
  kGreaterEqual = 55,     // >=
  kPower = 60,            // ^
  kTimes = 61,            // *
  kDivide = 62,           // /
  kIntDivide = 63,        // \ (integer division)
  kMod = 64,              // mod
  kPlus = 65,             // +
  kMinus = 66,            // - (also a sign)
  kNot = 70,              // Not
  kAnd = 71,              // And
  kOr = 72,               // Or
  kXor = 73,              // Xor
  kConcat = 74,           // & (string concatenation)
  kComma = 75,            // list separator, comma or semicolon
  kFunction = -1,         // function, Value = function number
  kFunctionTarget = -2,   // function that is assigned to
  kHead = -3,             // head of a script, Value = player slot
  kVariable = -11,        // variable, Value = variable number
  kVariableTarget = -12,  // variable that is assigned to
  kPlayerRef = -13,       // player qualifier, Value = slot or 10..14
  kFrame = -14,           // time frame qualifier, 1..5
  kStatClass = -15,       // statistic class qualifier, 1..8
  kStatField = -16,       // statistic field qualifier
  kNumber = -31,          // number, Value = the number
  kString = -51,          // string, Value = pool index (<= 0 special)
  kAction = -61,          // action, Value = action number
  kLabel = -71,           // label, Value = pool index
  kList = -81,            // list keyword, Value 2 = Any, 3 = All
  kMark = 100,            // statement mark: Kind - 100 = line, Value = column
};

inline constexpr ElementKind kAllKinds[] = {kEmpty,
                                            kIf,
                                            kThen,
                                            kElse,
                                            kElseIf,
                                            kEndIf,
                                            kReturn,
                                            kGoTo,
                                            kGoSub,
                                            kDo,
                                            kLoop,
                                            kExitDo,
                                            kOpen,
                                            kClose,
                                            kEqual,
                                            kNotEqual,
                                            kLess,
                                            kGreater,
                                            kLessEqual,
                                            kGreaterEqual,
                                            kPower,
                                            kTimes,
                                            kDivide,
                                            kIntDivide,
                                            kMod,
                                            kPlus,
                                            kMinus,
                                            kNot,
                                            kAnd,
                                            kOr,
                                            kXor,
                                            kConcat,
                                            kComma,
                                            kFunction,
                                            kFunctionTarget,
                                            kHead,
                                            kVariable,
                                            kVariableTarget,
                                            kPlayerRef,
                                            kFrame,
                                            kStatClass,
                                            kStatField,
                                            kNumber,
                                            kString,
                                            kAction,
                                            kLabel,
                                            kList,
                                            kMark};

inline constexpr std::string_view kKindNames[] = {
    "Empty", "If",    "Then",       "Else",   "ElseIf", "EndIf",     "Return", "GoTo",
    "GoSub", "Do",    "Loop",       "ExitDo", "Open",   "Close",     "Eq",     "Ne",
    "Lt",    "Gt",    "Le",         "Ge",     "Pow",    "Mul",       "Div",    "IDiv",
    "Mod",   "Add",   "Sub",        "Not",    "And",    "Or",        "Xor",    "Concat",
    "Comma", "Func",  "FuncTarget", "Head",   "Var",    "VarTarget", "Player", "Frame",
    "Class", "Field", "Num",        "Str",    "Action", "Label",     "List",   "Mark"};

static_assert(std::size(kAllKinds) == std::size(kKindNames),
              "every element kind needs its dump name");

struct ScriptElement {
  std::int32_t Kind = kEmpty;
  double Value = 0;

  friend bool operator==(const ScriptElement&, const ScriptElement&) = default;
};

struct PoolString {
  std::string Text;
  double Value = 0;  // for a label: the element index of the label

  friend bool operator==(const PoolString&, const PoolString&) = default;
};

// Highest subscript of WorkStatement and the starting size of GosubStack.
inline constexpr int kWorkStatementLast = 200;
inline constexpr int kGosubStackLast = 20;

struct ScriptCode {
  // The script being compiled (or the last one compiled).
  std::vector<ScriptElement> CompiledScript;
  std::vector<PoolString> StringPool;        // 1-based
  std::vector<ScriptElement> WorkStatement;  // [1..WorkCount]; grows past 200 if needed
  int WorkCount = 0;
  std::vector<std::int32_t> GosubStack;  // [0] = depth

  // Span of the last failure; errLine > 0 means the compile failed.
  int errLine = 0, errCol = 0, errEndLine = 0, errEndCol = 0;

  // Indent level of each source line (1-based, -1 = not reached), written by
  // the logic pass for the editor (see IndentScriptLines).
  std::vector<std::int32_t> LineIndent;

  // Result of each slot's last successful compile, kept for activation.
  std::array<std::vector<ScriptElement>, 9> SlotScript;
  std::array<std::vector<PoolString>, 9> SlotStrings;
  std::array<bool, 9> SlotCompiled{};

  friend bool operator==(const ScriptCode&, const ScriptCode&) = default;
};

// Dump name of a kind ("Mark" for any statement mark, "?" for unknown kinds).
constexpr std::string_view KindName(std::int32_t kind) {
  if (kind >= kMark) return "Mark";
  for (std::size_t i = 0; i < std::size(kAllKinds); ++i)
    if (kAllKinds[i] == kind) return kKindNames[i];
  return "?";
}

constexpr bool IsMark(const ScriptElement& e) { return e.Kind >= kMark; }
constexpr int MarkLine(const ScriptElement& e) { return e.Kind - kMark; }
