#include "core/clipboard/ClipboardJSON.h"

#include "core/base/JSON.h"

namespace ambrel {
namespace {

// A key that may be missing; one of another type is an error.
std::optional<std::string> optionalText(const JSON& json, const char* key) {
  const auto found = json.find(key);
  if (found == json.end() || found->is_null()) return std::nullopt;
  return found->get<std::string>();
}

// The elements of an array that is a member of the document, as prettyJSON indents them.
template <typename Record>
void appendElements(std::string& out, const std::vector<Record>& records) {
  out += '[';
  for (const Record& record : records) {
    out += &record == &records.front() ? "\n" : ",\n";
    const std::string text = prettyJSON(JSON(record));
    // A newline inside of a text is escaped, so that each of these ends a line.
    for (std::size_t begin = 0, end = 0; begin < text.size(); begin = end + 1) {
      end = text.find('\n', begin);
      if (begin > 0) out += '\n';
      out.append("    ").append(text, begin, end - begin);
    }
  }
  out += records.empty() ? "]" : "\n  ]";
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

std::string fileText(const ClipboardLibrary& library) {
  // A text that grows is in memory three times while it moves to a larger place.
  constexpr std::size_t besidesText = 320;
  std::size_t length = 0;
  for (const ClipItem& item : library.items) length += besidesText + (item.text ? item.text->size() : 0);
  std::string out;
  out.reserve(length + length / 16);
  out += "{\n  \"collections\": ";
  appendElements(out, library.collections);
  out += ",\n  \"items\": ";
  appendElements(out, library.items);
  return out += "\n}\n";
}

void from_json(const JSON& json, ClipboardLibrary& library) {
  library = {.items = json.at("items").get<std::vector<ClipItem>>(),
             .collections = json.at("collections").get<std::vector<ClipCollection>>()};
}

}  // namespace ambrel
