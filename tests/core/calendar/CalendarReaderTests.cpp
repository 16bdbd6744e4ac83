#include "core/calendar/CalendarFolders.h"
#include "core/calendar/CalendarReader.h"
#include "tests/Matchers.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/calendar/CalendarSample.h"

using namespace ambrel;

namespace {

std::string meeting(const std::string& title) {
  return calendarOf(event("UID:" + title + "\nSUMMARY:" + title + "\nDTSTART:20261120T100000Z"));
}

struct Home {
  TemporaryFolder folder;
  CalendarReader reader;
  CalendarQuestion question{.places = {CalendarPlace{folder / "calendars"}},
                            .served = {},
                            .hidden = {},
                            .ownAddresses = {},
                            .window = november,
                            .user = berlin,
                            .now = at("2040-01-01T00:00:00Z")};

  std::vector<std::string> titles() {
    std::vector<std::string> titles;
    for (const Occurrence& found : reader.read(question).book.between(november, berlin))
      titles.push_back(found.event->title);
    return titles;
  }
};

}  // namespace

TEST(CalendarReader, FollowsWhatIsWrittenAddedAndRemoved) {
  Home home;
  home.folder.write("calendars/work/a.ics", meeting("a"));
  home.folder.write("calendars/work/b.ics", meeting("b"));
  home.folder.write("calendars/work/.draft.ics", meeting("draft"));
  EXPECT_THAT(home.titles(), ElementsAre("a", "b"));
  const auto before = home.reader.read(home.question).book.files();
  home.folder.write("calendars/work/b.ics", meeting("changed"));
  home.folder.write("calendars/home/c.ics", meeting("c"));
  EXPECT_THAT(home.titles(), ElementsAre("a", "c", "changed"));
  const auto after = home.reader.read(home.question).book.files();
  EXPECT_THAT(after, Contains(AnyOf(before[0], before[1]))) << "what is the same is not read again";
  std::filesystem::remove(home.folder / "calendars/work/a.ics");
  EXPECT_THAT(home.titles(), ElementsAre("c", "changed"));
}

TEST(CalendarReader, LooksAtNothingButTheFilesThatHaveChangedWhereTheyAreKnown) {
  Home home;
  home.folder.write("calendars/work/a.ics", meeting("a"));
  home.folder.write("calendars/work/b.ics", meeting("b"));
  EXPECT_THAT(home.titles(), ElementsAre("a", "b"));
  home.folder.write("calendars/work/a.ics", meeting("unseen"));
  home.folder.write("calendars/work/b.ics", meeting("changed") + meeting("more"));
  home.question.changed = {home.folder / "calendars/work/b.ics", home.folder / "calendars/work/.b.ics.tmp"};
  EXPECT_THAT(home.titles(), ElementsAre("a", "changed", "more"));
  EXPECT_EQ(home.reader.read(home.question).sources[0].events, 3);
  home.folder.write("calendars/work/c.ics", meeting("c"));
  home.question.changed = {home.folder / "calendars/work/c.ics"};
  EXPECT_THAT(home.titles(), ElementsAre("c", "changed", "more", "unseen")) << "a new file: all are looked at";
}

TEST(CalendarReader, AFileThatWasJustWrittenIsReadAgain) {
  Home home;
  home.folder.write("calendars/a.ics", meeting("a"));
  const auto written = std::filesystem::last_write_time(home.folder / "calendars/a.ics");
  home.question.now = fileStatus(home.folder / "calendars/a.ics")->modified;
  EXPECT_THAT(home.titles(), ElementsAre("a"));
  home.folder.write("calendars/a.ics", meeting("b"));
  std::filesystem::last_write_time(home.folder / "calendars/a.ics", written);
  EXPECT_THAT(home.titles(), ElementsAre("b"));
}

TEST(CalendarReader, SaysWhatEveryCalendarHas) {
  Home home;
  home.folder.write("calendars/work/a.ics", meeting("a"));
  home.folder.write("calendars/work/displayname", "Office\n");
  home.folder.write("calendars/private/b.ics", meeting("b"));
  home.question.places.push_back({home.folder / "none.ics"});
  home.question.served = {{"eds", "Online", std::make_shared<const std::string>(meeting("s")), 1}};
  home.question.hidden = {"private"};
  EXPECT_THAT(home.titles(), ElementsAre("a", "s"));
  std::vector<std::string> lines;
  for (const CalendarSource& source : home.reader.read(home.question).sources)
    lines.push_back(source.name + (source.isHidden ? " hidden " : " ") + std::to_string(source.events) +
                    source.problem);
  EXPECT_THAT(lines,
              ElementsAre("private hidden 1", "Office 1", "none.ics 0There is no such file or folder", "Online 1"));
}

TEST(CalendarFolders, AreThoseOfTheSettingsAndTheUsualOnes) {
  TemporaryFolder folder;
  const UserHome home{folder.path(), folder / "data", folder / "config", folder / "cache"};
  EXPECT_THAT(foundCalendars(home), ElementsAre());
  folder.write("config/khal/config",
               "[calendars]\n[[work]]\n  path = ~/mine/*\n[[gone]]\npath = ~/gone\n[[all]]\npath=~/\n");
  folder.write("config/vdirsyncer/config", "[storage a]\npath = \"~/mine/work\"\n");
  folder.write("mine/work/a.ics", "");
  folder.write(".calendars/b.ics", "");
  folder.write("data/evolution/calendar/system/calendar.ics", "");
  folder.write("data/korganizer/std.ics", "");
  folder.write("data/korganizer/korganizer.rc", "");
  EXPECT_THAT(foundCalendars(home),
              ElementsAre(folder / "mine", folder / ".calendars",
                          folder / "data/evolution/calendar/system/calendar.ics", folder / "data/korganizer/std.ics"));
}
