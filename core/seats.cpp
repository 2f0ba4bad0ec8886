#include "core/seats.h"

#include <algorithm>
#include <memory>

void SwapSeatTables(Game& g, int a, int b) {
  ForEachSeatTable(
      [a, b](const char*, auto axis, SeatReset, auto& table) {
        for (int frame = 0; frame < SeatFrames(axis); ++frame) {
          auto rowA = SeatRow(table, a, frame);
          std::swap_ranges(rowA.begin(), rowA.end(), SeatRow(table, b, frame).begin());
        }
      },
      g);
  g.GraphWindow.known = false;  // the scroll's window is kept by seat
}

void ClearSeatTables(Game& g, int p) {
  const auto fresh = std::make_unique<const Game>();
  ForEachSeatTable(
      [p](const char*, auto axis, SeatReset onReset, auto& table, const auto& freshTable) {
        if (onReset != SeatReset::Clear) return;
        for (int frame = 0; frame < SeatFrames(axis); ++frame) {
          auto from = SeatRow(freshTable, p, frame);
          std::copy(from.begin(), from.end(), SeatRow(table, p, frame).begin());
        }
      },
      g, *fresh);
  g.GraphWindow.known = false;  // the scroll's window of the cleared row is rebuilt
}
