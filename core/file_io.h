// Plain file access for the files the game keeps on disk in its own formats
// (the events log and its index, dice roll files): whole-buffer reads and
// writes at a position, lengths, little-endian 32-bit records, and the
// temporary file beside a target that a rewrite goes through.
//
// What must stay true:
// - A handle closes its file when it goes out of scope; no file stays open
//   between two calls of the game.
// - A rewrite writes a temporary file in the target's own folder and renames
//   it into place only when every byte is written, so a failure leaves the
//   old file whole and no temporary behind.
// - Reads never trust a length they did not get: ReadAt reports the bytes it
//   actually read, short at the end of the file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// An open file descriptor, closed on destruction; fd < 0 when not open.
struct FileHandle {
  int fd = -1;
  FileHandle() = default;
  explicit FileHandle(int f) : fd(f) {}
  FileHandle(const FileHandle&) = delete;
  FileHandle& operator=(const FileHandle&) = delete;
  FileHandle(FileHandle&& o) noexcept : fd(o.fd) { o.fd = -1; }
  FileHandle& operator=(FileHandle&& o) noexcept;
  ~FileHandle();
  bool IsOpen() const { return fd >= 0; }
  // Closes now; false when the close reported a write failure.
  bool Close();
};

// Opens for reading; not open when missing or unreadable.
FileHandle OpenForReading(const std::string& path);
// Opens for reading and writing at positions, creating the file when missing.
FileHandle OpenForUpdate(const std::string& path);
// Opens for appending, creating the file when missing.
FileHandle OpenForAppend(const std::string& path);

// Length of a file in bytes; -1 when it does not exist or is not a file.
std::int64_t FileLength(const std::string& path);
// True when the path names an existing regular file.
bool FileExists(const std::string& path);
// True when both files exist and carry the same modification time.
bool SameModificationTime(const std::string& a, const std::string& b);
// Gives `to` the modification time of `from`; false when either is missing.
bool CopyModificationTime(const std::string& from, const std::string& to);
// Deletes a file if it is there.
void RemoveFileIfPresent(const std::string& path);

// What reading a whole file of bounded length, or a file's start, came to.
enum class WholeFileRead { Read, Missing, TooLong, Failed };
// Reads the first `count` bytes of the regular file at `path` into `bytes`,
// fewer when the file is shorter; `bytes` is untouched unless Read.
WholeFileRead ReadFileStart(const std::string& path, std::size_t count, std::string& bytes);
// Reads the regular file at `path` into `bytes` when it holds at most
// `limit` bytes. Never takes more than limit + 1 bytes of memory, whatever
// the file claims or grows to while read; `bytes` is untouched unless Read.
WholeFileRead ReadWholeFileUpTo(const std::string& path, std::size_t limit, std::string& bytes);

// Reads up to n bytes at offset; the count read (short at the end), -1 on error.
std::int64_t ReadAt(const FileHandle& f, std::int64_t offset, void* buffer, std::size_t n);
// Writes all n bytes at offset; false on error.
bool WriteAt(const FileHandle& f, std::int64_t offset, const void* buffer, std::size_t n);
// Writes all n bytes at the file's current position (the end, when appending).
bool WriteAll(const FileHandle& f, const void* buffer, std::size_t n);
// Cuts or extends a file to `length` bytes.
bool Truncate(const FileHandle& f, std::int64_t length);

// The text of the last system error, for messages.
std::string SystemErrorText();

// A 32-bit record stored low byte first.
inline void PutLong32(unsigned char* out, std::uint32_t v) {
  out[0] = static_cast<unsigned char>(v);
  out[1] = static_cast<unsigned char>(v >> 8);
  out[2] = static_cast<unsigned char>(v >> 16);
  out[3] = static_cast<unsigned char>(v >> 24);
}
inline std::uint32_t GetLong32(const unsigned char* in) {
  return static_cast<std::uint32_t>(in[0]) | static_cast<std::uint32_t>(in[1]) << 8 |
         static_cast<std::uint32_t>(in[2]) << 16 | static_cast<std::uint32_t>(in[3]) << 24;
}

// A temporary file beside a target, deleted on destruction unless committed.
class TempFileBeside {
 public:
  explicit TempFileBeside(const std::string& target);
  ~TempFileBeside();
  TempFileBeside(const TempFileBeside&) = delete;
  TempFileBeside& operator=(const TempFileBeside&) = delete;
  bool IsOpen() const { return file_.IsOpen(); }
  const FileHandle& File() const { return file_; }
  const std::string& Path() const { return path_; }
  // Closes the temporary file and renames it over the target.
  bool Commit(std::string& error);

 private:
  std::string target_, path_, openError_;
  FileHandle file_;
  bool committed_ = false;
};
