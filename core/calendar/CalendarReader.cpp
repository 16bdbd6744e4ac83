#include "core/calendar/CalendarReader.h"

#include <algorithm>

#include "core/base/Text.h"

namespace ambrel {
namespace {

namespace fs = std::filesystem;

// A file's date has a grain, and some disks write it late.
constexpr Seconds settling{3};

std::string nameOf(const fs::path& folder) {
  constexpr std::uint64_t longest = 4096;
  if (const auto name = readFile(folder / "displayname", longest))
    if (const auto words = trimmed(*name); !words.empty()) return repairedUTF8(words.substr(0, words.find('\n')));
  return repairedUTF8(folder.filename().string());
}

std::shared_ptr<const CalendarFile> unfolded(const CalendarQuestion& question,
                                             std::shared_ptr<const CalendarText> text) {
  auto all = occurrences(text->events, question.window, question.user);
  return std::make_shared<const CalendarFile>(CalendarFile{std::move(text), std::move(all)});
}

bool isCalendar(const fs::path& file) {
  return !file.filename().native().starts_with('.') && asciiLower(file.extension().native()) == ".ics";
}

}  // namespace

struct CalendarReader::Pass {
  const CalendarQuestion& question;
  std::vector<CalendarSource>& sources;
  bool isSameSpan = false;
  std::size_t count = 0;
  // By place and name, in `sources`.
  std::map<std::pair<std::string, std::string>, std::size_t> known{};

  std::size_t indexOf(const std::string& name, const std::string& place) {
    const auto [at, isNew] = known.emplace(std::pair(place, name), sources.size());
    if (isNew)
      sources.push_back({.name = name, .place = place, .isHidden = question.hidden.contains(name), .problem = {}});
    return at->second;
  }
  CalendarSource& source(const std::string& name, const std::string& place) { return sources[indexOf(name, place)]; }
};

CalendarReading CalendarReader::read(const CalendarQuestion& question) {
  if (!isSameQuestion(question) || !readChanged(question)) readAll(question);
  question_ = question;
  return {CalendarBook(files_, question.window), sources_};
}

bool CalendarReader::isSameQuestion(const CalendarQuestion& question) const {
  return question_ && question_->places == question.places && question_->served == question.served &&
         question_->hidden == question.hidden && question_->ownAddresses == question.ownAddresses &&
         question_->window == question.window && question_->user.zone() == question.user.zone();
}

bool CalendarReader::readChanged(const CalendarQuestion& question) {
  if (!question.changed) return false;
  for (const fs::path& file : *question.changed) {
    if (file.filename() == "displayname") return false;
    if (!isCalendar(file)) continue;
    const auto found = entries_.find(file.string());
    const auto status = fileStatus(file);
    if (found == entries_.end() || !status || !status->isRegular) return false;
    Entry& entry = found->second;
    const std::shared_ptr<const CalendarFile> before = entry.file;
    parse(entry, file, *status, question);
    if (entry.file->text->name != before->text->name) return false;
    CalendarSource& source = sources_[entry.source];
    source.events += static_cast<int>(entry.file->text->events.size()) - static_cast<int>(before->text->events.size());
    source.tasks += static_cast<int>(entry.file->text->tasks.size()) - static_cast<int>(before->text->tasks.size());
    if (source.problem != entry.problem) return false;
    if (entry.at) files_[*entry.at] = entry.file;
  }
  return true;
}

void CalendarReader::readAll(const CalendarQuestion& question) {
  ++look_;
  // By whose addresses invitations are declined is decided where they are parsed.
  if (question_ && question_->ownAddresses != question.ownAddresses) entries_.clear();
  sources_.clear();
  files_.clear();
  Pass pass{.question = question,
            .sources = sources_,
            .isSameSpan =
                question_ && question_->window == question.window && question_->user.zone() == question.user.zone()};
  for (const CalendarPlace& given : question.places) {
    const fs::path& place = given.path;
    const std::string shown = given.shown.empty() ? place.string() : given.shown;
    const auto status = fileStatus(place);
    if (!status)
      pass.source(given.name.empty() ? repairedUTF8(place.filename().string()) : given.name, shown).problem =
          "There is no such file or folder";
    else if (status->isFolder)
      readFolder(pass, place, 0);
    else
      readFile(pass, place, given.name.empty() ? repairedUTF8(place.stem().string()) : given.name, shown);
  }
  for (const ServedCalendar& served : question.served) {
    Entry& entry = entries_["\n" + served.id];
    if (!entry.file || entry.version != served.version || entry.calendar != served.name) {
      entry.version = served.version;
      entry.calendar = served.name;
      entry.file = unfolded(question, std::make_shared<const CalendarText>(
                                          parseCalendar(*served.text, served.name, question.ownAddresses)));
    } else if (!pass.isSameSpan) {
      entry.file = unfolded(question, entry.file->text);
    }
    take(pass, entry, {});
  }
  std::erase_if(entries_, [this](const auto& entry) { return entry.second.look != look_; });
}

void CalendarReader::readFolder(Pass& pass, const fs::path& folder, int level) {
  std::vector<fs::path> files, folders;
  std::error_code error;
  for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
    const fs::path& path = at->path();
    std::error_code unknown;
    if (at->is_directory(unknown)) {
      if (!path.filename().native().starts_with('.')) folders.push_back(path);
    } else if (isCalendar(path)) {
      files.push_back(path);
    }
  }
  std::ranges::sort(folders);
  if (!files.empty()) {
    const std::string name = nameOf(folder);
    for (const fs::path& file : files) readFile(pass, file, name, folder.string());
  }
  if (level < deepestFolder)
    for (const fs::path& below : folders) readFolder(pass, below, level + 1);
  if (level == 0 && error) pass.source(nameOf(folder), folder.string()).problem = "The folder cannot be read";
}

void CalendarReader::readFile(Pass& pass, const fs::path& file, const std::string& calendar, const std::string& place) {
  if (++pass.count > mostFiles) {
    pass.source(calendar, place).problem = "There are too many files";
    return;
  }
  const auto status = fileStatus(file);
  if (!status || !status->isRegular) return;
  Entry& entry = entries_[file.string()];
  const bool isSame = entry.isSettled && entry.status == *status && entry.calendar == calendar;
  entry.calendar = calendar;
  if (!isSame)
    parse(entry, file, *status, pass.question);
  else if (!pass.isSameSpan)
    entry.file = unfolded(pass.question, entry.file->text);
  take(pass, entry, place);
}

void CalendarReader::parse(Entry& entry, const fs::path& file, const FileStatus& status,
                           const CalendarQuestion& question) {
  entry.status = status;
  entry.isSettled = secondsBetween(status.modified, question.now) > settling;
  entry.problem.clear();
  const auto bytes = ambrel::readFile(file, largestFile);
  if (!bytes) entry.problem = status.size > largestFile ? "The file is too large" : "The file cannot be read";
  entry.file = unfolded(question, std::make_shared<const CalendarText>(
                                      parseCalendar(bytes.value_or(""), entry.calendar, question.ownAddresses)));
}

void CalendarReader::take(Pass& pass, Entry& entry, const std::string& place) {
  entry.look = look_;
  const CalendarText& text = *entry.file->text;
  entry.source = pass.indexOf(text.name.empty() ? entry.calendar : text.name, place);
  CalendarSource& source = sources_[entry.source];
  source.events += static_cast<int>(text.events.size());
  source.tasks += static_cast<int>(text.tasks.size());
  if (!entry.problem.empty()) source.problem = entry.problem;
  entry.at.reset();
  if (source.isHidden) return;
  entry.at = files_.size();
  files_.push_back(entry.file);
}

}  // namespace ambrel
