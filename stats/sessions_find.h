// Find in the Sessions Log's data list: the next included session whose
// sampled value equals a wanted amount, walking the log one record at a
// time from the session at the top of the list.
#pragma once

#include <cstdint>

#include "core/currency.h"
#include "stats/sessions_stats.h"

// From rq.rawTop in direction +1 or -1, the sessions after it wrapping at
// both ends and rq.rawTop itself last, testing only the sessions the
// request's filter includes. The session found, or 0 when none matches.
std::int32_t FindSessionValue(const SessionsRequest& rq, Currency wanted, int direction);
