#pragma once
// Plain words about a scan, and the move to the Trash with its last guard. Works without any language model.

#include <functional>
#include <string>
#include <vector>

#include "core/base/Calendar.h"
#include "core/disk/Findings.h"

namespace ambrel::DiskAdvice {

// "Mostly Developer junk and Duplicates": the two largest groups.
std::string headline(const std::vector<DiskFinding>& findings);
// A block of sentences.
std::string summary(const DiskItem& root, const std::vector<DiskFinding>& findings, const Calendar& calendar);
// "Duplicate files 3 items, 1.2 GB. Look at the list before you move them."
std::string findingLine(FindingRule rule, std::size_t count, std::int64_t bytes, const Calendar& calendar);
// The answer to "Is it safe to delete this?"
std::string verdict(const DiskItem& item, const std::vector<DiskFinding>& findings, const std::string& home,
                    Instant now, const Calendar& calendar);

// The movable bytes among the findings.
std::int64_t freeableBytes(const std::vector<DiskFinding>& findings);

// Whether a path is one that never moves as a whole: the root, the home and what it lies in, the home's own folders,
// the folders that no scan enters. Judged by spelling, with "." and ".." and slashes resolved, and by what the
// system says the path leads to, so that links and other spellings of the same folder count too.
bool isMainFolder(const std::string& url, const std::string& home);

// One file or folder to move, and what it must still be at that instant.
struct TrashRequest {
  std::string url;
  FileIdentity identity;
  // With the contents of a folder: that folder.
  std::optional<FileIdentity> folder = {};
};

struct TrashReport {
  std::vector<CleanupItem> moved, failed;
  // What really went, in bytes on disk at the act; with the parts of failed items that went.
  std::int64_t bytesMoved = 0;
  friend bool operator==(const TrashReport&, const TrashReport&) = default;
};

// Moves one thing to the Trash, or throws and leaves it.
using TrashMove = std::function<void(const TrashRequest&)>;

// Moves the items in order. An item stays, and is reported as failed, when it is a main folder or has changed since it
// was found: another file, other dates, another size, or the copy that was to be kept is not what it was.
// `bytes` of a moved item is what it took at the act.
TrashReport moveToTrash(const std::vector<CleanupItem>& items, const std::string& home, const TrashMove& move);

// What a move came to, in words: "Moved 1.2 GB to the Trash", and how to take it back or what stayed.
struct TrashMessage {
  std::string title, body;
  bool isMoved = false;  // anything at all
  friend bool operator==(const TrashMessage&, const TrashMessage&) = default;
};
TrashMessage message(const TrashReport& report, const Calendar& calendar);

}  // namespace ambrel::DiskAdvice
