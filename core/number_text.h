// Fixed-point texts of doubles as the tabs show them: a chosen number of
// decimals, thousands separators or not, and the "+" of the signed formats.
//
// The three-section formats ("positive;negative;zero") pick their section by
// the value as shown, after rounding: a value that rounds to zero is shown
// by the zero section, never as "-0.00" or "+0.000".
#pragma once

#include <string>

struct NumberFormat {
  int decimals = 2;
  bool grouped = false;   // "#,0.000": thousands separators
  bool plusSign = false;  // "+#,0.000;-#,0.000;#,0.000": a "+" before positives
};

// The text of x in the format: "#,0.000" is {3, true, false}, "0.00;-0.00;0.00"
// is {2, false, false}. NaN and infinities read "0" in the format's decimals.
std::string FormatNumber(double x, NumberFormat format);
// x rounded to `decimals` places as its shortest decimal text would read
// back (the "#.######" of a value passed through its text and back).
double RoundThroughText(double x, int decimals);
