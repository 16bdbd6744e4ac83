#include "app/calendar/CalendarModel.h"

#include <QDate>
#include <algorithm>
#include <iterator>

#include "app/base/QmlObjects.h"
#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"
#include "app/model/AppSettings.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

using namespace std::chrono;

constexpr int daysAhead = 14, daysRead = 62;
constexpr std::size_t shownToday = 3, mostRows = 300;
constexpr Seconds settles{0.3};    // calendars are often written file by file
constexpr minutes looksAgain{10};  // where changes are not told

std::set<std::string> lowered(const std::vector<std::string>& texts) {
  std::set<std::string> result;
  for (const std::string& text : texts) result.insert(asciiLower(trimmed(text)));
  return result;
}

bool isAddress(std::string_view place) { return place.find("://") != place.npos; }

// What other programs keep. hasService: GNOME's service runs, and tells of its own calendars itself.
std::vector<CalendarPlace> foundPlaces(const UserHome& home, bool hasService) {
  std::vector<CalendarPlace> places;
  for (std::filesystem::path& place : foundCalendars(home)) {
    // The service's own files, whose names say nothing.
    const bool isServed = place.string().starts_with((home.data / "evolution/").string());
    if (isServed && hasService) continue;
    places.push_back({std::move(place), isServed ? "GNOME" : ""});
  }
  return places;
}

}  // namespace

CalendarModel::CalendarModel(Seams seams, QObject* parent)
    : TimedModel(parent),
      seams_(std::move(seams)),
      subscriptions_({seams_.home.ownCache() / "calendars", seams_.fetcher, seams_.background, seams_.now}) {
  keep({this, &agenda_, &today_, &tasks_, &sources_});
  connect(&subscriptions_, &CalendarSubscriptions::changed, this, [this] { look(); });
}

void CalendarModel::start() {
  seams_.service.setChangeHandler([this] { lookSoon(); });
  look();
}

CalendarQuestion CalendarModel::question(Instant now) const {
  const AppSettings& settings = seams_.settings;
  const Calendar calendar = seams_.calendar();
  CalendarQuestion question{.places = {},
                            .served = seams_.service.calendars(),
                            .hidden = {},
                            .ownAddresses = lowered(settings.calendarOwnAddresses()),
                            .window = {calendar.startOfDay(now, -1), calendar.startOfDay(now, daysRead)},
                            .user = calendar,
                            .now = now};
  question.ownAddresses.merge(seams_.service.ownAddresses());
  for (const std::string& name : settings.calendarsHidden()) question.hidden.insert(name);
  for (const std::string& place : settings.calendarPlaces())
    if (!isAddress(place)) question.places.push_back({expandedPath(place, seams_.home.home)});
  for (CalendarPlace& place : subscriptions_.places()) question.places.push_back(std::move(place));
  return question;
}

void CalendarModel::lookSoon() {
  if (std::exchange(isLookingSoon_, true)) return;
  seams_.later(settles, [this] {
    isLookingSoon_ = false;
    look(false);
  });
}

void CalendarModel::look(bool isAll) {
  if (isReading_) {
    mustReadAgain_ = true;
    return;
  }
  isReading_ = true;
  subscriptions_.setAddresses(seams_.settings.calendarPlaces());
  const Instant now = seams_.now();
  struct Answer {
    CalendarReading reading;
    std::vector<std::filesystem::path> folders;
  };
  auto answer = std::make_shared<Answer>();
  CalendarQuestion asked = question(now);
  if (auto files = seams_.folders.takeChangedFiles(); !isAll) asked.changed = std::move(files);
  // The disk of any place may not answer.
  seams_.background(
      [reader = reader_, answer, home = seams_.home, finds = seams_.settings.calendarsFound(),
       question = std::move(asked)]() mutable {
        if (finds) {
          answer->folders = calendarFolders(home);
          auto found = foundPlaces(home, !question.served.empty());
          question.places.insert(question.places.begin(), std::make_move_iterator(found.begin()),
                                 std::make_move_iterator(found.end()));
        }
        answer->reading = reader->read(question);
      },
      [this, answer, day = seams_.calendar().startOfDay(now)] {
        isReading_ = false;
        hasRead_ = true;
        reading_ = std::move(answer->reading);
        day_ = day;
        follow(std::move(answer->folders));
        publish(seams_.now());
        Q_EMIT eventsChanged();
        if (std::exchange(mustReadAgain_, false)) look();
      });
}

void CalendarModel::follow(std::vector<std::filesystem::path> found) {
  auto wanted = std::move(found);
  for (const std::string& place : seams_.settings.calendarPlaces()) {
    if (isAddress(place)) continue;
    const auto path = expandedPath(place, seams_.home.home);
    wanted.push_back(path.extension() == ".ics" ? path.parent_path() : path);
  }
  if (wanted == followed_) return;
  followed_ = wanted;
  // Nobody has told of what changed since it was read.
  mustReadAgain_ = true;
  std::vector<WatchedFolder> folders;
  for (auto& folder : wanted) folders.push_back({std::move(folder), CalendarReader::deepestFolder});
  seams_.folders.follow(std::move(folders), [this](std::size_t) { lookSoon(); });
}

void CalendarModel::setSeen(bool isSeen, Instant now) {
  if (std::exchange(isSeen_, isSeen) == isSeen) return;
  if (hasRead_) publish(now);
}

void CalendarModel::tick(Instant now) {
  subscriptions_.tick(now);
  const bool isPolled = !followed_.empty() && !seams_.folders.tellsAll();
  if (isPolled || seams_.calendar().startOfDay(now) != day_) look();
  publish(now);
}

void CalendarModel::clockMoved(Seconds by, Instant /*now*/) {
  subscriptions_.clockMoved(by);
  look();
}

void CalendarModel::publish(Instant now) {
  const Calendar calendar = seams_.calendar();
  Instant change = calendar.startOfDay(now, 1);
  CalendarFace face;
  std::vector<EventRow> agenda, today;
  links_.clear();
  const Instant tomorrow = calendar.startOfDay(now, 1);
  for (const Occurrence& event : reading_.book.between({now, calendar.startOfDay(now, daysAhead)}, calendar)) {
    if (agenda.size() == mostRows) break;
    agenda.push_back(eventRow(event, calendar, now));
    change = std::min(change, eventRowChange(event, calendar, now));
    if (!event.event->link.empty()) links_[agenda.back().id] = toQString(event.event->link);
    if (event.start < tomorrow) today.push_back(agenda.back());
  }
  face.leftToday = static_cast<int>(today.size());
  // What has its time comes first where there is little room.
  std::ranges::stable_partition(today, [](const EventRow& row) { return !row.isAllDay; });
  if (const auto event = reading_.book.present(now)) {
    face.next = eventRow(*event, calendar, now);
    if (!event->event->link.empty()) links_[face.next.id] = toQString(event->event->link);
  }
  QStringList names;
  for (const EventRow& row : today) names << row.start + u' ' + row.title;
  face.todaySummary = names.isEmpty() ? tr("Nothing left today") : names.join(QStringLiteral(", "));
  // The last row tells of those that have no room.
  if (today.size() > shownToday) {
    const auto more = static_cast<int>(today.size() - shownToday + 1);
    today.resize(shownToday);
    today.back() = {};
    today.back().id = QStringLiteral("more");
    today.back().title = tr("%1 more").arg(more);
  }
  publishTasks(calendar, now, face, change);
  publishSources();
  const bool hasAny = std::ranges::any_of(reading_.sources, [](const auto& source) { return source.problem.empty(); });
  if (hasRead_ && !hasAny) face.problem = tr("No calendar found");
  agenda_.setRows(agenda);
  today_.setRows(today);
  if (replaced(face_, std::move(face))) Q_EMIT changed();
  due_ = isSeen_ ? change : tomorrow;
  if (!followed_.empty() && !seams_.folders.tellsAll()) due_ = std::min(*due_, now + looksAgain);
  if (const auto asks = subscriptions_.due()) due_ = std::min(*due_, *asks);
  announceDue();
}

void CalendarModel::publishSources() {
  std::vector<SourceRow> rows;
  const std::vector<std::string> added = seams_.settings.calendarPlaces();
  for (const CalendarSource& source : reading_.sources) {
    CalendarSource shown = source;
    // While there is no answer, what was last there is shown.
    if (const QString problem = subscriptions_.problem(source.place); !problem.isEmpty())
      shown.problem = tr("Not updated: %1").arg(problem).toStdString();
    else if (isAddress(source.place) && source.events == 0 && !source.problem.empty())
      shown.problem = tr("Waiting for an answer").toStdString();
    rows.push_back(sourceRow(shown, seams_.home.home.string()));
    for (const std::string& place : added)
      if (source.place == place || source.place == expandedPath(place, seams_.home.home))
        rows.back().added = toQString(place);
  }
  sources_.setRows(rows);
}

void CalendarModel::publishTasks(const Calendar& calendar, Instant now, CalendarFace& face, Instant& change) {
  std::vector<TaskRow> rows;
  for (const CalendarTask& task : reading_.book.openTasks(calendar)) {
    rows.push_back(taskRow(task, calendar, now));
    const TaskRow& row = rows.back();
    if (row.isOverdue || row.isDueToday) {
      if (face.dueTasks++ == 0) face.task = row;
    }
    if (task.due)
      if (const Instant due = task.due->instant(calendar) + microseconds(1); due > now) change = std::min(change, due);
  }
  face.openTasks = static_cast<int>(rows.size());
  tasks_.setRows(rows);
}

QVariantList CalendarModel::eventsOf(const QString& day) {
  linksOfDay_.clear();
  const QDate date = QDate::fromString(day, Qt::ISODate);
  if (!date.isValid()) return {};
  const Calendar calendar = seams_.calendar();
  QVariantList rows;
  const TimeWindow span{calendar.instant(date.year(), date.month(), date.day()),
                        calendar.instant(date.year(), date.month(), date.day() + 1)};
  for (const Occurrence& event : reading_.book.between(span, calendar)) {
    const EventRow row = eventRow(event, calendar, seams_.now());
    if (row.hasLink) linksOfDay_[row.id] = toQString(event.event->link);
    rows << QVariant::fromValue(row);
  }
  return rows;
}

void CalendarModel::join(const QString& eventId) {
  for (const auto* links : {&links_, &linksOfDay_})
    if (const auto link = links->find(eventId); link != links->end()) return linkAsked(link->second);
}

QString CalendarModel::addPlace(const QString& text) {
  const std::string place(trimmed(text.toStdString()));
  if (place.empty()) return {};
  std::vector<std::string> places = seams_.settings.calendarPlaces();
  if (std::ranges::find(places, place) != places.end()) return tr("It is in the list already.");
  if (isAddress(place)) {
    if (!subscriptionUrl(place)) return tr("Only https addresses can be added.");
  } else if (!fileStatus(expandedPath(place, seams_.home.home))) {
    return tr("There is no such file or folder.");
  }
  places.push_back(place);
  seams_.settings.set(setting::calendarPlaces, places);
  return {};
}

void CalendarModel::removePlace(const QString& text) {
  std::vector<std::string> places = seams_.settings.calendarPlaces();
  if (std::erase(places, text.toStdString()) != 0) seams_.settings.set(setting::calendarPlaces, places);
}

void CalendarModel::setShown(const QString& calendar, bool isShown) {
  std::vector<std::string> hidden = seams_.settings.calendarsHidden();
  const std::string name = calendar.toStdString();
  std::erase(hidden, name);
  if (!isShown) hidden.push_back(name);
  seams_.settings.set(setting::calendarsHidden, hidden);
}

std::vector<BuddySignals::Meeting> CalendarModel::meetings(Instant now) const {
  constexpr minutes around{6};
  std::vector<BuddySignals::Meeting> meetings;
  for (const Occurrence& event : reading_.book.between({now - around, now + around}, seams_.calendar())) {
    if (event.isAllDay || event.start < now - around) continue;
    const EventDetails& details = *event.event;
    meetings.push_back({.id = event.id(),
                        .title = eventRow(event, seams_.calendar(), now).title.toStdString(),
                        .start = event.start,
                        .url = details.link.empty() ? std::nullopt : std::optional(details.link)});
  }
  return meetings;
}

std::optional<PeekSignals::Event> CalendarModel::nextEvent(Instant now) const {
  const auto event = reading_.book.next(now);
  if (!event) return std::nullopt;
  return PeekSignals::Event{.id = event->id(), .start = event->start, .isAllDay = event->isAllDay};
}

}  // namespace ambrel
