#pragma once
// What the duplicate rule asks of an open file: its content or the digest of it, and whether its blocks are its own.

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "core/base/Files.h"

namespace ambrel {

using Digest = std::array<unsigned char, 32>;

// For reading, without following a link at the end and, where the system allows it, without leaving a trace in the
// file's access date, which another rule goes by.
FileDescriptor openQuietly(const std::string& path);

// True when other files share some of the file's blocks, so that moving it frees less than its size. False when the
// file system cannot tell.
bool sharesBlocks(const FileDescriptor& file);

// Fills `bytes` with what begins at `from`. False when a byte cannot be read.
bool readFully(const FileDescriptor& file, void* bytes, std::size_t count, std::uint64_t from);

// SHA-256 of ranges of files. Keeps its buffer; one for each thread.
class ContentHasher {
 public:
  ContentHasher();
  ~ContentHasher();
  ContentHasher(ContentHasher&&) noexcept;

  // Of the bytes from `from` up to `to`; equal digests mean equal bytes, and ranges of different length differ. Runs
  // of zeros enter by their place alone, so that holes need not be read: the digest is not that of the plain bytes.
  // `mayHaveHoles` false saves asking for them. `read` hears of the bytes read, chunk by chunk, and may throw.
  // Absent when a byte cannot be read.
  std::optional<Digest> digest(const FileDescriptor& file, std::uint64_t from, std::uint64_t to, bool mayHaveHoles,
                               const std::function<void(std::int64_t)>& read);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace ambrel
