#pragma once
// A step of the library, small enough to be written at each copy. The steps since the library was last written as a
// whole are kept in a journal beside it, a line of JSON each. Carried out on a library that has them already, in
// their order, they change nothing.

#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/clipboard.h"

namespace ambrel {

struct LibraryChange {
  // The item comes first; one of the same identity goes.
  struct Put {
    ClipItem item;
    friend bool operator==(const Put&, const Put&) = default;
  };
  struct Drop {
    std::vector<UUID> ids;
    friend bool operator==(const Drop&, const Drop&) = default;
  };
  struct Mark {
    UUID id;
    bool isPinned = false;
    std::set<UUID> collectionIDs;
    friend bool operator==(const Mark&, const Mark&) = default;
  };
  std::variant<Put, Drop, Mark> value;

  static LibraryChange put(const ClipItem& item);
  static LibraryChange drop(std::span<const ClipItem> items);
  static LibraryChange mark(const ClipItem& item);

  friend bool operator==(const LibraryChange&, const LibraryChange&) = default;
};

// Linear in both together.
void carryOut(std::vector<LibraryChange> changes, ClipboardLibrary& library);

// With the newline at its end.
std::string journalLine(const LibraryChange& change);
// Absent for a line that is not a change, such as one that a crash cut off.
std::optional<LibraryChange> parseJournalLine(std::string_view line);

}  // namespace ambrel
