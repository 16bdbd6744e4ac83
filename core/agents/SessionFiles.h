#pragma once
// The log files that agents write, one JSON object a line: which of them are recent, and the records at their ends.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/base/Files.h"
#include "core/base/Instant.h"
#include "core/base/LineJSON.h"

namespace ambrel {

class FolderListings;

struct SessionFile {
  std::string path;
  Instant modified;  // whole microseconds
  // The nanoseconds below `modified`, 0 to 999. Two dates are the same when both fields are, so that a write within
  // the same microsecond still counts as a change.
  std::uint16_t modifiedRest = 0;
  std::uint64_t size = 0;

  bool hasSameDate(const SessionFile& other) const {
    return modified == other.modified && modifiedRest == other.modifiedRest;
  }
};

// The regular files named *.jsonl that changed strictly later than `since`, in the order in which the file system
// lists them. Recursive: folders first met are walked depth first, at most 64 deep, without following symbolic links
// and without entering packages (folders named *.app and the like); a folder that cannot be read is passed over.
// Opens folders only, and with `listings` only those that changed; each *.jsonl entry costs one call.
std::vector<SessionFile> recentSessionFiles(const std::filesystem::path& folder, Instant since, bool recursive,
                                            FolderListings* listings = nullptr);

// The paths of what may be a folder in a folder: folders, and links, which may lead to one. They are not asked.
std::vector<std::string> possibleFolders(const std::filesystem::path& folder, FolderListings& listings);

// "*.jsonl" with something before the dot.
bool isLogName(std::string_view name);

// The file's name without its extension, as valid UTF-8: what the tools use as the identifier of a conversation.
std::string sessionIdentifier(std::string_view path);

// The records at the end of a log. A line that is no JSON object is passed over, wherever it stands.
class RecordTail {
 public:
  RecordTail() = default;
  // isCut: the bytes begin somewhere inside the file, so that the first line of them is not to be trusted.
  RecordTail(std::string bytes, bool isCut);

  // Lines are parsed one by one, as they are asked for; `visit` returns false to stop. The object and its texts live
  // until `visit` returns.
  void eachNewestFirst(LineParser& parser, const std::function<bool(const LineObject&)>& visit) const;
  void eachOldestFirst(LineParser& parser, const std::function<bool(const LineObject&)>& visit) const;

 private:
  std::string bytes_;
  std::size_t begin_ = 0;  // where the first whole line begins
};

// How much of a log's end tells its session's state.
constexpr std::size_t sessionTailBytes = 262144;

// The records within the last `maxBytes` of the file as long as it is now: what is appended meanwhile is left for the
// next time. Empty when the file cannot be read.
RecordTail tailRecords(const FileDescriptor& file, std::size_t maxBytes);
RecordTail tailRecords(const std::filesystem::path& path, std::size_t maxBytes);

// The record on the first line; absent when that line is longer than `maxBytes` or no JSON object.
// Lives until the parser is used again.
std::optional<LineObject> firstRecord(const FileDescriptor& file, std::size_t maxBytes, LineParser& parser);

}  // namespace ambrel
