#include <fmt/format.h>
#include <fstream>
#include <gmock/gmock.h>
#include <sstream>

#include "core/calendar/Recurrence.h"
#include "tests/core/calendar/CalendarSample.h"

using namespace ambrel;
using namespace std::chrono;
using testing::ElementsAreArray;

namespace {

const Calendar newYork("America/New_York", "en_US");

// As the table writes them: "1997 9/2-11 10/1@0900,1030".
std::vector<std::string> expected(std::istream& words, const std::string& usualTime) {
  std::vector<std::string> times;
  int year = 0;
  for (std::string word; words >> word;) {
    int month = 0, first = 0, last = 0;
    std::string hours = usualTime;
    if (const auto mark = word.find('@'); mark != word.npos) hours = word.substr(mark + 1), word.resize(mark);
    const int fields = std::sscanf(word.c_str(), "%d/%d-%d", &month, &first, &last);
    if (fields == 1) year = month;
    for (int day = first; fields > 1 && day <= std::max(first, last); ++day) {
      std::istringstream list(hours);
      for (std::string time; std::getline(list, time, ',');)
        times.push_back(fmt::format("{:04}{:02}{:02}T{}", year, month, day, time));
    }
  }
  return times;
}

std::string inNewYork(Instant instant) {
  const auto f = newYork.fields(instant);
  return fmt::format("{:04}{:02}{:02}T{:02}{:02}", f.year, f.month, f.day, f.hour, f.minute);
}

}  // namespace

TEST(Recurrence, GivesTheTimesOfTheTable) {
  std::ifstream table(AMBREL_CASES "/calendar/recurrences.txt");
  int rows = 0;
  for (std::string line; std::getline(table, line);) {
    if (line.starts_with('#')) continue;
    ++rows;
    std::istringstream row(line);
    std::string start, rule, last, bar;
    row >> start >> bar >> rule >> bar >> last >> bar;
    SCOPED_TRACE(rule);
    const auto want = expected(row, start.substr(9, 4));
    std::vector<std::string> got;
    const auto text =
        parseCalendar(calendarOf(event("UID:1\nDTSTART;TZID=America/New_York:" + start + "\nRRULE:" + rule)), "", {});
    const Instant end =
        newYork.instant(std::stoi(last.substr(0, 4)), std::stoi(last.substr(4, 2)), std::stoi(last.substr(6)) + 1);
    for (const Occurrence& found : occurrences(text.events, {at("1996-01-01T00:00:00Z"), end}, berlin))
      got.push_back(inNewYork(found.start));
    EXPECT_THAT(got, ElementsAreArray(want));
  }
  EXPECT_EQ(rows, 42 + 69);
}

TEST(Recurrence, BeginsAtTheWindowHoweverOldTheSeriesIs) {
  RecurrenceBudget budget;
  const WallTime from = local_days(2026y / 11 / 20), to = from + days(2);
  Recurrence rule;
  rule.frequency = Recurrence::Frequency::minutely;
  rule.interval = 7;
  const auto times = recurrences(rule, local_days(1900y / 1 / 1), from, to, budget);
  ASSERT_FALSE(times.empty());
  EXPECT_GE(times.front(), from);
  EXPECT_EQ((times.front() - WallTime(local_days(1900y / 1 / 1))).count() % (7 * 60), 0);
  EXPECT_GT(budget.steps, RecurrenceBudget{}.steps - 10'000);
}

TEST(Recurrence, EndsWhenNothingCanEverMatch) {
  for (const char* rule : {"FREQ=HOURLY;BYMONTH=2;BYMONTHDAY=30", "FREQ=MINUTELY;INTERVAL=2;BYMINUTE=1;COUNT=5",
                           "FREQ=DAILY;BYMONTH=2;BYMONTHDAY=30;COUNT=3", "FREQ=YEARLY;BYWEEKNO=53;BYMONTH=6",
                           "FREQ=MONTHLY;INTERVAL=2147483647", "FREQ=SECONDLY"}) {
    SCOPED_TRACE(rule);
    const auto text =
        parseCalendar(calendarOf(event("UID:1\nDTSTART:00010102T000000Z\nRRULE:" + std::string(rule))), "", {});
    EXPECT_TRUE(occurrences(text.events, november, berlin).empty());
  }
}
