#include <QSignalSpy>
#include <QTest>

#include "app/focus/FocusArea.h"
#include "app/kit/Theme.h"
#include "app/model/SettingValue.h"
#include "app/weather/WeatherArea.h"
#include "tests/Time.h"
#include "tests/app/focus/FocusRoom.h"
#include "tests/app/kit/Looks.h"
#include "tests/app/kit/TileBoard.h"
#include "tests/app/weather/WeatherSample.h"
#include "tests/fakes/FakeShell.h"
#include "tests/fakes/LoopbackServer.h"

namespace ambrel {
namespace {

// A working morning: weather from the loopback server, timers under way, a week of history.
struct Morning : FocusRoom {
  Morning() : FocusRoom("2026-07-14T09:41:00Z") {
    shell.onBar = {DockWidget::alarm};
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
    for (const char* key : {"weatherForecastURL", "weatherAirQualityURL", "weatherGeocodingURL"})
      defaults.set(key, DefaultsValue{server.url().toString().toStdString()});
  }
  std::function<Instant()> now = [this] { return clock.now(); };

  LoopbackServer server;
  FakeShell shell;
  DueTimer due{clock};
};

struct Models {
  explicit Models(Morning& room)
      : settings(room.defaults),
        weatherArea(fetcher, room.defaults, room.seams().calendar, room.now, room.due),
        focus(room.seams(), room.folder / "Ambrel/habits.json", room.due, room.shell) {
    QObject::connect(&settings, &AppSettings::chosen, &settings, [this](const std::string& key) {
      for (Area* area : std::initializer_list<Area*>{&weatherArea, &focus}) area->defaultsChanged({key});
    });
    HabitStore& habits = *focus.habits();
    habits.add(QStringLiteral("Read for half an hour"));
    habits.add(QStringLiteral("Walk"));
    habits.add(QStringLiteral("Inbox zero"));
    habits.toggleToday(QString::fromStdString(habits.items()[0].id.text()));
  }

  AppSettings settings;
  Fetcher fetcher;
  WeatherArea weatherArea;
  FocusArea focus;
  WeatherModel& weather = *weatherArea.main();
  WeatherModel& secondCity = *weatherArea.second();
  PomodoroTimer& pomodoro = *focus.pomodoro();
  Stopwatch& stopwatch = *focus.stopwatch();
  WaterTracker& water = *focus.water();
  QuickTimer& timer = *focus.timer();
  AlarmClock& alarm = *focus.alarm();
  BreakReminder& eyeBreak = *focus.eyeBreak();
  BreakReminder& standUp = *focus.standUp();
  BreathingExercise& breathing = *focus.breathing();
};

// Every tile in the size that it has on a bar with room, and some small ones.
bool loadTiles(Scene& scene, Models& models) {
  auto board = std::make_unique<TileBoard>(scene, std::vector<Area*>{&models.weatherArea, &models.focus});
  for (const DockWidget widget : board->widgets()) {
    const TileSize size = defaultSize(widget);
    if (QQuickItem* tile = board->add(widget, size)) tile->setObjectName(toQString(nameOf(widget)));
    if (size != smallestSize(widget)) board->add(widget, smallestSize(widget));
  }
  return scene.show(std::move(board));
}

bool loadPanels(Scene& scene, Models& models) {
  SettingValue::lend(scene.engine(), models.settings);
  auto board = std::make_unique<TileBoard>(scene, std::vector<Area*>{&models.weatherArea, &models.focus});
  board->addPanel(QStringLiteral("Weather/WeatherPanel.qml"),
                  {{QStringLiteral("weather"), QVariant::fromValue(&models.weather)}});
  for (const char* panel : {"Pomodoro", "Mood", "Water", "Alarm", "Timer", "Habits", "FocusStats", "Stopwatch"})
    board->addPanel(QStringLiteral("Focus/%1Panel.qml").arg(QLatin1String(panel)));
  board->addPanel(QStringLiteral("Focus/BreakPanel.qml"),
                  {{QStringLiteral("reminder"), QVariant::fromValue(&models.eyeBreak)}});
  board->addPanel(
      QStringLiteral("Focus/BreakPanel.qml"),
      {{QStringLiteral("reminder"), QVariant::fromValue(&models.standUp)}, {QStringLiteral("isForEyes"), false}});
  return scene.show(std::move(board));
}

QString spoken(Scene& scene, const char* name) {
  QQuickItem* item = scene.find(QLatin1String(name));
  return item ? item->property("label").toString() : QStringLiteral("no such tile");
}

}  // namespace

class WeatherAndFocusTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void everyTileShowsItsModel() {
    Morning room;
    Models models(room);
    models.weather.setWanted(true, room.clock.now());
    models.secondCity.setWanted(true, room.clock.now());
    QVERIFY(QTest::qWaitFor(
        [&] {
          return models.weather.texts().problem.isEmpty() && models.secondCity.texts().problem.isEmpty() &&
                 !models.weather.texts().airValue.isEmpty();
        },
        15000));
    models.pomodoro.toggle();
    models.timer.start(600);
    models.stopwatch.toggle();
    room.clock.pass(minutes(6) + seconds(36));
    for (QObject* model : std::initializer_list<QObject*>{&models.pomodoro, &models.stopwatch, &models.timer,
                                                          &models.eyeBreak, &models.standUp, &models.weather})
      QMetaObject::invokeMethod(model, "update");

    Scene scene;
    QVERIFY(loadTiles(scene, models));
    QCOMPARE(faultsInBothSchemes(scene, "tiles"), QStringList());
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
    for (const auto& [name, text] : rows) QCOMPARE(spoken(scene, name), QString::fromUtf8(text));
    for (const auto* tile : scene.find(QStringLiteral("weather"))->parentItem()->childItems()) {
      QVERIFY2(!tile->property("label").toString().isEmpty(), qPrintable(tile->objectName()));
      QVERIFY2(tile->activeFocusOnTab(), qPrintable(tile->objectName()));
      QCOMPARE(tile->height(), 64.0);
    }
  }

  void tilesWithoutDataSayWhy() {
    Morning room;
    Models models(room);
    Scene scene;
    QVERIFY(loadTiles(scene, models));
    QCOMPARE(faultsInBothSchemes(scene, "tiles-without-data"), QStringList());
    for (const char* name : {"weather", "hourly", "sun", "wind", "uvIndex", "airQuality", "dailyForecast", "feelsLike"})
      QVERIFY2(spoken(scene, name).endsWith(QStringLiteral("Not available, Waiting for data")),
               qPrintable(spoken(scene, name)));
    QCOMPARE(spoken(scene, "rainSoon"), QStringLiteral("Rain Soon, No forecast, Waiting for data"));
  }

  void oldWeatherSaysItsAge() {
    Morning room;
    Models models(room);
    models.weather.setWanted(true, room.clock.now());
    QVERIFY(QTest::qWaitFor([&] { return models.weather.texts().problem.isEmpty(); }, 15000));
    room.clock.pass(minutes(95));
    models.weather.update();
    Scene scene;
    QVERIFY(loadTiles(scene, models));
    QCOMPARE(faultsInBothSchemes(scene, "tiles-stale"), QStringList());
    for (const char* name : {"weather", "hourly", "sun", "wind", "rainSoon", "uvIndex", "dailyForecast", "feelsLike"})
      QVERIFY2(spoken(scene, name).contains(QStringLiteral("1 hr ago")), qPrintable(spoken(scene, name)));
  }

  void ringsActAndTilesAsk() {
    Morning room;
    Models models(room);
    Scene scene;
    QVERIFY(loadTiles(scene, models));
    const auto click = [&](const char* name, QPointF at) {
      QTest::mouseClick(&scene.window(), Qt::LeftButton, {}, scene.find(QLatin1String(name))->mapToScene(at).toPoint());
    };
    QSignalSpy asked(scene.find(QStringLiteral("water")), SIGNAL(clicked()));
    click("pomodoro", {28, 41});
    QVERIFY(models.pomodoro.face().isRunning);
    click("water", {28, 41});
    QCOMPARE(models.water.face().count, 4);
    QCOMPARE(asked.count(), 0);
    click("water", {90, 30});
    QCOMPARE(asked.count(), 1);
    QCOMPARE(models.water.face().count, 4);

    click("eyeBreak", {28, 41});
    QVERIFY(models.eyeBreak.face().isOnBreak);
    click("eyeBreak", {120, 30});
    QVERIFY(!models.eyeBreak.face().isOnBreak);
    click("breathing", {30, 30});
    QVERIFY(models.breathing.face().isRunning);

    models.alarm.set(12, 0);
    room.clock.set(*models.alarm.due());
    models.alarm.tick(room.clock.now());
    QVERIFY(models.alarm.face().isRinging);
    click("alarm", {58, 42});
    QVERIFY(!models.alarm.face().isRinging);
  }

  void everyPanelCanBeUsedByKeyboard() {
    Morning room;
    Models models(room);
    models.weather.setWanted(true, room.clock.now());
    QVERIFY(QTest::qWaitFor([&] { return models.weather.texts().problem.isEmpty(); }, 15000));
    Scene scene;
    QVERIFY(loadPanels(scene, models));
    QCOMPARE(faultsInBothSchemes(scene, "panels"), QStringList());
    const QStringList names = namesByTab(scene);
    QVERIFY2(names.size() >= 40, qPrintable(names.join(QStringLiteral("; "))));
    QCOMPARE(names.filter("nameless"), QStringList());
  }

  void whatIsChangedInAPanelIsStored() {
    Morning room;
    Models models(room);
    Scene scene;
    QVERIFY(loadPanels(scene, models));
    const struct {
      const char* control;
      Qt::Key key;
      const char* stored;
      int value;
    } rows[] = {
        {"Focus, 25 min", Qt::Key_Up, "pomodoroFocus", 30},
        {"Break, 5 min", Qt::Key_Down, "pomodoroBreak", 4},
        {"Long Break, 15 min", Qt::Key_Up, "pomodoroLongBreak", 20},
        {"Long break after, 4 sessions", Qt::Key_Up, "pomodoroSessions", 5},
        {"Start the next phase by itself", Qt::Key_Space, "pomodoroAutoStart", 1},
        {"Add a glass", Qt::Key_Space, "waterCount", 4},
        {"Remove one", Qt::Key_Space, "waterCount", 3},
        {"Goal, 8 glasses", Qt::Key_Up, "waterGoal", 9},
        {"Reminders", Qt::Key_Space, "waterReminders", 0},
        {"Reminders", Qt::Key_Space, "waterReminders", 1},
        {"Remind after, 30 min", Qt::Key_Up, "waterInterval", 35},
        {"Hour, 7", Qt::Key_Down, "alarmHour", 6},
        {"Minute, 30", Qt::Key_Up, "alarmMinute", 31},
        {"Snooze for, 10 min", Qt::Key_Up, "alarmSnooze", 11},
        {"Alarm", Qt::Key_Space, "alarmOn", 0},
        {"Every, 20 min", Qt::Key_Up, "eyeBreakInterval", 25},
        {"Every, 45 min", Qt::Key_Up, "standUpInterval", 50},
        {"I stood up", Qt::Key_Space, "standUpCount", 1},
    };
    for (const auto& row : rows) {
      const auto isReached = [&] {
        QQuickItem* item = scene.window().activeFocusItem();
        return item && spokenName(item) == QLatin1String(row.control);
      };
      for (int i = 0; i < 200 && !isReached(); ++i) QTest::keyClick(&scene.window(), Qt::Key_Tab);
      QVERIFY2(isReached(), row.control);
      QTest::keyClick(&scene.window(), row.key);
      const UserDefaults stored = room.stored();
      const auto flag = stored.boolean(row.stored);
      QVERIFY2((flag ? std::int64_t(*flag) : stored.integer(row.stored)) == row.value, row.control);
    }
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::WeatherAndFocusTests)
#include "WeatherAndFocusTests.moc"
