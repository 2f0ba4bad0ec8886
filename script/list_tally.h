// The list functions Highest, Lowest, Average, StdDev, Sum and Count, fed
// their items one at a time: the function in a statement's work table and
// a plan's read of the same function share it, so they cannot disagree.
#pragma once

#include <cstdint>

#include "script/code_state.h"
#include "script/interpreter.h"
#include "script/script_text.h"

struct Game;

inline constexpr int kHighestFunction = 126, kLowestFunction = 127, kAverageFunction = 128,
                     kStdDevFunction = 129, kSumFunction = 130, kCountFunction = 131;

class ListTally {
 public:
  // Count counts the items that are not 0 unless a filter says otherwise.
  explicit ListTally(int function)
      : n_(function), op_(function == kCountFunction ? kNotEqual : 0) {}

  // A comparison among the items: the items behind it count only when they
  // pass it.
  void Filter(std::int32_t op, double value) {
    op_ = op;
    filter_ = value;
  }
  bool Passes(double v) const { return op_ == 0 || CompareNumbers(v, op_, filter_) != 0; }

  void Item(double v) {
    if (first_ && (n_ == kHighestFunction || n_ == kLowestFunction)) {
      best_ = v;  // the first item counts whatever it is
      first_ = false;
      return;
    }
    first_ = false;
    if (!Passes(v)) return;
    if (n_ == kHighestFunction && v > best_) best_ = v;
    if (n_ == kLowestFunction && v < best_) best_ = v;
    sum_ += v;
    ++count_;
  }

  int Count() const { return count_; }
  double Mean() const { return sum_ / count_; }

  // The result of any function but StdDev (which needs a second walk over
  // the items); an Average of nothing is 0 with a note.
  double Result(Game& game) const {
    switch (n_) {
      case kHighestFunction:
      case kLowestFunction:
        return best_;
      case kAverageFunction:
        if (count_ == 0) {
          AddStepNote(game, "Division by zero.");
          return 0;
        }
        return Mean();
      case kSumFunction:
        return sum_;
      default:
        return count_;
    }
  }

 private:
  int n_;
  std::int32_t op_;
  double filter_ = 0;
  bool first_ = true;
  double best_ = 0, sum_ = 0;
  int count_ = 0;
};
