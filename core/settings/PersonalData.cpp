#include "core/settings/PersonalData.h"

#include <algorithm>
#include <string>

#include "core/licence/Licence.h"

namespace ambrel {
namespace {

namespace fs = std::filesystem;

const PersonalData table[] = {
    {"clipboard", "Clipboard history", "What you have copied, with pictures and pinned items", {"Clipboard"}},
    {"lists",
     "Lists and notes",
     "To-dos, snippets, bookmarks, habits and the quick note",
     {"todos.json", "snippets.json", "bookmarks.json", "habits.json", "QuickNote.txt"}},
    {"agents",
     "News of AI agents",
     "When agents began to wait and were answered, and Claude's limits",
     {"agent-hooks.jsonl", "agent-hooks-earlier.jsonl", "claude-status.json"}},
    {"web",
     "Answers of web services",
     "Icons of your bookmarks' sites, news and exchange rates",
     {"Favicons", "hacker-news.json", "currency-rates.json"}},
    {"calendars",
     "Subscribed calendars",
     "Copies of the calendars that you follow by their address",
     {"calendars"},
     true},
    {"profiles", "Profiles", "Which tiles are on the bar", {"profiles.json"}},
    {"choices", "Choices and counters", "Settings, timers, moods and what the tiles have counted", {}}};

std::vector<fs::path> entriesOf(const fs::path& folder) {
  std::vector<fs::path> entries;
  std::error_code error;
  for (fs::directory_iterator each(folder, error), end; !error && each != end; each.increment(error))
    entries.push_back(each->path());
  std::ranges::sort(entries);
  return entries;
}

// "todos.json" and what was set aside of it, "todos.json.unreadable".
bool isNamed(const fs::path& entry, std::string_view name) {
  const std::string own = entry.filename().string();
  return own == name || own.starts_with(std::string(name) + ".");
}

}  // namespace

std::span<const PersonalData> personalData() { return table; }

fs::path folderOf(const PersonalData& data, const PersonalPlaces& places) {
  if (data.names.empty()) return places.defaults.parent_path();
  return data.isCopy ? places.cache : places.data;
}

std::vector<fs::path> filesOf(const PersonalData& data, const PersonalPlaces& places) {
  std::vector<fs::path> files;
  const bool areChoices = data.names.empty();
  const std::string choices = places.defaults.filename().string();
  for (fs::path& entry : entriesOf(folderOf(data, places))) {
    const bool isOurs = areChoices ? isNamed(entry, choices)
                                   : std::ranges::any_of(data.names, [&](auto name) { return isNamed(entry, name); });
    if (isOurs) files.push_back(std::move(entry));
  }
  return files;
}

std::vector<fs::path> filesOf(std::string_view id, const PersonalPlaces& places) {
  const auto data = std::ranges::find(table, id.empty() ? "choices" : id, &PersonalData::id);
  std::vector<fs::path> files = data == std::end(table) ? std::vector<fs::path>() : filesOf(*data, places);
  if (!id.empty()) return files;
  for (fs::path& entry : entriesOf(places.data))
    if (entry != licenceFile(places.data)) files.push_back(std::move(entry));
  std::ranges::move(entriesOf(places.cache), std::back_inserter(files));
  return files;
}

std::uintmax_t sizeOf(const std::vector<fs::path>& files) {
  std::uintmax_t sum = 0;
  for (const fs::path& file : files) {
    std::error_code error;
    const fs::file_status status = fs::symlink_status(file, error);
    if (fs::is_directory(status))
      sum += sizeOf(entriesOf(file));
    else if (fs::is_regular_file(status))
      if (const auto size = fs::file_size(file, error); !error) sum += size;
  }
  return sum;
}

std::vector<fs::path> deleteFiles(const std::vector<fs::path>& files) {
  std::vector<fs::path> left;
  for (const fs::path& file : files) {
    std::error_code error;
    fs::remove_all(file, error);
    if (error) left.push_back(file);
  }
  return left;
}

}  // namespace ambrel
