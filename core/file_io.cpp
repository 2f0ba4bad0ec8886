#include "core/file_io.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>
#include <vector>

FileHandle& FileHandle::operator=(FileHandle&& o) noexcept {
  if (this != &o) {
    Close();
    fd = o.fd;
    o.fd = -1;
  }
  return *this;
}

FileHandle::~FileHandle() { Close(); }

bool FileHandle::Close() {
  if (fd < 0) return true;
  const int rc = ::close(fd);
  fd = -1;
  return rc == 0;
}

FileHandle OpenForReading(const std::string& path) {
  return FileHandle(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
}

FileHandle OpenForUpdate(const std::string& path) {
  return FileHandle(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644));
}

FileHandle OpenForAppend(const std::string& path) {
  return FileHandle(::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0644));
}

std::int64_t FileLength(const std::string& path) {
  struct stat st {};
  if (::stat(path.c_str(), &st) != 0 || !S_ISREG(st.st_mode)) return -1;
  return static_cast<std::int64_t>(st.st_size);
}

bool FileExists(const std::string& path) { return FileLength(path) >= 0; }

bool SameModificationTime(const std::string& a, const std::string& b) {
  struct stat sa {
  }, sb{};
  if (::stat(a.c_str(), &sa) != 0 || ::stat(b.c_str(), &sb) != 0) return false;
  return sa.st_mtim.tv_sec == sb.st_mtim.tv_sec && sa.st_mtim.tv_nsec == sb.st_mtim.tv_nsec;
}

bool CopyModificationTime(const std::string& from, const std::string& to) {
  struct stat st {};
  if (::stat(from.c_str(), &st) != 0) return false;
  const struct timespec times[2] = {st.st_atim, st.st_mtim};
  return ::utimensat(AT_FDCWD, to.c_str(), times, 0) == 0;
}

void RemoveFileIfPresent(const std::string& path) { ::unlink(path.c_str()); }

std::int64_t ReadAt(const FileHandle& f, std::int64_t offset, void* buffer, std::size_t n) {
  auto* out = static_cast<char*>(buffer);
  std::size_t done = 0;
  while (done < n) {
    const ssize_t got = ::pread(f.fd, out + done, n - done, static_cast<off_t>(offset) + done);
    if (got < 0) {
      if (errno == EINTR) continue;
      return -1;
    }
    if (got == 0) break;
    done += static_cast<std::size_t>(got);
  }
  return static_cast<std::int64_t>(done);
}

WholeFileRead ReadFileStart(const std::string& path, std::size_t count, std::string& bytes) {
  const std::int64_t length = FileLength(path);
  if (length < 0) return WholeFileRead::Missing;
  const FileHandle f = OpenForReading(path);
  if (!f.IsOpen()) return WholeFileRead::Failed;
  // Read to the end rather than to the length seen, in steps, up to `count`:
  // a file that grew since is read as it is now, and never beyond.
  constexpr std::size_t kStep = std::size_t{1} << 16;
  std::string read;
  read.reserve(std::min(static_cast<std::size_t>(length), count));
  while (read.size() < count) {
    const std::size_t at = read.size();
    const std::size_t want = std::min(kStep, count - at);
    read.resize(at + want);
    const std::int64_t got = ReadAt(f, static_cast<std::int64_t>(at), read.data() + at, want);
    if (got < 0) return WholeFileRead::Failed;
    read.resize(at + static_cast<std::size_t>(got));
    if (static_cast<std::size_t>(got) < want) break;  // the end of the file
  }
  bytes = std::move(read);
  return WholeFileRead::Read;
}

WholeFileRead ReadWholeFileUpTo(const std::string& path, std::size_t limit, std::string& bytes) {
  const std::int64_t length = FileLength(path);
  if (length >= 0 && static_cast<std::uint64_t>(length) > limit) return WholeFileRead::TooLong;
  // One byte past the limit tells a file that grew since its length was seen.
  std::string read;
  const WholeFileRead result = ReadFileStart(path, limit + 1, read);
  if (result != WholeFileRead::Read) return result;
  if (read.size() > limit) return WholeFileRead::TooLong;
  bytes = std::move(read);
  return WholeFileRead::Read;
}

bool WriteAt(const FileHandle& f, std::int64_t offset, const void* buffer, std::size_t n) {
  const auto* in = static_cast<const char*>(buffer);
  std::size_t done = 0;
  while (done < n) {
    const ssize_t put = ::pwrite(f.fd, in + done, n - done, static_cast<off_t>(offset) + done);
    if (put < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    done += static_cast<std::size_t>(put);
  }
  return true;
}

bool WriteAll(const FileHandle& f, const void* buffer, std::size_t n) {
  const auto* in = static_cast<const char*>(buffer);
  std::size_t done = 0;
  while (done < n) {
    const ssize_t put = ::write(f.fd, in + done, n - done);
    if (put < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    done += static_cast<std::size_t>(put);
  }
  return true;
}

bool Truncate(const FileHandle& f, std::int64_t length) {
  return ::ftruncate(f.fd, static_cast<off_t>(length)) == 0;
}

std::string SystemErrorText() { return std::strerror(errno); }

TempFileBeside::TempFileBeside(const std::string& target) : target_(target) {
  const auto slash = target.find_last_of('/');
  const std::string folder =
      slash == std::string::npos ? std::string() : target.substr(0, slash + 1);
  const std::string name = slash == std::string::npos ? target : target.substr(slash + 1);
  std::string pattern = folder + "." + name + ".XXXXXX";
  std::vector<char> buffer(pattern.begin(), pattern.end());
  buffer.push_back('\0');
  const int fd = ::mkostemp(buffer.data(), O_CLOEXEC);
  if (fd < 0) {
    openError_ = SystemErrorText();
    return;
  }
  ::fchmod(fd, 0644);
  path_.assign(buffer.data());
  file_ = FileHandle(fd);
}

TempFileBeside::~TempFileBeside() {
  if (!committed_ && !path_.empty()) {
    file_.Close();
    ::unlink(path_.c_str());
  }
}

bool TempFileBeside::Commit(std::string& error) {
  if (!file_.IsOpen()) {
    error = "Cannot write a temporary file beside " + target_ + ": " + openError_;
    return false;
  }
  if (!file_.Close()) {
    error = "Cannot finish writing " + target_ + ": " + SystemErrorText();
    return false;
  }
  if (::rename(path_.c_str(), target_.c_str()) != 0) {
    error = "Cannot replace " + target_ + ": " + SystemErrorText();
    return false;
  }
  committed_ = true;
  return true;
}
