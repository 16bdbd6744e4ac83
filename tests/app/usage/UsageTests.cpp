#include <QAccessible>
#include <QSignalSpy>
#include <QTest>

#include "app/usage/AIUsageModel.h"
#include "app/usage/ClaudeStatusLineModel.h"
#include "core/usage/ClaudeStatusLine.h"
#include "tests/TemporaryFolder.h"
#include "tests/Time.h"
#include "tests/app/kit/Looks.h"
#include "tests/app/kit/Scene.h"
#include "tests/fakes/HeldWork.h"

namespace ambrel {
namespace {

constexpr const char* replies =
    R"({"type":"assistant","message":{"usage":{"output_tokens":1500}},"timestamp":"2026-11-21T11:10:00Z"})"
    "\n";
constexpr const char* codexEntry =
    R"({"timestamp":"2026-11-21T11:30:00Z","type":"event_msg","payload":{"type":"token_count","rate_limits":)"
    R"({"primary":{"used_percent":90,"window_minutes":300,"resets_at":1795266000}}}})"
    "\n";

const Instant noon = at("2026-11-21T12:00:00Z");
const Calendar calendar("UTC", "en_US");

QString file(const char* type) { return QStringLiteral("qrc:/qt/qml/Ambrel/Usage/%1.qml").arg(QLatin1String(type)); }

const QString connectionRow = QStringLiteral("qrc:/qt/qml/Ambrel/Panels/ConnectionRow.qml");

QQuickItem* buttonIn(QQuickItem* root) {
  return firstShown(root,
                    [](QQuickItem* item) { return item->property("kind").isValid() && item->activeFocusOnTab(); });
}

}  // namespace

class UsageTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    now = noon;
    home = std::make_unique<TemporaryFolder>();
    background.waiting.clear();
    model = std::make_unique<AIUsageModel>(
        home->path(), *home / "data",
        AIUsageModel::Seams{background.background(), [this] { return now; }, Calendar("UTC", "en_GB")});
  }

  void cleanup() {
    model.reset();
    home.reset();
  }

  void onePassIsUnderWayAtATime() {
    model->start();
    model->start();
    model->refresh();
    QVERIFY(model->isStarted());
    QCOMPARE(background.waiting.size(), std::size_t(1));
    background.letGo();
    model->start();
    QCOMPARE(background.waiting.size(), std::size_t(0));
    model->refresh();
    QCOMPARE(background.waiting.size(), std::size_t(1));
  }

  void publishesWhatItFinds() {
    QCOMPARE(model->claudeTile().value, QStringLiteral("Reading logs…"));
    QCOMPARE(model->codexTile().value, QStringLiteral("Reading logs…"));
    model->refresh();
    QVERIFY(!model->hasLoaded());
    background.letGo();
    QVERIFY(model->hasLoaded());
    QCOMPARE(model->claudeTile().value, QStringLiteral("No open window"));
    QCOMPARE(model->codexTile().value, QStringLiteral("No use this week"));

    write(".claude/projects/p/a.jsonl", replies);
    write(".codex/sessions/a.jsonl", codexEntry);
    QSignalSpy changed(model.get(), &AIUsageModel::changed);
    pass();
    QCOMPARE(changed.count(), 1);
    QCOMPARE(model->claude().block->tokens, 1500);
    QCOMPARE(model->claudeTile().value, QStringLiteral("1.5K"));
    QCOMPARE(model->codexTile().value, QStringLiteral("90%"));
    QVERIFY(model->codexTile().isHigh);

    // The limits that Claude Code states come while it is connected.
    const ClaudeStatusLine::Files files(home->path(), *home / "data");
    write("data/claude-status.json", R"({"rate_limits":{"five_hour":{"used_percentage":40,"resets_at":1795266000}}})");
    pass();
    QVERIFY(!model->claudeLimits());
    ClaudeStatusLine::install(files);
    pass();
    QCOMPARE(model->claudeTile().value, QStringLiteral("40%"));
    ClaudeStatusLine::remove(files);
    pass();
    QVERIFY(!model->claudeLimits());
  }

  void wakesNobodyForTheSame() {
    write(".claude/projects/p/a.jsonl", replies);
    write(".codex/sessions/a.jsonl", codexEntry);
    pass();
    QSignalSpy changed(model.get(), &AIUsageModel::changed);
    pass();
    QCOMPARE(changed.count(), 0);
    // The readings stay; their age and the share of the block do not.
    now += minutes(5);
    pass();
    QCOMPARE(changed.count(), 1);
  }

  void textsFitAndDoNotOverlap_data() {
    QTest::addColumn<UsageTile>("tile");
    QTest::addColumn<qreal>("textScale");
    const auto window = [&](double percent, double hours) {
      return CodexUsage::Window{percent, 300, advanced(noon, Seconds(hours * 3600))};
    };
    const ClaudeUsageSnapshot block{{9, 9},
                                    UsageBlock{noon, advanced(noon, ClaudeUsage::blockLength), 123'456'789, 12}};
    for (const qreal scale : {1.0, 1.5}) {
      const auto add = [&](const char* name, const UsageTile& tile) {
        QTest::addRow("%s at %g", name, scale) << tile << scale;
      };
      const auto claude = [&](const ClaudeLimits::Limits& limits) {
        return claudeUsageTile({}, limits, true, noon, calendar);
      };
      add("over", claude({window(1234, 10), window(1234, 10), noon}));
      add("stale", claude({window(100, 10), window(100, 10), advanced(noon, Seconds(-90000))}));
      add("week alone", claude({std::nullopt, window(88, 20), advanced(noon, Seconds(-120))}));
      add("after the reset", claude({window(88, -1), std::nullopt, advanced(noon, Seconds(-7300))}));
      add("block", claudeUsageTile(block, {}, true, noon, calendar));
      add("none", claudeUsageTile({}, {}, true, noon, calendar));
      add("loading", claudeUsageTile({}, {}, false, noon, calendar));
      add("codex", codexLimitsTile(CodexUsage::Limits{window(86, 1), window(3, 100), noon}, true, noon, calendar));
      add("no codex", codexLimitsTile({}, true, noon, calendar));
    }
  }

  void textsFitAndDoNotOverlap() {
    QFETCH(UsageTile, tile);
    QFETCH(qreal, textScale);
    Scene scene;
    scene.theme().setTextScale(textScale);
    scene.theme().setChoice(textScale > 1 ? Theme::Choice::Light : Theme::Choice::Dark);
    QVERIFY(scene.loadFile(file("UsageFrame"), {{"span", 3}, {"face", QVariant::fromValue(usageFace(tile))}}));
    QCOMPARE(faultsOf(scene) + collisionsOf(scene.root()) + scene.warnings().take(), QStringList());
    const QStringList shown = textsOf(scene.root());
    for (const std::string& text : {tile.caption, tile.value, tile.unit, tile.line, tile.age})
      if (!text.empty()) QVERIFY2(shown.contains(QString::fromStdString(text)), text.c_str());
    visitShown(scene.root(), [](QQuickItem* item) {
      if (item->inherits("ambrel::MeterBar")) QVERIFY(item->width() >= 40);
      QVERIFY(!item->property("truncated").toBool());
    });
  }

  void readsOutWhatItShows() {
    Scene scene;
    QVERIFY(scene.loadFile(file("CodexLimitsTile"), {{"usage", QVariant::fromValue(model.get())}}));
    pass();
    QCOMPARE(spokenName(scene.root()), QStringLiteral("Codex: No use this week"));
    QCOMPARE(QAccessible::queryAccessibleInterface(scene.root())->text(QAccessible::Description),
             QStringLiteral("Codex limits appear after your next Codex turn."));
  }

  void theRowConnectsAndDisconnects() {
    ClaudeStatusLineModel statusLine(ClaudeStatusLine::Files(home->path(), *home / "data"));
    QSignalSpy connection(&statusLine, &ClaudeStatusLineModel::connectionChanged);
    Scene scene;
    QVERIFY(scene.loadFile(connectionRow, {{"modelData", QVariant::fromValue(&statusLine)}, {"width", 480}}));
    QQuickItem* button = buttonIn(scene.root());
    QVERIFY(button);
    QCOMPARE(button->property("text").toString(), QStringLiteral("Connect"));
    QVERIFY(QMetaObject::invokeMethod(button, "press"));
    QVERIFY(statusLine.isConnected());
    QCOMPARE(button->property("text").toString(), QStringLiteral("Disconnect"));
    QVERIFY(statusLine.text().startsWith(QStringLiteral("Connected. ")));
    QVERIFY(QMetaObject::invokeMethod(button, "press"));
    QVERIFY(!statusLine.isConnected());
    QCOMPARE(connection.count(), 2);
    // And says why it could not.
    home->write(".claude/settings.json", "[]");
    QVERIFY(QMetaObject::invokeMethod(button, "press"));
    QCOMPARE(scene.warnings().take().size(), 1);
    const QString problem = QStringLiteral("Could not change ~/.claude/settings.json. Check that it is valid JSON.");
    QVERIFY(textsOf(scene.root()).contains(problem));
    home->write(".claude/settings.json", "{}");
    QVERIFY(QMetaObject::invokeMethod(button, "press"));
    QVERIFY(statusLine.isConnected() && !textsOf(scene.root()).contains(problem));
    scene.close();
  }

 private:
  void pass() {
    model->refresh();
    background.letGo();
  }
  void write(const char* file, const char* bytes) { home->write(file, bytes, at("2026-11-21T11:30:00Z")); }

  HeldWork background;
  Instant now;
  std::unique_ptr<TemporaryFolder> home;
  std::unique_ptr<AIUsageModel> model;
};

}  // namespace ambrel

QTEST_MAIN(ambrel::UsageTests)
#include "UsageTests.moc"
