#include <QAccessible>
#include <QSignalSpy>
#include <QTest>

#include "app/usage/AIUsageModel.h"
#include "app/usage/ClaudeStatusLineModel.h"
#include "tests/TemporaryFolder.h"
#include "tests/app/kit/Looks.h"
#include "tests/app/kit/Scene.h"

namespace ambrel {
namespace {

const Instant noon = parseISO8601("2026-11-21T12:00:00Z").value();
const Calendar calendar("UTC", "en_US");

QString file(const char* type) { return QStringLiteral("qrc:/qt/qml/Ambrel/Usage/%1.qml").arg(QLatin1String(type)); }

const QString connectionRow = QStringLiteral("qrc:/qt/qml/Ambrel/Panels/ConnectionRow.qml");

QStringList textsOf(Scene& scene) {
  QStringList texts;
  visitShown(scene.root(), [&](QQuickItem* item) { texts << item->property("text").toString(); });
  return texts;
}

QQuickItem* buttonIn(QQuickItem* root) {
  QQuickItem* found = nullptr;
  visitShown(root, [&](QQuickItem* item) {
    if (item->property("kind").isValid() && item->activeFocusOnTab()) found = item;
  });
  return found;
}

}  // namespace

class UsageWidgetTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
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
    const QStringList shown = textsOf(scene);
    for (const std::string& text : {tile.caption, tile.value, tile.unit, tile.line, tile.age})
      if (!text.empty()) QVERIFY2(shown.contains(QString::fromStdString(text)), text.c_str());
    visitShown(scene.root(), [](QQuickItem* item) {
      if (item->inherits("ambrel::MeterBar")) QVERIFY(item->width() >= 40);
      QVERIFY(!item->property("truncated").toBool());
    });
  }

  void readsOutWhatItShows() {
    TemporaryFolder home;
    const auto background = [](const std::function<void()>& work, const std::function<void()>& done) {
      work();
      done();
    };
    AIUsageModel usage(home.path(), home.path() / "data", {background, [] { return noon; }, calendar});
    Scene scene;
    QVERIFY(scene.loadFile(file("CodexLimitsTile"), {{"usage", QVariant::fromValue(&usage)}}));
    usage.refresh();
    QCOMPARE(spokenName(scene.root()), QStringLiteral("Codex: No use this week"));
    QCOMPARE(QAccessible::queryAccessibleInterface(scene.root())->text(QAccessible::Description),
             QStringLiteral("Codex limits appear after your next Codex turn."));
  }

  void theRowConnectsAndDisconnects() {
    TemporaryFolder home;
    ClaudeStatusLineModel statusLine(ClaudeStatusLine::Files(home.path(), home.path() / "data"));
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
    home.write(".claude/settings.json", "[]");
    QVERIFY(QMetaObject::invokeMethod(button, "press"));
    QCOMPARE(scene.warnings().take().size(), 1);
    const QString problem = QStringLiteral("Could not change ~/.claude/settings.json. Check that it is valid JSON.");
    QVERIFY(textsOf(scene).contains(problem));
    home.write(".claude/settings.json", "{}");
    QVERIFY(QMetaObject::invokeMethod(button, "press"));
    QVERIFY(statusLine.isConnected() && !textsOf(scene).contains(problem));
    scene.close();
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::UsageWidgetTests)
#include "UsageWidgetTests.moc"
