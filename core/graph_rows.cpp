#include "core/graph_rows.h"

#include <algorithm>

void StraightenGraphRows(Game& g) {
  g.GraphWindow.known = false;
  const int start = g.GraphStart;
  if (start == 0) return;
  for (int p = 1; p <= 8; ++p) {
    for (auto row : {g.GraphBankroll.Span(p, 1, kGraphColumns),
                     g.GraphBankroll.Span(p, kGraphColumns + 1, 2 * kGraphColumns),
                     g.GraphTrend.Span(p, 1, kGraphColumns)})
      std::rotate(row.begin(), row.begin() + start, row.end());
  }
  g.GraphStart = 0;
}
