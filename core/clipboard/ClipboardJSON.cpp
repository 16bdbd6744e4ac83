#include "core/base/JSON.h"
#include "core/clipboard.h"

namespace ambrel {
namespace {

// A key that may be missing; one of another type is an error.
std::optional<std::string> optionalText(const JSON& json, const char* key) {
  const auto found = json.find(key);
  if (found == json.end() || found->is_null()) return std::nullopt;
  return found->get<std::string>();
}

}  // namespace

void to_json(JSON& json, const ClipItem& item) {
  json = {{"id", item.id},
          {"kind", nameOf(item.kind)},
          {"createdAt", item.createdAt},
          {"isPinned", item.isPinned},
          {"collectionIDs", item.collectionIDs}};
  if (item.text) json["text"] = *item.text;
  if (item.imageFileName) json["imageFileName"] = *item.imageFileName;
  if (item.sourceBundleID) json["sourceBundleID"] = *item.sourceBundleID;
}

void from_json(const JSON& json, ClipItem& item) {
  const auto& kindName = json.at("kind").get_ref<const std::string&>();
  const auto kind = fromName<ClipKind>(kindName);
  if (!kind) throw DecodingError("there is no kind of clip \"" + kindName + "\"");
  item = {.id = json.at("id").get<UUID>(),
          .kind = *kind,
          .text = optionalText(json, "text"),
          .imageFileName = optionalText(json, "imageFileName"),
          .sourceBundleID = optionalText(json, "sourceBundleID"),
          .createdAt = json.at("createdAt").get<Instant>(),
          .isPinned = json.at("isPinned").get<bool>(),
          .collectionIDs = json.at("collectionIDs").get<std::set<UUID>>()};
}

void to_json(JSON& json, const ClipCollection& collection) {
  json = {{"id", collection.id}, {"name", collection.name}};
}

void from_json(const JSON& json, ClipCollection& collection) {
  collection = {.id = json.at("id").get<UUID>(), .name = json.at("name").get<std::string>()};
}

void to_json(JSON& json, const ClipboardLibrary& library) {
  json = {{"items", library.items}, {"collections", library.collections}};
}

void from_json(const JSON& json, ClipboardLibrary& library) {
  library = {.items = json.at("items").get<std::vector<ClipItem>>(),
             .collections = json.at("collections").get<std::vector<ClipCollection>>()};
}

}  // namespace ambrel
