#include "core/frames.h"

#include <string>

namespace {

// Texts of the ordered and unordered pairs: "Number 4 (1.3)", "Number 4 (1.3) or (3.1)".
struct PairTexts {
  std::array<std::string, kLastEvent + 1> text;
  PairTexts() {
    for (int d1 = 1; d1 <= 6; ++d1)
      for (int d2 = 1; d2 <= 6; ++d2) {
        if (d1 == d2) continue;
        const std::string total = std::to_string(d1 + d2);
        text[static_cast<std::size_t>(PairEvent(d1, d2))] =
            "Number " + total + " (" + std::to_string(d1) + "." + std::to_string(d2) + ")";
      }
    auto unordered = [&](int c, int a, int b) {
      const std::string total = std::to_string(a + b);
      text[static_cast<std::size_t>(c)] = "Number " + total + " (" + std::to_string(a) + "." +
                                          std::to_string(b) + ") or (" + std::to_string(b) + "." +
                                          std::to_string(a) + ")";
    };
    unordered(kEventNumber3, 1, 2);
    unordered(kEventNumber11, 5, 6);
    for (const EitherWayPair& e : kEitherWayPairs) unordered(e.event, e.low, e.high);
  }
};

struct NamedText {
  int c;
  std::string_view text;
};

constexpr NamedText kNamedTexts[] = {
    {2, "Number 2 (1.1)"},
    {4, "Any 4"},
    {5, "Any 5"},
    {6, "Any 6"},
    {7, "Any 7"},
    {8, "Any 8"},
    {9, "Any 9"},
    {10, "Any 10"},
    {12, "Number 12 (6.6)"},
    {13, "Hard 4 (2.2)"},
    {14, "Hard 6 (3.3)"},
    {15, "Hard 8 (4.4)"},
    {16, "Hard 10 (5.5)"},
    {17, "Numbers 4,5,6,8,9,10"},
    {18, "Numbers 5,6,8,9"},
    {19, "Numbers 4,5,9,10"},
    {20, "Numbers 2,3,12"},
    {21, "Numbers 2,3,4,9,10,11,12"},
    {65, "Numbers 2,3,7,11,12"},
    {66, "Numbers 2,3,11,12"},
    {67, "Numbers 4,5,6"},
    {68, "Numbers 8,9,10"},
    {69, "Numbers 2,12"},
    {70, "Numbers 3,11"},
    {71, "Numbers 4,10"},
    {72, "Numbers 5,9"},
    {73, "Numbers 6,8"},
    {74, "Numbers 2,3"},
    {75, "Numbers 3,12"},
    {76, "Numbers 7,11"},
    {77, "Numbers 11,12"},
};

struct EventTexts {
  std::array<std::string, kLastEvent + 1> text;
  EventTexts() {
    text = PairTexts().text;
    for (const NamedText& row : kNamedTexts) text[static_cast<std::size_t>(row.c)] = row.text;
    for (int face = 1; face <= 6; ++face) {
      text[static_cast<std::size_t>(Die1FaceEvent(face))] = "Die 1, face " + std::to_string(face);
      text[static_cast<std::size_t>(Die2FaceEvent(face))] = "Die 2, face " + std::to_string(face);
    }
  }
};

}  // namespace

std::string_view RollEventText(int c) {
  static const EventTexts texts;
  if (c < 0 || c > kLastEvent) return {};
  return texts.text[static_cast<std::size_t>(c)];
}
