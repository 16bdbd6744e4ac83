#include "core/clipboard/LibraryChange.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "core/base/JSON.h"
#include "core/base/Overloaded.h"

namespace ambrel {

LibraryChange LibraryChange::put(const ClipItem& item) {
  LibraryChange change;
  change.value.emplace<Put>().item = item;
  return change;
}

LibraryChange LibraryChange::drop(std::span<const ClipItem> items) {
  LibraryChange change;
  auto& ids = change.value.emplace<Drop>().ids;
  for (const ClipItem& item : items) ids.push_back(item.id);
  return change;
}

LibraryChange LibraryChange::mark(const ClipItem& item) {
  LibraryChange change;
  auto& mark = change.value.emplace<Mark>();
  mark.id = item.id;
  mark.isPinned = item.isPinned;
  mark.collectionIDs = item.collectionIDs;
  return change;
}

void carryOut(std::vector<LibraryChange> changes, ClipboardLibrary& library) {
  // Newest last, so that a new one costs no move of the others; a removed one leaves a gap.
  std::vector<std::optional<ClipItem>> items;
  std::unordered_map<UUID, std::size_t> positions;
  const auto put = [&](ClipItem item) {
    positions[item.id] = items.size();
    items.emplace_back(std::move(item));
  };
  const auto take = [&](const UUID& id) {
    const auto found = positions.find(id);
    if (found == positions.end()) return;
    items[found->second].reset();
    positions.erase(found);
  };
  std::ranges::for_each(library.items.rbegin(), library.items.rend(), [&](ClipItem& item) { put(std::move(item)); });
  for (LibraryChange& change : changes)
    std::visit(Overloaded{
                   [&](LibraryChange::Put& one) {
                     take(one.item.id);
                     put(std::move(one.item));
                   },
                   [&](const LibraryChange::Drop& one) { std::ranges::for_each(one.ids, take); },
                   [&](LibraryChange::Mark& one) {
                     const auto found = positions.find(one.id);
                     if (found == positions.end()) return;
                     items[found->second]->isPinned = one.isPinned;
                     items[found->second]->collectionIDs = std::move(one.collectionIDs);
                   },
               },
               change.value);
  library.items.clear();
  for (auto item = items.rbegin(); item != items.rend(); ++item)
    if (*item) library.items.push_back(std::move(**item));
}

std::string journalLine(const LibraryChange& change) {
  const JSON json = std::visit(
      Overloaded{
          [](const LibraryChange::Put& put) {
            return JSON{{"put", put.item}};
          },
          [](const LibraryChange::Drop& drop) {
            return JSON{{"drop", drop.ids}};
          },
          [](const LibraryChange::Mark& mark) {
            return JSON{{"mark", mark.id}, {"isPinned", mark.isPinned}, {"collectionIDs", mark.collectionIDs}};
          },
      },
      change.value);
  return compactJSON(json) + '\n';
}

std::optional<LibraryChange> parseJournalLine(std::string_view line) {
  const auto json = parseJSON(line);
  if (!json || !json->is_object()) return std::nullopt;
  try {
    LibraryChange change;
    if (json->contains("put")) {
      json->at("put").get_to(change.value.emplace<LibraryChange::Put>().item);
    } else if (json->contains("drop")) {
      json->at("drop").get_to(change.value.emplace<LibraryChange::Drop>().ids);
    } else {
      auto& mark = change.value.emplace<LibraryChange::Mark>();
      json->at("mark").get_to(mark.id);
      json->at("isPinned").get_to(mark.isPinned);
      json->at("collectionIDs").get_to(mark.collectionIDs);
    }
    return change;
  } catch (const nlohmann::json::exception&) {
    return std::nullopt;
  } catch (const DecodingError&) {
    return std::nullopt;
  }
}

}  // namespace ambrel
