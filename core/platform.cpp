#include "core/platform.h"

#include <ctime>

namespace {

// The system clock on the local calendar.
std::tm LocalNow() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return local;
}

}  // namespace

CalendarDate Platform::Today() {
  const std::tm local = LocalNow();
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
}

int Platform::SecondsOfDay() {
  const std::tm local = LocalNow();
  return local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec;
}
