// Writing a whole file so that a crash, a full disk or a failed write never
// leaves a cut file under the target's name: the bytes go to a temporary
// file in the same folder, are flushed to the disk, and the temporary is
// renamed over the target. Every file writer of the game uses it.
//
// What must stay true:
// - At any moment the target holds either its old content or the new one.
// - On failure the temporary is removed and the error names the target.
// - The temporary lives in the target's folder (a rename never crosses
//   file systems) under a name that starts with '.' and holds ".tmp-".
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

// A test's way into the write: called after each block written with the
// count of bytes so far; returning false fails the write there.
using WriteProbe = std::function<bool(std::size_t written)>;

// Writes bytes to path through a temporary and a rename; false with `error`.
bool WriteFileAtomically(const std::string& path, std::string_view bytes, std::string& error,
                         const WriteProbe& probe = {});
// Whether a name is one of the temporaries WriteFileAtomically makes.
bool IsAtomicTemporaryName(std::string_view fileName);
