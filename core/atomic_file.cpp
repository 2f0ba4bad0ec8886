#include "core/atomic_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <vector>

#include "core/data_folder.h"

namespace {

constexpr std::size_t kBlock = 64 * 1024;
constexpr std::string_view kTempMark = ".tmp-";

std::string Failure(const std::string& path, const char* what, int err) {
  return "Unable to save " + path + ": " + what + " (" + std::strerror(err) + ")";
}

bool WriteAll(int fd, std::string_view bytes, const WriteProbe& probe, int& err) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const std::size_t n = std::min(kBlock, bytes.size() - done);
    const ssize_t w = ::write(fd, bytes.data() + done, n);
    if (w < 0) {
      if (errno == EINTR) continue;
      err = errno;
      return false;
    }
    done += static_cast<std::size_t>(w);
    if (probe && !probe(done)) {
      err = EIO;
      return false;
    }
  }
  return true;
}

}  // namespace

bool IsAtomicTemporaryName(std::string_view fileName) {
  return !fileName.empty() && fileName[0] == '.' && fileName.find(kTempMark) != std::string_view::npos;
}

bool WriteFileAtomically(const std::string& path, std::string_view bytes, std::string& error,
                         const WriteProbe& probe) {
  const std::string_view name = FileNameOf(path);
  if (name.empty()) {
    error = "Unable to save " + path + ": no file name";
    return false;
  }
  const std::string folder = path.substr(0, path.size() - name.size());
  std::string templ = folder + "." + std::string(name) + std::string(kTempMark) + "XXXXXX";
  std::vector<char> temp(templ.begin(), templ.end());
  temp.push_back('\0');
  const int fd = ::mkstemp(temp.data());
  if (fd < 0) {
    error = Failure(path, "cannot create a file in its folder", errno);
    return false;
  }
  int err = 0;
  bool ok = WriteAll(fd, bytes, probe, err);
  if (ok && ::fsync(fd) != 0) ok = false, err = errno;
  // mkstemp makes the file readable by its owner only; a saved file gets
  // the usual permissions the user's mask allows.
  if (ok) {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    ::fchmod(fd, 0666 & ~mask);
  }
  if (::close(fd) != 0 && ok) ok = false, err = errno;
  if (ok && std::rename(temp.data(), path.c_str()) != 0) {
    error = Failure(path, "cannot replace the file", errno);
    std::remove(temp.data());
    return false;
  }
  if (!ok) {
    error = Failure(path, "write failed", err);
    std::remove(temp.data());
    return false;
  }
  return true;
}
