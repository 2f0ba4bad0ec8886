#include "store/record_io.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstring>
#include <limits>

#include "core/text.h"

namespace {

constexpr std::int64_t kScale = Currency::kScale;

// A Currency count as a whole number, rounded to nearest, ties to even.
bool WholeFromCurrency(std::int64_t raw, std::int64_t& whole) {
  std::int64_t q = raw / kScale, r = raw % kScale;
  if (r < 0) {  // floor division
    r += kScale;
    --q;
  }
  if (r * 2 > kScale || (r * 2 == kScale && (q & 1))) ++q;
  whole = q;
  return q >= std::numeric_limits<std::int32_t>::min() &&
         q <= std::numeric_limits<std::int32_t>::max();
}

}  // namespace

void PutLE(unsigned char* at, std::uint64_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) at[i] = static_cast<unsigned char>(value >> (8 * i));
}

std::uint64_t GetLE(const unsigned char* at, int bytes) {
  std::uint64_t v = 0;
  for (int i = 0; i < bytes; ++i) v |= static_cast<std::uint64_t>(at[i]) << (8 * i);
  return v;
}

// --- RecordWriter ---

void RecordWriter::Begin() {
  out_.append(kRecordBytes, '\0');
  ++record_;
}

unsigned char* RecordWriter::At(int byte, [[maybe_unused]] int n) {
  assert(record_ > 0 && byte >= 0 && byte + n <= static_cast<int>(kRecordBytes));
  return reinterpret_cast<unsigned char*>(out_.data()) + (record_ - 1) * kRecordBytes + byte;
}

void RecordWriter::Int(int byte, std::int32_t& v) {
  PutLE(At(byte, 2), static_cast<std::uint16_t>(static_cast<std::int16_t>(v)), 2);
}
void RecordWriter::Long(int byte, std::int32_t& v) {
  PutLE(At(byte, 4), static_cast<std::uint32_t>(v), 4);
}
void RecordWriter::Long(int byte, bool& v) {
  std::int32_t l = v ? -1 : 0;
  Long(byte, l);
}
void RecordWriter::LongCur(int byte, std::int32_t& v) {
  Currency c = Currency::FromWhole(v);
  Cur(byte, c);
}
void RecordWriter::LongCur(int byte, bool& v) {
  std::int32_t l = v ? -1 : 0;
  LongCur(byte, l);
}
void RecordWriter::LongCur(int byte, double& v) {
  // Beyond a Currency's range (or not a number) stores 0.
  const double scaled = v * kScale;
  const bool fits = std::isfinite(scaled) && std::fabs(scaled) < 9.2e18;
  Currency c = Currency::FromRaw(fits ? std::llround(scaled) : 0);
  Cur(byte, c);
}
void RecordWriter::Cur(int byte, Currency& v) {
  PutLE(At(byte, 8), static_cast<std::uint64_t>(v.raw), 8);
}
void RecordWriter::Single(int byte, float& v) {
  std::uint32_t bits;
  std::memcpy(&bits, &v, sizeof bits);
  PutLE(At(byte, 4), bits, 4);
}
void RecordWriter::Text(int byte, int n, std::string& v) {
  unsigned char* at = At(byte, n);
  const std::size_t len = std::min(v.size(), static_cast<std::size_t>(n));
  std::memcpy(at, v.data(), len);
  std::memset(at + len, ' ', static_cast<std::size_t>(n) - len);
  // A NUL inside a text field is what the reader takes for damage: a text
  // that holds one (a script's Chr$(0)) is written with a blank there.
  std::replace(at, at + len, static_cast<unsigned char>('\0'), static_cast<unsigned char>(' '));
}
void RecordWriter::Path(std::string& path, std::string& stamp) {
  Begin();
  Text(0, kPathBytes, path);
  Text(kPathBytes, kStampBytes, stamp);
}

// --- RecordReader ---

void RecordReader::Begin() {
  ++record_;
  if (static_cast<std::size_t>(record_) * kRecordBytes > in_.size()) short_ = true;
}

const unsigned char* RecordReader::At(int byte, [[maybe_unused]] int n) {
  assert(record_ > 0 && byte >= 0 && byte + n <= static_cast<int>(kRecordBytes));
  if (short_) return nullptr;
  return reinterpret_cast<const unsigned char*>(in_.data()) + (record_ - 1) * kRecordBytes + byte;
}

void RecordReader::Int(int byte, std::int32_t& v) {
  const unsigned char* at = At(byte, 2);
  v = at ? static_cast<std::int16_t>(GetLE(at, 2)) : 0;
}
void RecordReader::Long(int byte, std::int32_t& v) {
  const unsigned char* at = At(byte, 4);
  v = at ? static_cast<std::int32_t>(GetLE(at, 4)) : 0;
}
void RecordReader::Long(int byte, bool& v) {
  std::int32_t l = 0;
  Long(byte, l);
  v = l != 0;
}
void RecordReader::LongCur(int byte, std::int32_t& v) {
  Currency c;
  Cur(byte, c);
  std::int64_t whole = 0;
  if (!WholeFromCurrency(c.raw, whole)) bad_ = true;
  v = bad_ ? 0 : static_cast<std::int32_t>(whole);
}
void RecordReader::LongCur(int byte, bool& v) {
  Currency c;
  Cur(byte, c);
  v = c.raw != 0;
}
void RecordReader::LongCur(int byte, double& v) {
  Currency c;
  Cur(byte, c);
  v = static_cast<double>(c.raw) / kScale;
}
void RecordReader::Cur(int byte, Currency& v) {
  const unsigned char* at = At(byte, 8);
  v = Currency::FromRaw(at ? static_cast<std::int64_t>(GetLE(at, 8)) : 0);
}
void RecordReader::Single(int byte, float& v) {
  const unsigned char* at = At(byte, 4);
  const std::uint32_t bits = at ? static_cast<std::uint32_t>(GetLE(at, 4)) : 0;
  std::memcpy(&v, &bits, sizeof v);
}
void RecordReader::Text(int byte, int n, std::string& v) {
  const unsigned char* at = At(byte, n);
  if (!at) {
    v.clear();
    return;
  }
  v.assign(reinterpret_cast<const char*>(at), static_cast<std::size_t>(n));
  if (v.find('\0') != std::string::npos) bad_ = true;
  TrimRight(v);
}
void RecordReader::Path(std::string& path, std::string& stamp) {
  Begin();
  Text(0, kPathBytes, path);
  Text(kPathBytes, kStampBytes, stamp);
  path = std::string(Trim(path));
  stamp = std::string(Trim(stamp));
}
