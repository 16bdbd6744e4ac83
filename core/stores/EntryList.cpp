#include "core/stores/EntryList.h"

#include <algorithm>
#include <set>

#include "core/base/JSON.h"

namespace ambrel {
namespace {

const char* textKey(ListKind kind) {
  switch (kind) {
    case ListKind::todos:
      return nullptr;
    case ListKind::snippets:
      return "text";
    case ListKind::bookmarks:
      return "url";
  }
  return nullptr;
}

JSON encoded(const ListEntry& entry, ListKind kind) {
  JSON json = entry.others.empty() ? JSON::object() : JSON::parse(entry.others, nullptr, false);
  json["id"] = entry.id;
  json["title"] = entry.title;
  if (const char* key = textKey(kind))
    json[key] = entry.text;
  else
    json["isDone"] = entry.isDone;
  return json;
}

// Absent when there is nothing to show.
std::optional<ListEntry> decoded(JSON json, ListKind kind) {
  if (!json.is_object()) return std::nullopt;
  ListEntry entry;
  const auto taken = [&json](const char* key) {
    auto text = stringField(json, key);
    if (text) json.erase(key);
    return text;
  };
  const auto id = UUID::parse(taken("id").value_or(""));
  entry.id = id ? *id : UUID::random();
  const auto title = taken("title");
  const char* key = textKey(kind);
  const auto text = key ? taken(key) : std::nullopt;
  if (!title && !text) return std::nullopt;
  entry.title = title.value_or("");
  entry.text = text.value_or("");
  if (const auto done = boolField(json, "isDone"); done && !key) {
    entry.isDone = *done;
    json.erase("isDone");
  }
  if (!json.empty()) entry.others = compactJSON(json);
  return entry;
}

std::vector<UUID> commonIDs(const Entries& some, const Entries& others) {
  std::vector<UUID> ids;
  for (const ListEntry& entry : some)
    if (findEntry(others, entry.id)) ids.push_back(entry.id);
  return ids;
}

// Inserts the entry behind the one that is before it in `order`, or else at the start.
void insertAsIn(const Entries& order, const ListEntry& entry, Entries& entries) {
  auto place = entries.begin();
  for (const ListEntry& before : order) {
    if (before.id == entry.id) break;
    const auto found = std::ranges::find(entries, before.id, &ListEntry::id);
    if (found != entries.end()) place = found + 1;
  }
  entries.insert(place, entry);
}

Removal removeIf(Entries& entries, const auto& isMeant) {
  Removal removal;
  for (std::size_t i = 0; i < entries.size(); ++i)
    if (isMeant(entries[i])) removal.push_back({i, entries[i]});
  std::erase_if(entries, isMeant);
  return removal;
}

}  // namespace

const ListEntry* findEntry(const Entries& entries, const UUID& id) {
  const auto found = std::ranges::find(entries, id, &ListEntry::id);
  return found == entries.end() ? nullptr : &*found;
}

ListEntry* findEntry(Entries& entries, const UUID& id) {
  const auto found = std::ranges::find(entries, id, &ListEntry::id);
  return found == entries.end() ? nullptr : &*found;
}

Removal removeEntry(Entries& entries, const UUID& id) {
  return removeIf(entries, [&](const ListEntry& entry) { return entry.id == id; });
}

Removal removeDone(Entries& entries) {
  return removeIf(entries, [](const ListEntry& entry) { return entry.isDone; });
}

void restore(Entries& entries, const Removal& removal) {
  for (const auto& [place, entry] : removal)
    if (!findEntry(entries, entry.id))
      entries.insert(entries.begin() + static_cast<std::ptrdiff_t>(std::min(place, entries.size())), entry);
}

bool moveEntry(Entries& entries, const UUID& id, int places) {
  const auto from = std::ranges::find(entries, id, &ListEntry::id);
  if (from == entries.end()) return false;
  const auto to = entries.begin() + std::clamp<std::ptrdiff_t>(from - entries.begin() + places, 0,
                                                               static_cast<std::ptrdiff_t>(entries.size()) - 1);
  if (to > from) std::rotate(from, from + 1, to + 1);
  if (to < from) std::rotate(to, from, from + 1);
  return to != from;
}

Entries merged(const Entries& base, const Entries& mine, const Entries& theirs) {
  Entries all = theirs;
  std::erase_if(all, [&](const ListEntry& entry) {
    const ListEntry* before = findEntry(base, entry.id);
    return before && !findEntry(mine, entry.id) && entry == *before;
  });
  for (const ListEntry& entry : mine) {
    const ListEntry* before = findEntry(base, entry.id);
    if (before && *before == entry) continue;
    if (ListEntry* there = findEntry(all, entry.id))
      *there = entry;
    else
      insertAsIn(mine, entry, all);
  }
  const bool isMyOrder = commonIDs(base, mine) != commonIDs(mine, base);
  const bool isTheirOrder = commonIDs(base, theirs) != commonIDs(theirs, base);
  if (!isMyOrder || isTheirOrder) return all;
  Entries ordered;
  for (const ListEntry& entry : mine)
    if (const ListEntry* here = findEntry(all, entry.id)) ordered.push_back(*here);
  for (const ListEntry& entry : all)
    if (!findEntry(ordered, entry.id)) insertAsIn(all, entry, ordered);
  return ordered;
}

SharedFile::Loss SharedEntries::take(std::string_view bytes) {
  const auto json = parseJSON(bytes);
  if (!json || !json->is_array()) return Loss::unreadable;
  Entries read;
  std::set<UUID> ids;
  for (const JSON& one : *json)
    if (auto entry = decoded(one, kind_)) {
      while (!ids.insert(entry->id).second) entry->id = UUID::random();
      read.push_back(std::move(*entry));
    }
  entries_ = isChanged() ? merged(stored_, entries_, read) : read;
  const bool isWhole = read.size() == json->size();
  stored_ = std::move(read);
  return isWhole ? Loss::none : Loss::part;
}

std::string SharedEntries::bytes() const {
  JSON json = JSON::array();
  for (const ListEntry& entry : entries_) json.push_back(encoded(entry, kind_));
  return prettyJSON(json);
}

}  // namespace ambrel
