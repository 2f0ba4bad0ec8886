// The editor's picklists: the language's items in five lists (logic words,
// variables, qualifiers, actions, functions) from which a pick is inserted
// at the caret.
//
// A row is shown as it stands; what a pick inserts differs from it: every
// pick ends in a blank, the mark " <def>" that tells a qualifier's default
// is not inserted, and the two If blocks insert their words on lines of
// their own. Separator rows and the headings of the qualifier list (rows
// that start with three blanks) cannot be picked.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

enum class Picklist { Logic, Variables, Modifiers, Actions, Functions, kCount };

// The row a separator stands for in a list.
inline constexpr std::string_view kPicklistSeparator = "-";

// The rows of a list, as shown.
const std::vector<std::string>& PicklistRows(Picklist list);
// The text a pick of `row` inserts (lines joined by '\n'), or nothing when
// the row cannot be picked.
std::optional<std::string> PickText(Picklist list, std::string_view row);
