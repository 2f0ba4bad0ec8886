#include "stats/sessions_find.h"

#include <algorithm>

#include "stats/sessions_log.h"

std::int32_t FindSessionValue(const SessionsRequest& rq, Currency wanted, int direction) {
  SessionsLogReader log(rq.path);
  const std::int32_t n = log.count();
  if (!log.ok() || n <= 0) return 0;
  direction = direction < 0 ? -1 : 1;
  const int value = std::clamp(rq.value, 0, kSessionValues - 1);
  const std::int32_t top = std::clamp<std::int32_t>(rq.rawTop, 1, n);
  SessionRecord r{};
  std::int32_t s = top;
  for (std::int32_t left = n; left > 0; --left) {
    s += direction;
    if (s > n) s = 1;
    if (s < 1) s = n;
    if (!log.Read(s, r)) return 0;
    if (IncludedSession(rq, r[kNetValue]) && r[static_cast<std::size_t>(value)] == wanted) return s;
  }
  return 0;
}
