#pragma once
// A short list that the user edits: to-dos, snippets, bookmarks. The edits, what undoes a removal, the document, and
// how the edits of two programs come together.

#include <string>
#include <string_view>
#include <vector>

#include "core/base/UUID.h"
#include "core/stores/SharedFile.h"

namespace ambrel {

struct ListEntry {
  UUID id;
  std::string title;
  std::string text;     // a snippet's text, a bookmark's address
  bool isDone = false;  // of a to-do
  std::string others;   // fields of the document that we do not know, as a JSON object; empty without any
  friend bool operator==(const ListEntry&, const ListEntry&) = default;
};
using Entries = std::vector<ListEntry>;

// What was removed, each with the place that it had.
struct RemovedEntry {
  std::size_t place = 0;
  ListEntry entry;
  friend bool operator==(const RemovedEntry&, const RemovedEntry&) = default;
};
using Removal = std::vector<RemovedEntry>;

// Null without such an entry.
const ListEntry* findEntry(const Entries& entries, const UUID& id);
ListEntry* findEntry(Entries& entries, const UUID& id);
Removal removeEntry(Entries& entries, const UUID& id);
Removal removeDone(Entries& entries);
// Puts them back to their places; one that is there again by other means stays where it is.
void restore(Entries& entries, const Removal& removal);
// By so many places, downwards if positive, at most to the end. Says whether it has moved.
bool moveEntry(Entries& entries, const UUID& id, int places);

// `mine` and `theirs` have both come out of `base`. An entry that one side has added stays; one that one side has
// removed goes, unless the other has edited it; where both have edited one, mine counts. The order is theirs, unless
// only I have changed it.
Entries merged(const Entries& base, const Entries& mine, const Entries& theirs);

// Which fields a document has besides "id" and "title".
enum class ListKind {
  todos,      // "isDone"
  snippets,   // "text"
  bookmarks,  // "url"
};

// An array of objects. An entry without an identifier, or with that of an earlier one, gets a new one.
class SharedEntries : public SharedFile {
 public:
  SharedEntries(ListKind kind, std::filesystem::path path) : SharedFile(std::move(path)), kind_(kind) {}

  ListKind kind() const { return kind_; }
  const Entries& entries() const { return entries_; }
  // For changes, which `save` writes.
  Entries& edit() { return entries_; }
  bool isChanged() const override { return entries_ != stored_; }

 private:
  Loss take(std::string_view bytes) override;
  std::string bytes() const override;
  void written() override { stored_ = entries_; }

  ListKind kind_;
  Entries entries_, stored_;
};

}  // namespace ambrel
