#pragma once
// Reads calendars from folders and files. What was read is kept, so that a change of one file parses one file.

#include <filesystem>
#include <string>
#include <unordered_map>

#include "core/base/Files.h"
#include "core/calendar.h"

namespace ambrel {

// A calendar of a service: its components as text. `version` differs whenever the text does.
struct ServedCalendar {
  std::string id, name;
  std::shared_ptr<const std::string> text;
  std::uint64_t version = 0;
  friend bool operator==(const ServedCalendar&, const ServedCalendar&) = default;
};

// A folder, with calendars in itself or below, or a single file.
struct CalendarPlace {
  std::filesystem::path path;
  std::string name = {};   // of a file; empty: its own
  std::string shown = {};  // where the calendar is, for people; empty: the path
  friend bool operator==(const CalendarPlace&, const CalendarPlace&) = default;
};

struct CalendarQuestion {
  std::vector<CalendarPlace> places;
  std::vector<ServedCalendar> served;
  std::set<std::string> hidden;        // names of calendars that are not to be shown
  std::set<std::string> ownAddresses;  // in lower case
  TimeWindow window;
  Calendar user;
  Instant now;
  // That alone may have changed since the last reading; absent: anything may have.
  std::optional<std::vector<std::filesystem::path>> changed = std::nullopt;
};

// What the settings list: a calendar, or a place that has none.
struct CalendarSource {
  std::string name;
  std::string place;  // its folder, file or address; of a service: empty
  int events = 0, tasks = 0;
  bool isHidden = false;
  std::string problem;  // why there is nothing of it: "There is no such file or folder"; empty when all is well
  friend bool operator==(const CalendarSource&, const CalendarSource&) = default;
};

struct CalendarReading {
  CalendarBook book;
  std::vector<CalendarSource> sources;  // in the order of the places
};

// Not for use from several threads at once.
class CalendarReader {
 public:
  static constexpr std::uint64_t largestFile = 32 << 20;
  static constexpr int deepestFolder = 3;  // levels below a place
  static constexpr std::size_t mostFiles = 50'000;

  CalendarReading read(const CalendarQuestion& question);

 private:
  struct Entry {
    FileStatus status;
    std::uint64_t version = 0;
    bool isSettled = false;  // nothing can have been written since without another date
    std::string calendar, problem;
    std::shared_ptr<const CalendarFile> file;
    std::uint64_t look = 0;
    std::size_t source = 0;         // of `sources_`
    std::optional<std::size_t> at;  // of `files_`, unless its calendar is hidden
  };
  struct Pass;

  bool isSameQuestion(const CalendarQuestion& question) const;
  // False where more has to be looked at than the files that have changed.
  bool readChanged(const CalendarQuestion& question);
  void readAll(const CalendarQuestion& question);
  void readFile(Pass& pass, const std::filesystem::path& file, const std::string& calendar, const std::string& place);
  void readFolder(Pass& pass, const std::filesystem::path& folder, int level);
  void parse(Entry& entry, const std::filesystem::path& file, const FileStatus& status,
             const CalendarQuestion& question);
  void take(Pass& pass, Entry& entry, const std::string& place);

  std::unordered_map<std::string, Entry> entries_;
  // The last question and its answer.
  std::optional<CalendarQuestion> question_;
  std::vector<CalendarSource> sources_;
  std::vector<std::shared_ptr<const CalendarFile>> files_;
  std::uint64_t look_ = 0;
};

}  // namespace ambrel
