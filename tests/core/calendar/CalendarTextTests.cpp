#include "core/calendar/MeetingLink.h"
#include "tests/Matchers.h"
#include "tests/core/calendar/CalendarSample.h"

using namespace ambrel;

TEST(CalendarText, ReadsTimesInEveryKindOfZone) {
  const std::string zone =
      "BEGIN:VTIMEZONE\nTZID:Office\n"
      "BEGIN:STANDARD\nDTSTART:16010101T030000\nRRULE:FREQ=YEARLY;BYDAY=-1SU;BYMONTH=10\n"
      "TZOFFSETFROM:+0400\nTZOFFSETTO:+0300\nEND:STANDARD\n"
      "BEGIN:DAYLIGHT\nDTSTART:16010101T020000\nRRULE:FREQ=YEARLY;BYDAY=-1SU;BYMONTH=3\n"
      "TZOFFSETFROM:+0300\nTZOFFSETTO:+0400\nEND:DAYLIGHT\nEND:VTIMEZONE\n";
  const struct {
    const char* start;
    const char* want;
  } table[] = {{":20261120T100000Z", "2026-11-20T10:00:00Z"},
               {":20261120T100000", "2026-11-20T09:00:00Z"},
               {";TZID=America/New_York:20261120T100000", "2026-11-20T15:00:00Z"},
               {";TZID=/maker.example/20211207_1/America/New_York:20261120T100000", "2026-11-20T15:00:00Z"},
               {";TZID=Eastern Standard Time:20261120T100000", "2026-11-20T15:00:00Z"},
               {";TZID=Office:20261120T100000", "2026-11-20T07:00:00Z"},
               {";TZID=Office:20260620T100000", "2026-06-20T06:00:00Z"},
               {";TZID=Nowhere:20261120T100000", "2026-11-20T09:00:00Z"},
               {";VALUE=DATE:20261120", "2026-11-19T23:00:00Z"}};
  for (const auto& row : table) {
    SCOPED_TRACE(row.start);
    EXPECT_THAT(told(zone + event(std::string("UID:1\nSUMMARY:A\nDTSTART") + row.start),
                     window("2026-01-01T00:00:00Z", "2027-01-01T00:00:00Z")),
                ElementsAre(std::string(row.want) + " A"));
  }
}

TEST(CalendarText, OneBrokenComponentSpoilsNoOther) {
  const std::string good = event("UID:1\nSUMMARY:Good\nDTSTART:20261120T100000Z");
  for (const std::string& bad :
       {std::string("BEGIN:VEVENT\nSUMMARY:Cut\nDTSTART:20261119T100000Z\n"), event("UID:2\nSUMMARY:No start"),
        event("UID:2\nDTSTART:20261345T990000Z"), event("UID:2\nDTSTART;VALUE=TEXT:soon\nRRULE;VALUE=TEXT:often"),
        std::string("END:VEVENT\nEND:VCALENDAR\n"), std::string("\xFF\xFE:;=\n"),
        event("UID:2\nDTSTART:\nSUMMARY;=:\nRRULE:\nEXDATE:\nDURATION:x")}) {
    SCOPED_TRACE(bad);
    EXPECT_THAT(told(bad + good), ElementsAre("2026-11-20T10:00:00Z Good"));
  }
  std::string deep;
  for (int i = 0; i < 200'000; ++i) deep += "BEGIN:VALARM\n";
  EXPECT_THAT(told("BEGIN:VEVENT\n" + deep + good), ElementsAre("2026-11-20T10:00:00Z Good"));
}

TEST(CalendarText, WhatIsCancelledOrDeclinedIsGone) {
  const std::string start = "UID:1\nSUMMARY:A\nDTSTART:20261120T100000Z\n";
  const auto count = [&](const std::string& lines, const std::set<std::string>& own,
                         const std::string& calendar = "Home") {
    return occurrences(parseCalendar(calendarOf(event(start + lines)), calendar, own).events, november, berlin).size();
  };
  const std::string declined =
      "ATTENDEE;PARTSTAT=DECLINED:mailto:Me@Example.org\nATTENDEE;PARTSTAT=ACCEPTED:mailto:b@example.org";
  EXPECT_EQ(count("STATUS:CANCELLED", {}), 0U);
  EXPECT_EQ(count(declined, {}), 1U);
  EXPECT_EQ(count(declined, {"b@example.org"}), 1U);
  EXPECT_EQ(count(declined, {"me@example.org"}), 0U);
  EXPECT_EQ(count(declined, {}, "me@example.org"), 0U) << "the calendar bears its owner's address";
}

TEST(CalendarText, ReadsTasks) {
  const auto text = parseCalendar(
      calendarOf("BEGIN:VTODO\nUID:1\nSUMMARY:Call the bank\\, today\nDUE;VALUE=DATE:20261121\nPRIORITY:1\nEND:VTODO\n"
                 "BEGIN:VTODO\nUID:2\nSUMMARY:Done\nSTATUS:COMPLETED\nEND:VTODO\n"
                 "BEGIN:VTODO\nUID:3\nSUMMARY:Half\nPERCENT-COMPLETE:50\nEND:VTODO\n"),
      "Tasks", {});
  ASSERT_EQ(text.tasks.size(), 3U);
  EXPECT_EQ(text.tasks[0].title, "Call the bank, today");
  EXPECT_EQ(text.tasks[0].due->instant(berlin), at("2026-11-20T23:00:00Z"));
  EXPECT_TRUE(text.tasks[1].isDone);
  EXPECT_FALSE(text.tasks[2].isDone);
}

TEST(MeetingLink, IsFoundWhereCalendarsPutIt) {
  const struct {
    LinkSources sources;
    const char* want;
  } table[] = {
      {{{"https://meet.example/abc"}, "https://event.example", "https://zoom.us/j/1", {}}, "https://meet.example/abc"},
      {{{}, "https://event.example/1", "Room 4, https://us02web.zoom.us/j/1?pwd=a.", {}},
       "https://us02web.zoom.us/j/1?pwd=a"},
      {{{}, "https://event.example/1", "Room 4", "Join: <https://teams.microsoft.com/l/meetup-join/19%3a>"},
       "https://teams.microsoft.com/l/meetup-join/19%3a"},
      {{{}, "https://event.example/1", "Room 4", "Agenda: https://docs.example/x"}, "https://event.example/1"},
      {{{}, {}, "https://place.example", {}}, "https://place.example"},
      {{{}, {}, {}, "Unsubscribe: https://mail.example/u"}, ""},
      {{{"tel:+49-30-1"}, "javascript:alert(1)", "file:///etc/passwd zoommtg://zoom.us/join", {}}, ""},
      {{{}, {}, "https://zoom.us@evil.example/j/1", {}}, ""},
      {{{}, {}, {}, "<a href=\"https://meet.example/a?b=1&amp;c=2\">join</a>"}, "https://meet.example/a?b=1&c=2"}};
  for (const auto& row : table) EXPECT_EQ(meetingLink(row.sources), row.want);
}
