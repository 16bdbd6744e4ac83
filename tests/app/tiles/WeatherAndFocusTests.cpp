#include <QAccessible>
#include <QFile>
#include <QGuiApplication>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QSignalSpy>
#include <QTest>

#include "app/focus/AlarmClock.h"
#include "app/focus/BreakReminder.h"
#include "app/focus/BreathingExercise.h"
#include "app/focus/HabitStore.h"
#include "app/focus/MoodLog.h"
#include "app/focus/PomodoroTimer.h"
#include "app/focus/QuickTimer.h"
#include "app/focus/Stopwatch.h"
#include "app/focus/WaterTracker.h"
#include "app/kit/Theme.h"
#include "app/weather/WeatherModel.h"
#include "tests/app/focus/FocusRoom.h"
#include "tests/fakes/LoopbackServer.h"

// With AMBREL_PICTURES=FOLDER the pictures that are looked at are kept there.

namespace ambrel {
namespace {

using std::chrono::hours;
using std::chrono::minutes;
using std::chrono::seconds;

QStringList warnings;

void collect(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type != QtDebugMsg && type != QtInfoMsg) warnings.append(text);
}

QByteArray sample(const char* name) {
  QFile file(QStringLiteral(AMBREL_CASES "/weather/") + QLatin1String(name));
  if (!file.open(QIODevice::ReadOnly)) qFatal("no sample %s", name);
  return file.readAll();
}

// A working morning: weather from the loopback server, timers under way, a week of history.
struct Morning : FocusRoom {
  Morning() : FocusRoom("2026-07-14T09:41:00Z") {
    server.answer = [](const QByteArray& target) -> LoopbackServer::Reply {
      if (target.startsWith("/v1/air-quality?")) return {.body = sample("air-london.json")};
      return {.body = sample(target.contains("latitude=40.7128") ? "kiritimati.json" : "london.json")};
    };
    DefaultsDictionary history, moods;
    for (const auto& [day, count] : {std::pair{"2026-07-12", 1}, {"2026-07-13", 6}, {"2026-07-14", 3}})
      history[day] = DefaultsValue{std::int64_t{count}};
    for (int day = 8; day <= 14; ++day)
      if (day != 11)
        moods["2026-07-" + std::string(day < 10 ? "0" : "") + std::to_string(day)] =
            DefaultsValue{std::int64_t{1 + day % 5}};
    defaults.set("pomodoroHistory", DefaultsValue{history});
    defaults.set("moodLog", DefaultsValue{moods});
    defaults.set("pomodoroDone", DefaultsValue{std::int64_t{3}});
    defaults.set("pomodoroDoneDay", DefaultsValue{std::string("2026-07-14")});
    defaults.set("alarmOn", DefaultsValue{true});
    defaults.set("waterLastDrink", DefaultsValue{clock.now() - minutes(12)});
    defaults.set("waterCount", DefaultsValue{std::int64_t{3}});
    defaults.set("waterDay", DefaultsValue{std::string("2026-07-14")});
  }
  std::function<Instant()> now = [this] { return clock.now(); };

  LoopbackServer server;
  WeatherService service{{server.url(), server.url(), server.url()}};
};

struct Models {
  explicit Models(Morning& room)
      : weather(WeatherModel::mainSetting(), room.service, room.defaults, room.seams().calendar, room.now),
        secondCity(WeatherModel::secondCitySetting(), room.service, room.defaults, room.seams().calendar, room.now),
        pomodoro(room.seams()),
        stopwatch(room.now),
        water(room.seams(), nullptr),
        timer(room.seams()),
        alarm(room.seams(), nullptr),
        eyeBreak(BreakKind::eyes, room.seams(), nullptr),
        standUp(BreakKind::stand, room.seams(), nullptr),
        breathing(room.now),
        habits(room.folder / "Ambrel/habits.json", room.seams().calendar, room.now),
        mood(room.defaults, room.seams().calendar, room.now, true) {
    habits.add(QStringLiteral("Read for half an hour"));
    habits.add(QStringLiteral("Walk"));
    habits.add(QStringLiteral("Inbox zero"));
    habits.toggleToday(QString::fromStdString(habits.items()[0].id.text()));
    for (const auto& [name, model] : list()) QQmlEngine::setObjectOwnership(model, QQmlEngine::CppOwnership);
  }
  std::vector<std::pair<const char*, QObject*>> list() {
    return {{"weather", &weather}, {"secondCity", &secondCity}, {"pomodoro", &pomodoro}, {"stopwatch", &stopwatch},
            {"water", &water},     {"timer", &timer},           {"alarm", &alarm},       {"eyeBreak", &eyeBreak},
            {"standUp", &standUp}, {"breathing", &breathing},   {"habits", &habits},     {"mood", &mood}};
  }

  WeatherModel weather, secondCity;
  PomodoroTimer pomodoro;
  Stopwatch stopwatch;
  WaterTracker water;
  QuickTimer timer;
  AlarmClock alarm;
  BreakReminder eyeBreak, standUp;
  BreathingExercise breathing;
  HabitStore habits;
  MoodLog mood;
};

}  // namespace

class WeatherAndFocusTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase();
  void init() { warnings.clear(); }
  void cleanup() { QCOMPARE(warnings, QStringList()); }
  void everyTileShowsItsModel();
  void tilesWithoutDataSayWhy();
  void oldWeatherSaysItsAge();
  void ringsActAndTilesAsk();
  void everyPanelCanBeUsedByKeyboard();

 private:
  void load(QQuickView& view, Models& models, const char* file);
  void keep(QQuickView& view, const QString& name);
  QQuickItem* find(QQuickView& view, const char* name);
  QString spoken(QQuickView& view, const char* name);
};

void WeatherAndFocusTests::initTestCase() { qInstallMessageHandler(collect); }

void WeatherAndFocusTests::load(QQuickView& view, Models& models, const char* file) {
  view.engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
  QVariantMap properties;
  for (const auto& [name, model] : models.list()) properties[QLatin1String(name)] = QVariant::fromValue(model);
  if (qstrcmp(file, "WeatherAndFocusPanels.qml") == 0)
    for (const char* unused : {"secondCity", "breathing"}) properties.remove(QLatin1String(unused));
  view.setInitialProperties(properties);
  view.setSource(QUrl::fromLocalFile(QStringLiteral(TILES_FOLDER "/") + QLatin1String(file)));
  QVERIFY(view.rootObject());
  view.show();
  QVERIFY(QTest::qWaitForWindowExposed(&view));
}

// Both schemes are drawn, so that a warning in either is seen.
void WeatherAndFocusTests::keep(QQuickView& view, const QString& name) {
  for (const auto choice : {Theme::Choice::Dark, Theme::Choice::Light}) {
    themeOf(*view.engine()).setChoice(choice);
    // Colours ease into the other scheme.
    QImage image, before;
    int alike = 0;
    QVERIFY(QTest::qWaitFor([&] {
      before = std::exchange(image, view.grabWindow());
      alike = image == before ? alike + 1 : 0;
      return alike == 12;
    }));
    const QString folder = qEnvironmentVariable("AMBREL_PICTURES");
    if (folder.isEmpty()) continue;
    const char* scheme = choice == Theme::Choice::Dark ? "dark" : "light";
    QVERIFY(image.save(QStringLiteral("%1/%2-%3.png").arg(folder, name, QLatin1String(scheme))));
  }
}

QQuickItem* WeatherAndFocusTests::find(QQuickView& view, const char* name) {
  return view.rootObject()->findChild<QQuickItem*>(QLatin1String(name));
}

QString WeatherAndFocusTests::spoken(QQuickView& view, const char* name) {
  QQuickItem* item = find(view, name);
  return item ? item->property("label").toString() : QStringLiteral("no such tile");
}

void WeatherAndFocusTests::everyTileShowsItsModel() {
  Morning room;
  Models models(room);
  models.weather.setWanted(true, room.clock.now());
  models.secondCity.setWanted(true, room.clock.now());
  QVERIFY(QTest::qWaitFor(
      [&] {
        return models.weather.problem().isEmpty() && models.secondCity.problem().isEmpty() &&
               !models.weather.texts().airValue.isEmpty();
      },
      15000));
  models.pomodoro.start();
  models.timer.start(600);
  models.stopwatch.start();
  room.clock.pass(minutes(6) + seconds(36));
  for (const auto& [name, model] : models.list())
    if (model->metaObject()->indexOfMethod("update()") >= 0) QMetaObject::invokeMethod(model, "update");

  QQuickView view;
  load(view, models, "WeatherAndFocusTiles.qml");
  keep(view, QStringLiteral("tiles"));
  const std::pair<const char*, const char*> rows[] = {
      {"weather", "Weather, 22°, Partly cloudy"},
      {"hourly",
       "Hourly Forecast, 10 21° Partly cloudy, 11 22° Partly cloudy, 12 23° Cloudy, 13 24° Light rain, "
       "14 25° Showers, 15 25° Cloudy, 16 25° Mostly clear"},
      {"sun", "Sunset, 21:12, Day 16 h 14 min"},
      {"wind", "Wind, 14 km/h, from SW"},
      {"rainSoon", "Rain Soon, Rain in 10 min, Light rain"},
      {"uvIndex", "UV Index, 4, Moderate"},
      {"airQuality", "Air Quality, 42, Good"},
      {"feelsLike", "Feels Like, 19°, 3° colder"},
      {"secondCity", "New York, 26°, Showers"},
      {"pomodoro", "Focus Timer, 18:24, of 25 min"},
      {"stopwatch", "Stopwatch, 6:36, Running"},
      {"water", "Drink Water, 3 of 8, glasses"},
      {"timer", "Timer, 3:24, until 11:51"},
      {"alarm", "Alarm, 07:30, Tomorrow"},
      {"eyeBreak", "Eye Break, 13:24, until an eye break"},
      {"standUp", "Stand Up, 38:24, 0 today"},
      {"breathing", "Breathing, Breathe, A minute of calm"},
      {"habits", "Habits, 1 of 3, done today"},
      {"focusStats", "Focus Stats, 9, this week"},
  };
  for (const auto& [name, text] : rows) QCOMPARE(spoken(view, name), QString::fromUtf8(text));
  for (const auto* tile : find(view, "weather")->parentItem()->childItems()) {
    QVERIFY2(!tile->property("label").toString().isEmpty(), qPrintable(tile->objectName()));
    QVERIFY2(tile->activeFocusOnTab(), qPrintable(tile->objectName()));
    QCOMPARE(tile->height(), 64.0);
  }
}

void WeatherAndFocusTests::tilesWithoutDataSayWhy() {
  Morning room;
  Models models(room);
  QQuickView view;
  load(view, models, "WeatherAndFocusTiles.qml");
  keep(view, QStringLiteral("tiles-without-data"));
  for (const char* name : {"weather", "hourly", "sun", "wind", "uvIndex", "airQuality", "dailyForecast", "feelsLike"})
    QVERIFY2(spoken(view, name).endsWith(QStringLiteral("Not available, Waiting for data")),
             qPrintable(spoken(view, name)));
  QCOMPARE(spoken(view, "rainSoon"), QStringLiteral("Rain Soon, No forecast, Waiting for data"));
}

void WeatherAndFocusTests::oldWeatherSaysItsAge() {
  Morning room;
  Models models(room);
  models.weather.setWanted(true, room.clock.now());
  QVERIFY(QTest::qWaitFor([&] { return models.weather.problem().isEmpty(); }, 15000));
  room.clock.pass(minutes(95));
  models.weather.update();
  QQuickView view;
  load(view, models, "WeatherAndFocusTiles.qml");
  keep(view, QStringLiteral("tiles-stale"));
  for (const char* name : {"weather", "hourly", "sun", "wind", "rainSoon", "uvIndex", "dailyForecast", "feelsLike"})
    QVERIFY2(spoken(view, name).contains(QStringLiteral("1 hr ago")), qPrintable(spoken(view, name)));
}

void WeatherAndFocusTests::ringsActAndTilesAsk() {
  Morning room;
  Models models(room);
  QQuickView view;
  load(view, models, "WeatherAndFocusTiles.qml");
  const auto click = [&](const char* name, QPointF at) {
    QTest::mouseClick(&view, Qt::LeftButton, {}, find(view, name)->mapToScene(at).toPoint());
  };
  QSignalSpy asked(find(view, "water"), SIGNAL(clicked()));
  click("pomodoro", {28, 41});
  QVERIFY(models.pomodoro.isRunning());
  click("water", {28, 41});
  QCOMPARE(models.water.count(), 4);
  QCOMPARE(asked.count(), 0);
  click("water", {90, 30});
  QCOMPARE(asked.count(), 1);
  QCOMPARE(models.water.count(), 4);

  click("eyeBreak", {28, 41});
  QVERIFY(models.eyeBreak.isOnBreak());
  click("eyeBreak", {120, 30});
  QVERIFY(!models.eyeBreak.isOnBreak());
  click("breathing", {30, 30});
  QVERIFY(models.breathing.isRunning());

  models.alarm.set(12, 0);
  room.clock.set(*models.alarm.due());
  models.alarm.tick(room.clock.now());
  QVERIFY(models.alarm.isRinging());
  click("alarm", {58, 42});
  QVERIFY(!models.alarm.isRinging());
}

void WeatherAndFocusTests::everyPanelCanBeUsedByKeyboard() {
  Morning room;
  Models models(room);
  models.weather.setWanted(true, room.clock.now());
  QVERIFY(QTest::qWaitFor([&] { return models.weather.problem().isEmpty(); }, 15000));
  QQuickView view;
  load(view, models, "WeatherAndFocusPanels.qml");
  keep(view, QStringLiteral("panels"));
  view.requestActivate();
  QVERIFY(QTest::qWaitForWindowActive(&view));

  // Tab goes through every control once, and each of them has a name.
  QStringList names;
  for (int i = 0; i < 200; ++i) {
    QTest::keyClick(&view, Qt::Key_Tab);
    QQuickItem* item = view.activeFocusItem();
    QVERIFY(item);
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(item);
    const QString name = interface ? interface->text(QAccessible::Name) : QString();
    if (names.contains(name + QString::number(quintptr(item)))) break;
    QVERIFY2(!name.isEmpty(), item->metaObject()->className());
    names.append(name + QString::number(quintptr(item)));
  }
  QVERIFY2(names.size() >= 40, qPrintable(QString::number(names.size())));
}

}  // namespace ambrel

QTEST_MAIN(ambrel::WeatherAndFocusTests)
#include "WeatherAndFocusTests.moc"
