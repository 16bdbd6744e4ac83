#include <QAccessible>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QSignalSpy>
#include <QTest>

#include "app/kit/Theme.h"
#include "app/usage/AIUsageModel.h"
#include "app/usage/ClaudeStatusLineModel.h"
#include "tests/TemporaryFolder.h"
#include "tests/app/kit/QMLWarnings.h"

namespace ambrel {
namespace {

Instant at(const char* text) { return parseISO8601(text).value(); }

// Every item below `root` that shows a text, apart from those that are hidden.
void collectTexts(QQuickItem* root, QList<QQuickItem*>& texts) {
  if (!root->isVisible()) return;
  if (root->inherits("QQuickText") && !root->property("text").toString().isEmpty()) texts.append(root);
  for (QQuickItem* child : root->childItems()) collectTexts(child, texts);
}

QQuickItem* buttonIn(QQuickItem* root) {
  for (QQuickItem* child : root->childItems()) {
    if (child->property("kind").isValid() && child->activeFocusOnTab()) return child;
    if (QQuickItem* found = buttonIn(child)) return found;
  }
  return nullptr;
}

}  // namespace

class UsageWidgetTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void cleanup();
  void textsFitAndDoNotOverlap_data();
  void textsFitAndDoNotOverlap();
  void readsOutWhatItShows();
  void theRowConnectsAndDisconnects();
  void theRowSaysWhyItCouldNot();
  void theRowSeesChangesMadeByHand();

 private:
  bool show(const QString& type, const QVariantMap& properties);

  // For people to look at, when they name a folder for it.
  void takePicture(const QString& name);

  std::unique_ptr<TemporaryFolder> home;
  std::unique_ptr<AIUsageModel> usage;
  std::unique_ptr<QQuickView> view;
  std::unique_ptr<QQuickItem> item;
  std::unique_ptr<QMLWarnings> warnings;
};

void UsageWidgetTests::init() {
  warnings = std::make_unique<QMLWarnings>();
  home = std::make_unique<TemporaryFolder>();
  view = std::make_unique<QQuickView>();
  view->engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
  const auto background = [](const std::function<void()>& work, const std::function<void()>& done) {
    work();
    done();
  };
  usage = std::make_unique<AIUsageModel>(
      home->path(), home->path() / "data",
      AIUsageModel::Seams{background, [] { return at("2026-11-21T12:00:00Z"); }, Calendar("UTC", "en_US")});
}

void UsageWidgetTests::cleanup() {
  item.reset();
  view.reset();
  usage.reset();
  home.reset();
  const QStringList left = warnings->take();
  warnings.reset();
  QCOMPARE(left, QStringList());
}

bool UsageWidgetTests::show(const QString& type, const QVariantMap& properties) {
  QVariantMap wide = properties;
  if (type != QLatin1String("ClaudeLimitsRow")) wide.insert(QStringLiteral("span"), 3);
  QQmlComponent component(view->engine(), QUrl(QStringLiteral("qrc:/qt/qml/Ambrel/Usage/%1.qml").arg(type)));
  item.reset(qobject_cast<QQuickItem*>(component.createWithInitialProperties(wide)));
  if (!item) {
    qWarning() << component.errorString();
    return false;
  }
  item->setParentItem(view->contentItem());
  view->setColor(themeOf(*view->engine()).panel());
  view->resize(600, 200);
  view->show();
  return true;
}

void UsageWidgetTests::takePicture(const QString& name) {
  const QString folder = qEnvironmentVariable("AMBREL_PICTURES");
  if (folder.isEmpty()) return;
  QVERIFY(QTest::qWaitForWindowExposed(view.get()));
  QTest::qWait(400);  // bars ease in
  const QImage picture = view->grabWindow().copy(0, 0, int(item->width()), int(item->height()));
  QVERIFY(picture.save(folder + '/' + name + ".png"));
}

void UsageWidgetTests::textsFitAndDoNotOverlap_data() {
  QTest::addColumn<UsageTile>("tile");
  QTest::addColumn<qreal>("textScale");
  const Calendar calendar("UTC", "en_US");
  const Instant now = at("2026-11-21T12:00:00Z");
  const auto window = [&](double percent, double hours) {
    return CodexUsage::Window{percent, 300, advanced(now, Seconds(hours * 3600))};
  };
  const ClaudeUsageSnapshot block{{9, 9}, UsageBlock{now, advanced(now, ClaudeUsage::blockLength), 123'456'789, 12}};
  for (const qreal scale : {1.0, 1.5}) {
    const auto add = [&](const char* name, const UsageTile& tile) {
      QTest::addRow("%s at %g", name, scale) << tile << scale;
    };
    const auto claude = [&](const ClaudeLimits::Limits& limits) {
      return claudeUsageTile({}, limits, true, now, calendar);
    };
    add("full", claude({window(100, 10), window(100, 10), now}));
    add("over", claude({window(1234, 10), window(1234, 10), now}));
    add("stale", claude({window(100, 10), window(100, 10), advanced(now, Seconds(-90000))}));
    add("week alone", claude({std::nullopt, window(88, 20), advanced(now, Seconds(-120))}));
    add("after the reset", claude({window(88, -1), std::nullopt, advanced(now, Seconds(-7300))}));
    add("block", claudeUsageTile(block, {}, true, now, calendar));
    add("none", claudeUsageTile({}, {}, true, now, calendar));
    add("loading", claudeUsageTile({}, {}, false, now, calendar));
    add("codex", codexLimitsTile(CodexUsage::Limits{window(86, 1), window(3, 100), now}, true, now, calendar));
    add("no codex", codexLimitsTile({}, true, now, calendar));
  }
}

void UsageWidgetTests::textsFitAndDoNotOverlap() {
  QFETCH(UsageTile, tile);
  QFETCH(qreal, textScale);
  Theme& theme = themeOf(*view->engine());
  theme.setTextScale(textScale);
  theme.setChoice(textScale > 1 ? Theme::Choice::Light : Theme::Choice::Dark);
  view->setColor(theme.panel());
  QVERIFY(show(QStringLiteral("UsageFrame"), {{QStringLiteral("face"), QVariant::fromValue(usageFace(tile))}}));
  QVERIFY(QTest::qWaitForWindowExposed(view.get()));

  takePicture(QString::fromUtf8(QTest::currentDataTag()));

  QList<QQuickItem*> texts;
  collectTexts(item.get(), texts);
  QVERIFY(texts.size() >= 2);
  QStringList shown;
  QList<QRectF> places;
  for (QQuickItem* text : texts) {
    shown.append(text->property("text").toString());
    QVERIFY2(!text->property("truncated").toBool(), qPrintable(shown.last()));
    const QRectF place = text->mapRectToItem(item.get(), QRectF(0, 0, text->width(), text->height()));
    QVERIFY2(QRectF(0, 0, item->width(), item->height()).contains(place), qPrintable(shown.last()));
    // Lines of text are close together; the glyphs are less tall than their line.
    places.append(place.adjusted(0, 2, 0, -2));
  }
  for (QQuickItem* child : item->property("inner").value<QQuickItem*>()->childItems())
    if (child->inherits("ambrel::MeterBar") && child->isVisible()) {
      places.append(child->mapRectToItem(item.get(), QRectF(0, 0, child->width(), child->height())));
      QVERIFY(child->width() >= 40);
    }
  for (int i = 0; i < places.size(); ++i)
    for (int j = 0; j < i; ++j) QVERIFY2(!places[i].intersects(places[j]), qPrintable(shown.join(" | ")));

  for (const std::string& text : {tile.caption, tile.value, tile.unit, tile.line, tile.age})
    if (!text.empty()) QVERIFY2(shown.contains(QString::fromStdString(text)), text.c_str());
}

void UsageWidgetTests::readsOutWhatItShows() {
  QVERIFY(show(QStringLiteral("CodexLimitsTile"), {{QStringLiteral("usage"), QVariant::fromValue(usage.get())}}));
  usage->refresh();
  const QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(item.get());
  QVERIFY(interface);
  QCOMPARE(interface->text(QAccessible::Name), QStringLiteral("Codex: No use this week"));
  QCOMPARE(interface->text(QAccessible::Description),
           QStringLiteral("Codex limits appear after your next Codex turn."));
}

void UsageWidgetTests::theRowConnectsAndDisconnects() {
  ClaudeStatusLineModel statusLine(ClaudeStatusLine::Files(home->path(), home->path() / "data"));
  QSignalSpy connection(&statusLine, &ClaudeStatusLineModel::connectionChanged);
  QVERIFY(show(QStringLiteral("ClaudeLimitsRow"),
               {{QStringLiteral("statusLine"), QVariant::fromValue(&statusLine)}, {QStringLiteral("width"), 480}}));
  QQuickItem* button = buttonIn(item.get());
  QVERIFY(button);
  QCOMPARE(button->property("text").toString(), QStringLiteral("Connect"));
  takePicture(QStringLiteral("row, not connected"));
  QVERIFY(QMetaObject::invokeMethod(button, "press"));
  QVERIFY(statusLine.isConnected());
  QCOMPARE(button->property("text").toString(), QStringLiteral("Disconnect"));
  takePicture(QStringLiteral("row, connected"));
  QCOMPARE(statusLine.text(),
           QStringLiteral("Connected. The session and week update each time Claude Code replies in the terminal. Your "
                          "own status line still runs."));
  QVERIFY(QMetaObject::invokeMethod(button, "press"));
  QVERIFY(!statusLine.isConnected());
  QCOMPARE(connection.count(), 2);
  item.reset();
}

void UsageWidgetTests::theRowSaysWhyItCouldNot() {
  home->write(".claude/settings.json", "[]");
  ClaudeStatusLineModel statusLine(ClaudeStatusLine::Files(home->path(), home->path() / "data"));
  statusLine.install();
  QCOMPARE(warnings->take().size(), 1);
  QVERIFY(show(QStringLiteral("ClaudeLimitsRow"),
               {{QStringLiteral("statusLine"), QVariant::fromValue(&statusLine)}, {QStringLiteral("width"), 480}}));
  QList<QQuickItem*> texts;
  collectTexts(item.get(), texts);
  QVERIFY(std::any_of(texts.begin(), texts.end(),
                      [&](QQuickItem* text) { return text->property("text") == statusLine.problem(); }));
  takePicture(QStringLiteral("row, refused"));
  QCOMPARE(statusLine.problem(),
           QStringLiteral("Could not change ~/.claude/settings.json. Check that it is valid JSON."));
  home->write(".claude/settings.json", "{}");
  statusLine.install();
  QCOMPARE(statusLine.problem(), QString());
  QVERIFY(statusLine.isConnected());
  item.reset();
}

void UsageWidgetTests::theRowSeesChangesMadeByHand() {
  ClaudeStatusLineModel statusLine(ClaudeStatusLine::Files(home->path(), home->path() / "data"));
  statusLine.install();
  home->write(".claude/settings.json", "{}");
  QVERIFY(statusLine.isConnected());
  statusLine.look();
  QVERIFY(!statusLine.isConnected());
}

}  // namespace ambrel

QTEST_MAIN(ambrel::UsageWidgetTests)
#include "UsageWidgetTests.moc"
