#include "store/file_stamp.h"

#include <sys/stat.h>

#include <cstdio>
#include <ctime>

std::string FileStamp(const std::string& path) {
  struct stat st {};
  if (path.empty() || ::stat(path.c_str(), &st) != 0) return {};
  std::tm utc{};
  const std::time_t seconds = st.st_mtim.tv_sec;
  ::gmtime_r(&seconds, &utc);
  char text[64];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d.%09ld UTC", utc.tm_year + 1900,
                utc.tm_mon + 1, utc.tm_mday, utc.tm_hour, utc.tm_min, utc.tm_sec,
                static_cast<long>(st.st_mtim.tv_nsec));
  return text;
}
