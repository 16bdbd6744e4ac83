#include "core/disk/FileContent.h"

#include <algorithm>
#include <cstring>
#include <fcntl.h>
#include <linux/fiemap.h>
#include <linux/fs.h>
#include <openssl/evp.h>
#include <sys/ioctl.h>
#include <unistd.h>
#include <vector>

namespace ambrel {
namespace {

constexpr std::size_t blockBytes = 1 << 16;
constexpr std::size_t readBytes = 4 * blockBytes;

bool isZero(const unsigned char* bytes, std::size_t count) {
  return bytes[0] == 0 && std::memcmp(bytes, bytes + 1, count - 1) == 0;
}

struct FreeDigest {
  void operator()(EVP_MD* method) const { EVP_MD_free(method); }
  void operator()(EVP_MD_CTX* context) const { EVP_MD_CTX_free(context); }
};

}  // namespace

FileDescriptor openQuietly(const std::string& path) {
  constexpr int flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
  FileDescriptor file(open(path.c_str(), flags | O_NOATIME));
  // Only a file's owner may leave the date alone.
  if (!file && errno == EPERM) file = FileDescriptor(open(path.c_str(), flags));
  return file;
}

bool sharesBlocks(const FileDescriptor& file) {
  constexpr unsigned batch = 64;
  alignas(fiemap) char memory[sizeof(fiemap) + batch * sizeof(fiemap_extent)];
  std::uint64_t start = 0;
  for (;;) {
    // Field by field: clang refuses to initialise a struct with a flexible array.
    auto* map = new (memory) fiemap;
    map->fm_start = start;
    map->fm_length = FIEMAP_MAX_OFFSET - start;
    map->fm_flags = 0;
    map->fm_mapped_extents = 0;
    map->fm_extent_count = batch;
    map->fm_reserved = 0;
    if (ioctl(file.get(), FS_IOC_FIEMAP, map) != 0 || map->fm_mapped_extents == 0) return false;
    for (unsigned i = 0; i < map->fm_mapped_extents; ++i) {
      const fiemap_extent& extent = map->fm_extents[i];
      if (extent.fe_flags & FIEMAP_EXTENT_SHARED) return true;
      if (extent.fe_flags & FIEMAP_EXTENT_LAST) return false;
      start = extent.fe_logical + extent.fe_length;
    }
  }
}

bool readFully(const FileDescriptor& file, void* bytes, std::size_t count, std::uint64_t from) {
  auto* place = static_cast<char*>(bytes);
  while (count > 0) {
    const ssize_t read = pread(file.get(), place, count, static_cast<off_t>(from));
    if (read < 0 && errno == EINTR) continue;
    if (read <= 0) return false;
    place += read;
    from += static_cast<std::uint64_t>(read);
    count -= static_cast<std::size_t>(read);
  }
  return true;
}

struct ContentHasher::State {
  std::unique_ptr<EVP_MD, FreeDigest> method{EVP_MD_fetch(nullptr, "SHA256", nullptr)};
  std::unique_ptr<EVP_MD_CTX, FreeDigest> context{EVP_MD_CTX_new()};
  std::unique_ptr<unsigned char[]> buffer{new unsigned char[readBytes]};

  bool add(const void* bytes, std::size_t count) { return EVP_DigestUpdate(context.get(), bytes, count) == 1; }

  bool addChunk(const unsigned char* bytes, std::size_t count, std::uint64_t place) {
    while (count > 0) {
      const std::size_t length = std::min(count, blockBytes);
      if (!isZero(bytes, length) && !(add(&place, sizeof place) && add(bytes, length))) return false;
      bytes += length;
      place += length;
      count -= length;
    }
    return true;
  }
};

ContentHasher::ContentHasher() : state_(std::make_unique<State>()) {}
ContentHasher::~ContentHasher() = default;
ContentHasher::ContentHasher(ContentHasher&&) noexcept = default;

std::optional<Digest> ContentHasher::digest(const FileDescriptor& file, std::uint64_t from, std::uint64_t to,
                                            bool mayHaveHoles, const std::function<void(std::int64_t)>& read) {
  State& state = *state_;
  if (!state.method || EVP_DigestInit_ex2(state.context.get(), state.method.get(), nullptr) != 1) return std::nullopt;
  const std::uint64_t bounds[] = {from, to};
  if (!state.add(bounds, sizeof bounds)) return std::nullopt;
  for (std::uint64_t at = from; at < to;) {
    if (mayHaveHoles) {
      const off_t data = lseek(file.get(), static_cast<off_t>(at), SEEK_DATA);
      if (data < 0 && errno == ENXIO) break;
      if (data >= 0) at += (static_cast<std::uint64_t>(data) - at) / blockBytes * blockBytes;
      if (at >= to) break;
    }
    const std::size_t wanted = std::min<std::uint64_t>(to - at, readBytes);
    if (!readFully(file, state.buffer.get(), wanted, at) || !state.addChunk(state.buffer.get(), wanted, at))
      return std::nullopt;
    if (read) read(static_cast<std::int64_t>(wanted));
    at += wanted;
  }
  Digest digest;
  unsigned length = 0;
  if (EVP_DigestFinal_ex(state.context.get(), digest.data(), &length) != 1) return std::nullopt;
  return digest;
}

}  // namespace ambrel
