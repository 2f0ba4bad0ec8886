// Fixed 256-byte records, little-endian, read and written field by field
// through explicit byte helpers (never by copying structs), so the file is
// the same on every machine and a hostile file can never be read past its end.
//
// RecordWriter and RecordReader offer the same operations with the same
// arguments, so that one description of a record (a template over the two)
// writes and reads it: what is written is exactly what is read back.
//
// What must stay true:
// - Begin() starts the next record; fields address bytes within it, and a
//   field never crosses the record's end (asserted).
// - The writer's records start as zeros: bytes no field assigns stay 0.
// - The reader never reads outside its bytes: a field of a record past the
//   end reads as 0 and marks the read Short; a value that does not fit its
//   field marks it Bad. The caller checks Ok() once at the end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/currency.h"

inline constexpr std::size_t kRecordBytes = 256;
inline constexpr int kPathBytes = 200;   // Path record: the path
inline constexpr int kStampBytes = 56;   // and the time stamp behind it

// Little-endian byte helpers.
void PutLE(unsigned char* at, std::uint64_t value, int bytes);
std::uint64_t GetLE(const unsigned char* at, int bytes);

class RecordWriter {
 public:
  static constexpr bool kReading = false;

  // Starts the next record, all zeros.
  void Begin();
  int Record() const { return record_; }
  // Signed 16-bit.
  void Int(int byte, std::int32_t& v);
  // Signed 32-bit; True as -1.
  void Long(int byte, std::int32_t& v);
  void Long(int byte, bool& v);
  // A whole number as Currency (5 is 50,000); True as -1.
  void LongCur(int byte, std::int32_t& v);
  void LongCur(int byte, bool& v);
  void LongCur(int byte, double& v);  // a Double kept to four decimals
  void Cur(int byte, Currency& v);
  void Single(int byte, float& v);
  // n bytes of text, padded with blanks (cut at n).
  void Text(int byte, int n, std::string& v);
  void Path(std::string& path, std::string& stamp);

  const std::string& Bytes() const { return out_; }

 private:
  unsigned char* At(int byte, int n);
  std::string out_;
  int record_ = 0;
};

class RecordReader {
 public:
  static constexpr bool kReading = true;

  explicit RecordReader(std::string_view bytes) : in_(bytes) {}
  void Begin();
  int Record() const { return record_; }
  void Int(int byte, std::int32_t& v);
  void Long(int byte, std::int32_t& v);
  void Long(int byte, bool& v);
  // Read back rounded to a whole number; one that does not fit a Long is Bad.
  void LongCur(int byte, std::int32_t& v);
  void LongCur(int byte, bool& v);
  void LongCur(int byte, double& v);
  void Cur(int byte, Currency& v);
  void Single(int byte, float& v);
  // Trailing blanks cut; a NUL byte (a field never written as text) is Bad.
  void Text(int byte, int n, std::string& v);
  // Both fields trimmed at both ends.
  void Path(std::string& path, std::string& stamp);

  // Marks the read as corrupt (a value out of its range).
  void Fail() { bad_ = true; }
  bool Ok() const { return !short_ && !bad_; }
  bool Short() const { return short_; }

 private:
  const unsigned char* At(int byte, int n);
  std::string_view in_;
  int record_ = 0;
  bool short_ = false;
  bool bad_ = false;
};

// A run of values stored `perRecord` a record, starting a new record:
// item(i, byte) transfers value i at that byte of the current record.
template <class IO, class Item>
void Run(IO& io, int count, int perRecord, int width, Item&& item) {
  for (int i = 0; i < count; ++i) {
    if (i % perRecord == 0) io.Begin();
    item(i, (i % perRecord) * width);
  }
}
