#pragma once
// A document of ours that others may edit meanwhile: the user by hand, or a second copy of the program. What both sides
// have changed is kept.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "core/base/Files.h"

namespace ambrel {

class SharedFile {
 public:
  static constexpr std::uint64_t mostBytes = 16 << 20;

  explicit SharedFile(std::filesystem::path path) : path_(std::move(path)) {}
  virtual ~SharedFile() = default;
  SharedFile(const SharedFile&) = delete;
  SharedFile& operator=(const SharedFile&) = delete;

  const std::filesystem::path& path() const { return path_; }
  // Reads the file if it is another than was read or written last. A missing file changes nothing, nor does one that
  // cannot be read. Says whether the value is another now.
  bool refresh();
  // Takes over what others have written meanwhile and writes everything; nothing if nothing is changed. A file that
  // would lose something by that is set aside first. Says whether the value is another now. Throws FileError; the
  // changes are kept in memory.
  bool save();
  // Whether the value holds what the file does not.
  virtual bool isChanged() const = 0;
  // The file as it is now cannot be read.
  bool isUnreadable() const { return loss_ == Loss::unreadable; }
  // Where the last save has kept what it could not take over.
  const std::optional<std::filesystem::path>& kept() const { return kept_; }

 protected:
  // What a file would lose when it is replaced by the value.
  enum class Loss { none, part, unreadable, rival };

  // Reads the file's bytes into the value, changes of ours included.
  virtual Loss take(std::string_view bytes) = 0;
  virtual std::string bytes() const = 0;
  // The file holds what `bytes` gave.
  virtual void written() = 0;

 private:
  std::filesystem::path path_;
  std::optional<FileStatus> seen_;  // the file that was read or written last
  std::optional<std::string> bytes_;
  Loss loss_ = Loss::none;
  std::optional<std::filesystem::path> kept_;
};

// One text. When both sides have changed it, ours stays, and the other is set aside as "<name>.other".
class SharedText : public SharedFile {
 public:
  using SharedFile::SharedFile;

  const std::string& text() const { return text_; }
  void setText(std::string text) { text_ = std::move(text); }
  bool isChanged() const override { return text_ != stored_; }

 private:
  Loss take(std::string_view bytes) override;
  std::string bytes() const override { return text_; }
  void written() override { stored_ = text_; }

  std::string text_, stored_;
};

}  // namespace ambrel
