// Dice rolls as text, both ways: the output template that writes a roll as
// a line ("Roll# (Die1.Die2) Total" by default), and the conversion of any
// text into rolls, which takes the digits 1 to 6 in pairs and ignores
// every other character.
//
// What must stay true: both ways read and write in blocks of
// kDiceFileBlock bytes, so files of any size go through in constant memory;
// a converted file replaces its target only when it is complete.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

// The block size of every operation on a dice roll file's disk copy.
constexpr std::size_t kDiceFileBlock = 30000;
// The output template when none is set.
constexpr std::string_view kDefaultDiceOutputFormat = "Roll# (Die1.Die2) Total";
// The longest output template.
constexpr std::size_t kMaxDiceOutputFormat = 256;

// The template as the formatter walks it: trimmed, lower-cased, the default
// when empty, and four blanks behind so that a word never reads past its end.
std::string PrepareDiceOutputFormat(std::string_view format);
// True when the template names die1, die2 or total.
bool HasDiceInformation(std::string_view format);
// True when the template numbers the rolls (roll#).
bool HasRollNumber(std::string_view format);
// Appends one roll as the prepared template says: "roll#" the number as
// #,#, "die1", "die2", "total", and every other character as it is.
void AppendDiceRollText(std::string& out, std::string_view prepared, std::int64_t number,
                        unsigned char roll);

// Writes rolls first..last (from 1) of the file at path through the
// template, numbered from firstNumber, each line ended by lineEnd; the text
// goes to `emit` in pieces. False with an error naming the file.
bool WriteDiceRollsAsText(const std::string& path, std::int64_t first, std::int64_t last,
                          std::string_view format, std::int64_t firstNumber,
                          std::string_view lineEnd,
                          const std::function<bool(std::string_view)>& emit, std::string& error);

// Converts the text file `source` into the dice roll file `target`: digits
// 1..6 in pairs (die 1, then die 2), a digit left over dropped. The number
// of rolls written, or -1 with an error naming the file.
std::int64_t ConvertTextToDiceRolls(const std::string& source, const std::string& target,
                                    std::string& error);
