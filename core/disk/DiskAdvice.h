#pragma once
// Plain words about a scan, and the move to the Trash with its last guard. Works without any language model.

#include <functional>
#include <stdexcept>
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
// The same of a finding. One with items that need more care than its rule asks for is not called safe.
std::string findingLine(const DiskFinding& finding, const Calendar& calendar);
// The answer to "Is it safe to delete this?"
std::string verdict(const DiskItem& item, const std::vector<DiskFinding>& findings, const std::string& home,
                    Instant now, const Calendar& calendar);

// The movable bytes among the findings.
std::int64_t freeableBytes(const std::vector<DiskFinding>& findings);

// Whether a path is one that never moves as a whole: the root, the home and the folders above it, the home's own
// folders, the folders that no scan enters. Judged by spelling, with "." and ".." and slashes resolved, and by what the
// system says the path leads to, so that links and other spellings of the same folder count too.
bool isMainFolder(const std::string& url, const std::string& home);

// One file or folder to move, and what it must still be at that instant.
struct TrashRequest {
  std::string url;
  FileIdentity identity;
  // With the contents of a folder: that folder.
  std::optional<FileIdentity> folder = {};
};

// Where a thing went.
struct TrashPlace {
  std::string folder;    // the Trash, absolute
  bool isListed = true;  // file managers show what is in it, and put it back
  friend bool operator==(const TrashPlace&, const TrashPlace&) = default;
};

// Nothing has moved. Says what and why.
class TrashError : public std::runtime_error {
 public:
  TrashError(StayReason reason, const std::string& text) : std::runtime_error(text), reason_(reason) {}
  StayReason reason() const { return reason_; }

 private:
  StayReason reason_;
};

struct TrashReport {
  // `bytes` of a moved item is what it took at the act; of a failed one what is left of it, and `stayed` is set.
  std::vector<CleanupItem> moved, failed;
  // What really went, in bytes on disk at the act; with the parts of failed items that went.
  std::int64_t bytesMoved = 0;
  // The folders of Trashes that took something and that no file manager shows, each once.
  std::vector<std::string> unlisted = {};
  friend bool operator==(const TrashReport&, const TrashReport&) = default;
};

// Moves one thing to the Trash, or throws and leaves it; anything but a TrashError counts as `inUse`.
using TrashMove = std::function<TrashPlace(const TrashRequest&)>;

// The copies that stay while the items of these findings may go. Hold on to them for as long as items of the same scan
// can be moved, even after the findings that named them are gone.
std::vector<KeptCopy> keptCopies(const std::vector<DiskFinding>& findings);

// Moves the items in order. An item stays, and is reported as failed, when it is a main folder, is in a Trash, or has
// changed since it was found: another file, other dates, another size, or the copy that was to be kept is not what it
// was or was deleted. So does what is one of the `kept` copies, or holds one.
TrashReport moveToTrash(const std::vector<CleanupItem>& items, const std::string& home,
                        const std::vector<KeptCopy>& kept, const TrashMove& move);

// What a move came to, in words: "Moved 1.2 GB to the Trash", and how to take it back or what stayed.
struct TrashMessage {
  std::string title, body;
  bool isMoved = false;  // anything at all
  friend bool operator==(const TrashMessage&, const TrashMessage&) = default;
};
TrashMessage message(const TrashReport& report, const Calendar& calendar);

}  // namespace ambrel::DiskAdvice
