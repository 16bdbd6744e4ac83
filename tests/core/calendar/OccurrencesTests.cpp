#include "tests/Matchers.h"
#include "tests/core/calendar/CalendarSample.h"

using namespace ambrel;

namespace {

std::string series(const std::string& more = {}) {
  return event(
      "UID:w\nSUMMARY:Weekly\nDTSTART;TZID=Europe/Berlin:20261005T100000\nDTEND;TZID=Europe/Berlin:20261005T110000\n"
      "RRULE:FREQ=WEEKLY\n" +
      more);
}

CalendarBook bookOf(const std::vector<std::string>& files, const TimeWindow& span = november) {
  std::vector<std::shared_ptr<const CalendarFile>> read;
  for (const std::string& components : files) {
    auto text = std::make_shared<const CalendarText>(parseCalendar(calendarOf(components), "Home", {}));
    auto found = occurrences(text->events, span, berlin);
    read.push_back(std::make_shared<const CalendarFile>(CalendarFile{std::move(text), std::move(found)}));
  }
  return {std::move(read), span};
}

std::string at10(const std::string& uid, const std::string& day, const std::string& length = "PT1H") {
  return event("UID:" + uid + "\nSUMMARY:" + uid + "\nDTSTART:" + day + "\nDURATION:" + length);
}

}  // namespace

TEST(Occurrences, KeepTheirHourWhenTheClocksChange) {
  EXPECT_THAT(told(series(), window("2026-10-19T00:00:00Z", "2026-11-03T00:00:00Z")),
              ElementsAre("2026-10-19T08:00:00Z Weekly", "2026-10-26T09:00:00Z Weekly", "2026-11-02T09:00:00Z Weekly"));
}

TEST(Occurrences, ExceptionsAndMovedOnes) {
  const std::string moved =
      event("UID:w\nSUMMARY:Later\nRECURRENCE-ID;TZID=Europe/Berlin:20261109T100000\nDTSTART:20261110T120000Z");
  const std::string cancelled =
      event("UID:w\nSUMMARY:Weekly\nSTATUS:CANCELLED\nRECURRENCE-ID:20261123T090000Z\nDTSTART:20261123T090000Z");
  EXPECT_THAT(told(moved +
                   series("EXDATE;TZID=Europe/Berlin:20261102T100000,20261130T100000\n"
                          "RDATE;TZID=Europe/Berlin:20261118T100000") +
                   cancelled),
              ElementsAre("2026-11-10T12:00:00Z Later", "2026-11-16T09:00:00Z Weekly", "2026-11-18T09:00:00Z Weekly"));
  const std::string fromThen = event(
      "UID:w\nSUMMARY:New hour\nRECURRENCE-ID;RANGE=THISANDFUTURE;TZID=Europe/Berlin:20261109T100000\n"
      "DTSTART;TZID=Europe/Berlin:20261109T140000");
  EXPECT_THAT(told(series() + fromThen), ElementsAre("2026-11-02T09:00:00Z Weekly", "2026-11-09T13:00:00Z New hour",
                                                     "2026-11-16T13:00:00Z New hour", "2026-11-23T13:00:00Z New hour",
                                                     "2026-11-30T13:00:00Z New hour"));
  EXPECT_THAT(told(moved), ElementsAre("2026-11-10T12:00:00Z Later")) << "an invitation to one of a series";
}

TEST(Occurrences, WholeDaysFollowTheUsersZone) {
  const std::string trip = event("UID:1\nSUMMARY:Trip\nDTSTART;VALUE=DATE:20261024\nDTEND;VALUE=DATE:20261026");
  const auto text = parseCalendar(calendarOf(trip), "Home", {});
  const auto days = [&](const Calendar& user) {
    const auto found = occurrences(text.events, window("2026-10-25T12:00:00Z", "2026-10-26T12:00:00Z"), user);
    return found.empty() ? std::string() : iso8601(found[0].start) + " " + iso8601(found[0].end);
  };
  EXPECT_EQ(days(berlin), "2026-10-23T22:00:00Z 2026-10-25T23:00:00Z");
  EXPECT_EQ(days(Calendar("America/Los_Angeles", "en_US")), "2026-10-24T07:00:00Z 2026-10-26T07:00:00Z");
}

TEST(CalendarBook, WhatAGlanceShows) {
  const CalendarBook book =
      bookOf({at10("long", "20261120T080000Z", "PT8H"), at10("first", "20261120T100000Z", "PT30M"),
              at10("second", "20261120T103000Z"), event("UID:d\nSUMMARY:Day\nDTSTART;VALUE=DATE:20261120")});
  const struct {
    const char* now;
    const char* next;
    const char* present;
  } table[] = {{"2026-11-20T07:00:00Z", "long", "long"},    {"2026-11-20T08:04:59Z", "first", "long"},
               {"2026-11-20T08:05:00Z", "first", "first"},  {"2026-11-20T10:00:00Z", "first", "first"},
               {"2026-11-20T10:00:01Z", "second", "first"}, {"2026-11-20T10:26:00Z", "second", "second"},
               {"2026-11-20T11:30:00Z", "", "long"},        {"2026-11-20T16:00:00Z", "", ""}};
  for (const auto& row : table) {
    SCOPED_TRACE(row.now);
    const auto title = [](const std::optional<Occurrence>& found) {
      return found ? found->event->title : std::string();
    };
    EXPECT_EQ(title(book.next(at(row.now))), row.next);
    EXPECT_EQ(title(book.present(at(row.now))), row.present);
  }
}

TEST(CalendarBook, TellsTheDaysOfEveryMonthAndWhatSeveralFilesHaveOnce) {
  const std::string daily = event("UID:a\nSUMMARY:Daily\nDTSTART:20260101T100000Z\nRRULE:FREQ=DAILY");
  const CalendarBook book = bookOf({daily, daily, event("UID:d\nSUMMARY:Day\nDTSTART;VALUE=DATE:20261120")});
  EXPECT_THAT(told(book.between(window("2026-11-19T23:00:00Z", "2026-11-20T23:00:00Z"), berlin)),
              ElementsAre("2026-11-19T23:00:00Z Day", "2026-11-20T10:00:00Z Daily"));
  EXPECT_THAT(told(book.between(window("2031-02-03T00:00:00Z", "2031-02-04T00:00:00Z"), berlin)),
              ElementsAre("2031-02-03T10:00:00Z Daily"));
}

TEST(CalendarBook, OpenTasksComeByTheirTime) {
  const auto todo = [](const std::string& uid, const std::string& lines) {
    return "BEGIN:VTODO\nUID:" + uid + "\nSUMMARY:" + uid + "\n" + lines + "\nEND:VTODO\n";
  };
  const CalendarBook book = bookOf({todo("some day", "PRIORITY:1") + todo("later", "DUE:20261122T100000Z") +
                                        todo("soon", "DUE:20261120T100000Z") + todo("done", "STATUS:COMPLETED") +
                                        todo("urgent", "DUE:20261120T100000Z\nPRIORITY:1"),
                                    todo("soon", "DUE:20261120T100000Z")});
  std::vector<std::string> titles;
  for (const CalendarTask& task : book.openTasks(berlin)) titles.push_back(task.title);
  EXPECT_THAT(titles, ElementsAre("urgent", "soon", "later", "some day"));
}
