#include <QSignalSpy>
#include <QTest>

#include "app/usage/AIUsageModel.h"
#include "core/usage/ClaudeStatusLine.h"
#include "tests/TemporaryFolder.h"
#include "tests/fakes/HeldWork.h"

namespace ambrel {
namespace {

Instant at(const char* text) { return parseISO8601(text).value(); }

constexpr const char* replies =
    R"({"type":"assistant","message":{"usage":{"output_tokens":1500}},"timestamp":"2026-11-21T11:10:00Z"})"
    "\n";
constexpr const char* codexEntry =
    R"({"timestamp":"2026-11-21T11:30:00Z","type":"event_msg","payload":{"type":"token_count","rate_limits":)"
    R"({"primary":{"used_percent":90,"window_minutes":300,"resets_at":1795266000}}}})"
    "\n";
constexpr const char* snapshot = R"({"rate_limits":{"five_hour":{"used_percentage":40,"resets_at":1795266000}}})";

}  // namespace

class AIUsageModelTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    now = at("2026-11-21T12:00:00Z");
    home = std::make_unique<TemporaryFolder>();
    background.waiting.clear();
    model = std::make_unique<AIUsageModel>(
        home->path(), home->path() / "data",
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
  }

  void wakesNobodyForTheSame() {
    write(".claude/projects/p/a.jsonl", replies);
    write(".codex/sessions/a.jsonl", codexEntry);
    pass();
    QSignalSpy changed(model.get(), &AIUsageModel::changed);
    pass();
    QCOMPARE(changed.count(), 0);
    // The readings stay; their age and the share of the block do not.
    now += std::chrono::minutes(5);
    pass();
    QCOMPARE(changed.count(), 1);
  }

  void followsTheConnectionOfTheHook() {
    const ClaudeStatusLine::Files files(home->path(), home->path() / "data");
    write("data/claude-status.json", snapshot);
    pass();
    QVERIFY(!model->claudeLimits());
    ClaudeStatusLine::install(files);
    pass();
    QCOMPARE(model->claudeLimits()->session->usedPercent, 40.0);
    QCOMPARE(model->claudeTile().value, QStringLiteral("40%"));
    ClaudeStatusLine::remove(files);
    pass();
    QVERIFY(!model->claudeLimits());
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

QTEST_GUILESS_MAIN(ambrel::AIUsageModelTests)
#include "AIUsageModelTests.moc"
