#include <algorithm>
#include <libical/ical.h>
#include <unicode/timezone.h>
#include <utility>

#include "core/base/Text.h"
#include "core/calendar.h"
#include "core/calendar/CalendarPieces.h"
#include "core/calendar/MeetingLink.h"

namespace ambrel {
namespace {

using namespace std::chrono;

constexpr days longestEvent{3660};

struct Freed {
  void operator()(icalcomponent* component) const { icalcomponent_free(component); }
};
using Component = std::unique_ptr<icalcomponent, Freed>;

Component parsed(const std::string& text) { return Component(icalparser_parse_string(text.c_str())); }

std::string textOf(const char* text) { return text ? repairedUTF8(trimmed(text)) : std::string(); }

// A property's value without the escapes of its text.
std::string valueOf(icalproperty* property) {
  icalvalue* value = icalproperty_get_value(property);
  if (!value) return {};
  if (icalvalue_isa(value) == ICAL_TEXT_VALUE) return textOf(icalvalue_get_text(value));
  return textOf(icalproperty_get_value_as_string(property));
}

std::string zoneName(icalproperty* property) {
  icalparameter* zone = icalproperty_get_first_parameter(property, ICAL_TZID_PARAMETER);
  return zone ? textOf(icalparameter_get_tzid(zone)) : std::string();
}

std::optional<WallTime> wallTimeOf(const icaltimetype& time) {
  if (icaltime_is_null_time(time)) return std::nullopt;
  const year_month_day date(year(time.year), month(static_cast<unsigned>(time.month)),
                            day(static_cast<unsigned>(time.day)));
  if (!date.ok() || time.year < 1 || time.year > 9999) return std::nullopt;
  const WallTime start = local_days(date);
  return time.is_date ? start : start + hours(time.hour) + minutes(time.minute) + seconds(time.second);
}

// Names that calendars give to zones: those of the IANA, alone or behind a maker's path, and those of Windows.
std::optional<Calendar> namedZone(const std::string& name) {
  const auto known = [](const std::string& candidate) -> std::optional<Calendar> {
    const Calendar calendar(candidate, "");
    constexpr std::string_view names[] = {"UTC", "Etc/UTC", "GMT", "Etc/GMT"};
    if (calendar.zone() == "UTC" && std::ranges::find(names, candidate) == std::end(names)) return std::nullopt;
    return calendar;
  };
  if (name.empty()) return std::nullopt;
  for (std::string_view rest = name; !rest.empty();) {
    if (rest.front() != '/')
      if (auto zone = known(std::string(rest))) return zone;
    const auto slash = rest.find('/');
    rest.remove_prefix(slash == rest.npos ? rest.size() : slash + 1);
  }
  if (asciiLower(name).ends_with("utc")) return Calendar("UTC", "");
  UErrorCode error = U_ZERO_ERROR;
  icu::UnicodeString found;
  icu::TimeZone::getIDForWindowsID(icu::UnicodeString::fromUTF8(name), nullptr, found, error);
  if (U_FAILURE(error) || found.isEmpty()) return std::nullopt;
  std::string id;
  return known(found.toUTF8String(id));
}

class Reader {
 public:
  Reader(std::string calendar, const std::set<std::string>& ownAddresses)
      : calendar_(std::move(calendar)), own_(ownAddresses) {}

  CalendarText read(std::string_view bytes) {
    const CalendarPieces pieces = calendarPieces(bytes);
    CalendarText text;
    text.name = repairedUTF8(pieces.name);
    if (!text.name.empty()) calendar_ = text.name;
    // A calendar is often called by its owner's address.
    if (calendar_.find('@') != calendar_.npos) own_.insert(asciiLower(calendar_));
    for (const auto& piece : pieces.pieces)
      if (piece.kind == "VTIMEZONE") writtenZones_.push_back(piece.text);
    for (const auto& piece : pieces.pieces) {
      if (piece.kind == "VTIMEZONE") continue;
      const Component component = parsed(piece.text);
      if (!component) continue;
      if (piece.kind == "VEVENT")
        readEvent(component.get());
      else
        readTask(component.get(), text.tasks);
    }
    gather(text.events);
    return text;
  }

 private:
  struct Read {
    EventSeries series;
    std::optional<EventTime> of;  // the occurrence whose place it takes
    bool andLater = false;
    int sequence = 0;
  };

  EventZone zone(const std::string& name) {
    if (name.empty()) return {};
    if (const auto known = zones_.find(name); known != zones_.end()) return known->second;
    EventZone zone;
    if (auto named = namedZone(name))
      zone = std::move(*named);
    else if (auto written = writtenZone(name))
      zone = std::move(written);
    zones_.emplace(name, zone);
    return zone;
  }

  std::shared_ptr<const WrittenZone> writtenZone(const std::string& name) {
    for (const std::string& text : writtenZones_) {
      const Component component = parsed(text);
      if (!component) continue;
      icalproperty* id = icalcomponent_get_first_property(component.get(), ICAL_TZID_PROPERTY);
      if (!id || valueOf(id) != name) continue;
      WrittenZone zone;
      for (const auto kind : {ICAL_XSTANDARD_COMPONENT, ICAL_XDAYLIGHT_COMPONENT})
        for (icalcomponent* part = icalcomponent_get_first_component(component.get(), kind); part;
             part = icalcomponent_get_next_component(component.get(), kind))
          addChanges(part, zone.changes);
      std::ranges::stable_sort(zone.changes, {}, &WrittenZone::Change::at);
      return zone.changes.empty() ? nullptr : std::make_shared<const WrittenZone>(std::move(zone));
    }
    return nullptr;
  }

  void addChanges(icalcomponent* part, std::vector<WrittenZone::Change>& changes) {
    icalproperty* from = icalcomponent_get_first_property(part, ICAL_TZOFFSETFROM_PROPERTY);
    icalproperty* to = icalcomponent_get_first_property(part, ICAL_TZOFFSETTO_PROPERTY);
    const auto start = wallTimeOf(icalcomponent_get_dtstart(part));
    if (!from || !to || !start) return;
    const seconds before(icalproperty_get_tzoffsetfrom(from)), after(icalproperty_get_tzoffsetto(to));
    constexpr seconds most = days(1);
    if (before > most || before < -most || after > most || after < -most) return;
    constexpr WallTime first = local_days(1970y / January / 1), last = local_days(2100y / January / 1);
    changes.push_back({*start, before, after});
    for (icalproperty* rule = icalcomponent_get_first_property(part, ICAL_RRULE_PROPERTY); rule;
         rule = icalcomponent_get_next_property(part, ICAL_RRULE_PROPERTY)) {
      if (!isRule(rule)) continue;
      auto recurrence = recurrenceOf(icalproperty_get_rrule(rule), [&](const icaltimetype& until) {
        const auto time = wallTimeOf(until);
        return time && icaltime_is_utc(until) ? std::optional(*time + before) : time;
      });
      if (!recurrence || recurrence->frequency < Recurrence::Frequency::monthly) continue;
      for (const WallTime time : recurrences(*recurrence, *start, std::max(first, *start), last, budget_))
        if (time != *start) changes.push_back({time, before, after});
    }
    for (icalproperty* date = icalcomponent_get_first_property(part, ICAL_RDATE_PROPERTY); date;
         date = icalcomponent_get_next_property(part, ICAL_RDATE_PROPERTY))
      if (const auto time = wallTimeOf(icalproperty_get_rdate(date).time)) changes.push_back({*time, before, after});
  }

  std::optional<EventTime> timeOf(icalproperty* property, const icaltimetype& time) {
    const auto wall = wallTimeOf(time);
    if (!wall) return std::nullopt;
    if (time.is_date) return EventTime{*wall, true, {}};
    if (icaltime_is_utc(time)) return EventTime{*wall, false, utc_};
    return EventTime{*wall, false, zone(zoneName(property))};
  }

  // The library takes any value for the one that it asks for.
  static bool isRule(icalproperty* property) {
    const icalvalue* value = icalproperty_get_value(property);
    return value && icalvalue_isa(value) == ICAL_RECUR_VALUE;
  }

  // `untilOf`: the last time by the clock of the rule's own zone.
  template <typename Until>
  static std::optional<Recurrence> recurrenceOf(const icalrecurrencetype& rule, Until untilOf) {
    Recurrence result;
    using Frequency = Recurrence::Frequency;
    switch (rule.freq) {
      case ICAL_MINUTELY_RECURRENCE:
        result.frequency = Frequency::minutely;
        break;
      case ICAL_HOURLY_RECURRENCE:
        result.frequency = Frequency::hourly;
        break;
      case ICAL_DAILY_RECURRENCE:
        result.frequency = Frequency::daily;
        break;
      case ICAL_WEEKLY_RECURRENCE:
        result.frequency = Frequency::weekly;
        break;
      case ICAL_MONTHLY_RECURRENCE:
        result.frequency = Frequency::monthly;
        break;
      case ICAL_YEARLY_RECURRENCE:
        result.frequency = Frequency::yearly;
        break;
      default:
        return std::nullopt;  // nothing in a calendar happens every second
    }
    if (rule.rscale && asciiLower(rule.rscale) != "gregorian") return std::nullopt;
    result.interval = std::max<int>(1, rule.interval);
    if (rule.count > 0) result.count = rule.count;
    if (!icaltime_is_null_time(rule.until)) result.until = untilOf(rule.until);
    result.weekStart = isoWeekday(rule.week_start);
    copy(rule.by_month, result.months, 1, 12);
    copy(rule.by_week_no, result.weeks, -53, 53);
    copy(rule.by_year_day, result.yearDays, -366, 366);
    copy(rule.by_month_day, result.monthDays, -31, 31);
    copy(rule.by_hour, result.hours, 0, 23);
    copy(rule.by_minute, result.minutes, 0, 59);
    copy(rule.by_second, result.seconds, 0, 59);
    copy(rule.by_set_pos, result.positions, -366, 366);
    for (const short day : rule.by_day) {
      if (day == ICAL_RECURRENCE_ARRAY_MAX) break;
      const auto weekday = icalrecurrencetype_day_day_of_week(day);
      if (weekday != ICAL_NO_WEEKDAY)
        result.days.push_back({isoWeekday(weekday), icalrecurrencetype_day_position(day)});
    }
    return result;
  }

  static int isoWeekday(icalrecurrencetype_weekday day) {
    return day == ICAL_SUNDAY_WEEKDAY ? 7 : day == ICAL_NO_WEEKDAY ? 1 : static_cast<int>(day) - 1;
  }

  template <std::size_t size>
  static void copy(const short (&from)[size], std::vector<int>& to, int least, int most) {
    for (const short value : from) {
      if (value == ICAL_RECURRENCE_ARRAY_MAX) break;
      if (value >= least && value <= most && (value != 0 || least == 0)) to.push_back(value);
    }
    std::ranges::sort(to);
    to.erase(std::unique(to.begin(), to.end()), to.end());
  }

  // Half of a rule would be another rule: an event whose rule is not understood happens once.
  void addRule(icalproperty* property, EventSeries& series) {
    if (!isRule(property)) return;
    const EventTime& start = series.first.start;
    auto rule =
        recurrenceOf(icalproperty_get_rrule(property), [&](const icaltimetype& until) -> std::optional<WallTime> {
          const auto time = wallTimeOf(until);
          if (!time) return std::nullopt;
          if (until.is_date) return *time + days(1) - seconds(1);
          if (!icaltime_is_utc(until) || start.isDate) return time;
          return start.zone.wallTime(Instant(time->time_since_epoch()), utc_);
        });
    if (rule) series.rules.push_back(std::move(*rule));
  }

  bool isDeclined(icalproperty* attendee) const {
    icalparameter* answer = icalproperty_get_first_parameter(attendee, ICAL_PARTSTAT_PARAMETER);
    if (!answer || icalparameter_get_partstat(answer) != ICAL_PARTSTAT_DECLINED) return false;
    std::string address = asciiLower(valueOf(attendee));
    if (address.starts_with("mailto:")) address.erase(0, 7);
    return own_.contains(address);
  }

  void readEvent(icalcomponent* component) {
    Read read;
    EventDetails details;
    LinkSources links;
    EventEntry& entry = read.series.first;
    icalproperty* start = icalcomponent_get_first_property(component, ICAL_DTSTART_PROPERTY);
    if (!start) return;
    const auto begins = timeOf(start, icalproperty_get_dtstart(start));
    if (!begins) return;
    entry.start = *begins;
    std::optional<EventTime> ends;
    std::optional<seconds> lasts;
    details.calendar = calendar_;
    for (icalproperty* property = icalcomponent_get_first_property(component, ICAL_ANY_PROPERTY); property;
         property = icalcomponent_get_next_property(component, ICAL_ANY_PROPERTY)) {
      switch (icalproperty_isa(property)) {
        case ICAL_UID_PROPERTY:
          details.uid = valueOf(property);
          break;
        case ICAL_SUMMARY_PROPERTY:
          details.title = valueOf(property);
          break;
        case ICAL_LOCATION_PROPERTY:
          details.location = valueOf(property);
          break;
        case ICAL_URL_PROPERTY:
          links.url = valueOf(property);
          break;
        case ICAL_DESCRIPTION_PROPERTY:
          links.description += ' ' + valueOf(property);
          break;
        case ICAL_SEQUENCE_PROPERTY:
          read.sequence = icalproperty_get_sequence(property);
          break;
        case ICAL_STATUS_PROPERTY:
          entry.isGone |= icalproperty_get_status(property) == ICAL_STATUS_CANCELLED;
          break;
        case ICAL_ATTENDEE_PROPERTY:
          entry.isGone |= isDeclined(property);
          break;
        case ICAL_DTEND_PROPERTY:
          ends = timeOf(property, icalproperty_get_dtend(property));
          break;
        case ICAL_DURATION_PROPERTY:
          lasts = seconds(icaldurationtype_as_int(icalproperty_get_duration(property)));
          break;
        case ICAL_RRULE_PROPERTY:
          addRule(property, read.series);
          break;
        case ICAL_EXDATE_PROPERTY:
          add(timeOf(property, icalproperty_get_exdate(property)), read.series.removed);
          break;
        case ICAL_RDATE_PROPERTY: {
          const icaldatetimeperiodtype date = icalproperty_get_rdate(property);
          add(timeOf(property, icaltime_is_null_time(date.time) ? date.period.start : date.time), read.series.added);
          break;
        }
        case ICAL_RECURRENCEID_PROPERTY: {
          read.of = timeOf(property, icalproperty_get_recurrenceid(property));
          read.andLater = icalproperty_get_first_parameter(property, ICAL_RANGE_PARAMETER) != nullptr;
          break;
        }
        default:
          readOther(property, links);
          break;
      }
    }
    entry.length = lengthOf(*begins, ends, lasts);
    links.location = details.location;
    details.link = meetingLink(links);
    entry.details = std::make_shared<const EventDetails>(std::move(details));
    read_.push_back(std::move(read));
  }

  // Properties that the library has no name for, as long as they have a value.
  static void readOther(icalproperty* property, LinkSources& links) {
    const char* name = icalproperty_get_property_name(property);
    if (!name) return;
    const std::string_view known(name);
    if (known == "X-ALT-DESC") links.description += ' ' + valueOf(property);
    for (const std::string_view conference : {"CONFERENCE", "X-GOOGLE-CONFERENCE", "X-MICROSOFT-SKYPETEAMSMEETINGURL",
                                              "X-TEAMS-MEETING-URL", "X-ZOOM-MEETING-URL"})
      if (known == conference) links.conferences.push_back(valueOf(property));
  }

  Length lengthOf(const EventTime& begins, const std::optional<EventTime>& ends, std::optional<seconds> lasts) const {
    seconds length = lasts.value_or(begins.isDate ? seconds(days(1)) : seconds(0));
    if (ends) {
      // Whole days are counted by their dates, whatever the clocks do in between.
      length = begins.isDate ? ends->time - begins.time : floor<seconds>(ends->instant(utc_) - begins.instant(utc_));
    }
    if (begins.isDate) length = std::max<seconds>(floor<days>(length), days(1));
    return std::clamp<seconds>(length, seconds(0), longestEvent);
  }

  static void add(std::optional<EventTime> time, std::vector<EventTime>& times) {
    if (time) times.push_back(std::move(*time));
  }

  // Events and what takes the place of their occurrences, which may come first.
  void gather(std::vector<EventSeries>& events) {
    std::map<std::string, std::size_t> masters;  // in read_
    for (std::size_t i = 0; i < read_.size(); ++i) {
      const std::string& uid = read_[i].series.first.details->uid;
      if (read_[i].of || uid.empty()) continue;
      const auto [known, isNew] = masters.emplace(uid, i);
      if (!isNew && read_[i].sequence >= read_[known->second].sequence) known->second = i;
    }
    for (Read& read : read_) {
      if (!read.of) continue;
      EventEntry entry = read.series.first;
      const auto master = masters.find(entry.details->uid);
      if (master == masters.end()) continue;
      read_[master->second].series.moved.push_back({*read.of, read.andLater, std::move(entry)});
    }
    for (std::size_t i = 0; i < read_.size(); ++i) {
      const std::string uid = read_[i].series.first.details->uid;
      const auto master = masters.find(uid);
      // One without its series is an event like any other, as an invitation to a single meeting of it.
      if (master == masters.end() || master->second == i) events.push_back(std::move(read_[i].series));
    }
  }

  void readTask(icalcomponent* component, std::vector<CalendarTask>& tasks) {
    CalendarTask task;
    task.calendar = calendar_;
    for (icalproperty* property = icalcomponent_get_first_property(component, ICAL_ANY_PROPERTY); property;
         property = icalcomponent_get_next_property(component, ICAL_ANY_PROPERTY)) {
      switch (icalproperty_isa(property)) {
        case ICAL_UID_PROPERTY:
          task.uid = valueOf(property);
          break;
        case ICAL_SUMMARY_PROPERTY:
          task.title = valueOf(property);
          break;
        case ICAL_PRIORITY_PROPERTY:
          task.priority = std::clamp(icalproperty_get_priority(property), 0, 9);
          break;
        case ICAL_COMPLETED_PROPERTY:
          task.isDone = true;
          break;
        case ICAL_PERCENTCOMPLETE_PROPERTY:
          task.isDone |= icalproperty_get_percentcomplete(property) >= 100;
          break;
        case ICAL_DUE_PROPERTY:
          task.due = timeOf(property, icalproperty_get_due(property));
          break;
        case ICAL_STATUS_PROPERTY: {
          const auto status = icalproperty_get_status(property);
          task.isDone |= status == ICAL_STATUS_COMPLETED || status == ICAL_STATUS_CANCELLED;
          break;
        }
        default:
          break;
      }
    }
    if (!task.title.empty()) tasks.push_back(std::move(task));
  }

  std::string calendar_;
  std::set<std::string> own_;
  std::vector<std::string> writtenZones_;
  std::map<std::string, EventZone> zones_;
  const Calendar utc_{"UTC", ""};
  std::vector<Read> read_;
  RecurrenceBudget budget_;
};

}  // namespace

CalendarText parseCalendar(std::string_view bytes, const std::string& calendar,
                           const std::set<std::string>& ownAddresses) {
  return Reader(calendar, ownAddresses).read(bytes);
}

}  // namespace ambrel
