// What a change of one file costs until the next event is known, in a calendar of ten thousand.
//
//   CalendarNext [--events 10000] [--rounds 50] [--folder FOLDER] [--keep]
//
// The folder is as vdirsyncer writes it: an event a file; seven in ten repeat, some of these with exceptions and moved
// occurrences. Processor times; ends with 1 when the budget is missed. With --keep the folder stays, for another
// program.

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fmt/format.h>
#include <fstream>
#include <string_view>
#include <time.h>
#include <unistd.h>

#include "core/calendar/CalendarReader.h"

namespace ambrel {
namespace {

namespace fs = std::filesystem;

constexpr double budget = 5e-3;  // seconds
const Instant start = instantFromUnixSeconds(1'795'262'400);

double processorSeconds() {
  timespec time = {};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

void write(const fs::path& folder, int i, std::string_view title) {
  constexpr std::string_view rules[] = {"FREQ=WEEKLY;BYDAY=MO,WE,FR",
                                        "FREQ=DAILY;INTERVAL=3",
                                        "FREQ=MONTHLY;BYDAY=2TU",
                                        "FREQ=WEEKLY;INTERVAL=2;COUNT=60",
                                        "FREQ=YEARLY;BYMONTH=11;BYMONTHDAY=20,21,22",
                                        "FREQ=MONTHLY;BYMONTHDAY=-1",
                                        "FREQ=WEEKLY;UNTIL=20281231T000000Z"};
  const int day = i % 28 + 1, hour = i % 10 + 8, kind = i % 10;
  std::string text = fmt::format(
      "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//example//EN\r\nBEGIN:VEVENT\r\nUID:event-{0}@example.org\r\n"
      "SUMMARY:{1} {0}\r\nLOCATION:Room {0}\r\nDTSTART;TZID=Europe/Berlin:2026{4:02}{2:02}T{3:02}0000\r\n"
      "DURATION:PT45M\r\nDESCRIPTION:Join at https://meet.example.org/{0}\r\n",
      i, title, day, hour, i % 12 + 1);
  if (kind < 7) text += fmt::format("RRULE:{}\r\n", rules[kind]);
  if (kind == 0) text += fmt::format("EXDATE;TZID=Europe/Berlin:20261123T{:02}0000\r\n", hour);
  text += "END:VEVENT\r\n";
  if (kind == 6)
    text += fmt::format(
        "BEGIN:VEVENT\r\nUID:event-{0}@example.org\r\nRECURRENCE-ID;TZID=Europe/Berlin:2026{3:02}{1:02}T{2:02}0000\r\n"
        "SUMMARY:Moved\r\nDTSTART;TZID=Europe/Berlin:20261124T{2:02}3000\r\nEND:VEVENT\r\n",
        i, day, hour, i % 12 + 1);
  std::ofstream(folder / fmt::format("event-{}.ics", i)) << text << "END:VCALENDAR\r\n";
}

int run(int events, int rounds, fs::path folder, bool keeps) {
  if (folder.empty()) folder = fs::temp_directory_path() / fmt::format("tilebay-bench-{}", getpid());
  const fs::path calendar = folder / "work";
  fs::create_directories(calendar);
  for (int i = 0; i < events; ++i) write(calendar, i, "Meeting");

  const Calendar user("Europe/Berlin", "en_US");
  // All but what this run writes is older than the grain of a date.
  const auto now = [] { return std::chrono::floor<std::chrono::microseconds>(std::chrono::system_clock::now()); };
  CalendarQuestion question{.places = {{folder}},
                            .served = {},
                            .hidden = {},
                            .ownAddresses = {},
                            .window = {user.startOfDay(start, -1), user.startOfDay(start, 62)},
                            .user = user,
                            .now = now() + std::chrono::hours(1)};
  CalendarReader reader;
  double before = processorSeconds();
  CalendarReading reading = reader.read(question);
  const double first = processorSeconds() - before;
  std::size_t occurrences = 0;
  for (const auto& file : reading.book.files()) occurrences += file->occurrences.size();
  fmt::print("{} files, {} occurrences in nine weeks: first reading {:.0f} ms\n", events, occurrences, first * 1e3);

  // A change of one file that the watch has named; and one that it has not, as a new file.
  const auto change = [&](bool isNamed) {
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
      const int event = round * 7 % events;
      write(calendar, event, round % 2 == 0 ? "Changed meeting" : "Meeting");
      question.changed.reset();
      if (isNamed) question.changed = {calendar / fmt::format("event-{}.ics", event)};
      before = processorSeconds();
      reading = reader.read(question);
      if (!reading.book.next(start)) std::exit(1);
      times.push_back(processorSeconds() - before);
    }
    std::ranges::sort(times);
    return times;
  };
  const std::vector<double> named = change(true), any = change(false);
  const double median = named[named.size() / 2];
  fmt::print(
      "a change of one file until the next event is known: median {:.2f} ms, longest {:.2f} ms; {:.0f} ms "
      "when all files have to be looked at; budget {:.0f} ms: {}\n",
      median * 1e3, named.back() * 1e3, any[any.size() / 2] * 1e3, budget * 1e3, median < budget ? "kept" : "MISSED");
  if (!keeps) fs::remove_all(folder);
  return median < budget ? 0 : 1;
}

}  // namespace
}  // namespace ambrel

int main(int count, char** words) {
  int events = 10000, rounds = 50;
  std::filesystem::path folder;
  bool keeps = false;
  for (int i = 1; i < count; ++i) {
    const std::string_view option = words[i];
    if (option == "--keep") keeps = true;
    if (i + 1 == count) break;
    if (option == "--events") events = std::max(1, std::atoi(words[i + 1]));
    if (option == "--rounds") rounds = std::max(1, std::atoi(words[i + 1]));
    if (option == "--folder") folder = words[i + 1];
  }
  return ambrel::run(events, rounds, folder, keeps);
}
