#include <QTest>

#include "app/model/GlobalKeys.h"
#include "tests/TemporaryFolder.h"
#include "tests/fakes/FakePlatform.h"

namespace ambrel {
namespace {

constexpr KeyCombination shelf{.key = 'v', .command = true, .option = true};

struct Keys {
  TemporaryFolder folder;
  UserDefaults defaults{folder / "defaults.json"};
  AppSettings settings{defaults};
  FakeHotKeys desktop;  // before what asks it
  GlobalKeys keys{desktop, settings};
  QStringList answered;

  explicit Keys(const char* keeper = nullptr)
      : desktop([&] {
          FakeHotKeys made;
          if (keeper) (made.desktop = std::make_unique<FakeKeyKeeper>())->name = keeper;
          return made;
        }()) {
    std::vector<AreaKey> all{{&setting::shelfKeys, [this] { answered << "shelf"; }, "--toggle-clipboard"},
                             {&setting::askKeys, [this] { answered << "ask"; }, "--toggle-assistant"}};
    for (const char digit : {'1', '2'})
      all.push_back({&setting::pinnedKeys, [this, digit] { answered << QString(QLatin1Char(digit)); },
                     std::string("--copy-pinned ") + digit, digit});
    keys.add(std::move(all));
  }
  KeyRow row(const QString& key) {
    for (int i = 0; i < keys.rows()->count(); ++i) {
      const auto row = keys.rows()->index(i, 0).data(keys.rows()->roleNames().key("row")).value<KeyRow>();
      if (row.key == key) return row;
    }
    return {};
  }
};

}  // namespace

class GlobalKeysTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void aRecordedKeyTakesTheOldOnesPlace() {
    Keys with;
    QCOMPARE(with.keys.rows()->count(), 3);
    with.keys.record("shelfKeys");
    QVERIFY2(!with.desktop.press(shelf), "while one is recorded, all are for the recorder");
    QVERIFY(with.keys.press(Qt::Key_Super_L, Qt::MetaModifier));
    QVERIFY(with.keys.press(Qt::Key_C, Qt::MetaModifier | Qt::ShiftModifier));
    QCOMPARE(with.row("shelfKeys").text, "Super+Shift+C");
    QVERIFY(with.desktop.press({.key = 'c', .command = true, .shift = true}));
    QVERIFY(!with.desktop.press(shelf));
    QCOMPARE(with.answered, QStringList{"shelf"});
    with.keys.reset("shelfKeys");
    QVERIFY(with.desktop.press(shelf));
    QVERIFY(with.row("shelfKeys").isStandard);
  }

  void whatCannotBeHadIsToldAndChangesNothing() {
    Keys with;
    with.desktop.takenByOthers = {{.key = 'x', .command = true}};
    with.keys.record("shelfKeys");
    const std::pair<int, Qt::KeyboardModifiers> presses[] = {
        {Qt::Key_B, Qt::MetaModifier | Qt::AltModifier},                        // asks Buddy
        {Qt::Key_2, Qt::MetaModifier | Qt::AltModifier | Qt::ControlModifier},  // a pinned clip
        {Qt::Key_X, Qt::MetaModifier},                                          // of another program
        {Qt::Key_V, Qt::ShiftModifier},                                         // could be typed
        {Qt::Key_F5, Qt::MetaModifier}};
    QStringList told;
    for (const auto& [key, held] : presses) {
      QVERIFY(with.keys.press(key, held));
      QVERIFY(with.row("shelfKeys").isRecording);
      told << with.row("shelfKeys").problem;
    }
    QCOMPARE(told,
             (QStringList{"Super+Alt+B is taken: Asks Buddy",
                          "Ctrl+Super+Alt+2 is taken: Copies pinned clip 1; the other digits copy the others",
                          "Another program has Super+X", "Hold Super, Alt or Control and press a letter or a digit",
                          "Hold Super, Alt or Control and press a letter or a digit"}));
    QVERIFY(with.keys.press(Qt::Key_Escape, Qt::NoModifier));
    QVERIFY(with.desktop.press(shelf));
    QVERIFY(!with.keys.press(Qt::Key_V, Qt::MetaModifier));
  }

  void theDigitsOfPinnedClipsCountThrough() {
    Keys with;
    with.keys.record("pinnedKeys");
    QVERIFY(with.keys.press(Qt::Key_7, Qt::MetaModifier));
    QVERIFY(with.desktop.press({.key = '2', .command = true}));
    QCOMPARE(with.answered, QStringList{"2"});
    with.keys.record("pinnedKeys");
    QVERIFY(with.keys.press(Qt::Key_Backspace, Qt::NoModifier));
    QVERIFY(!with.desktop.press({.key = '1', .command = true}));
    QCOMPARE(with.row("pinnedKeys").text, "");
  }

  void aDesktopThatKeepsItsKeysIsGivenLines() {
    Keys with("sway");
    QVERIFY(with.keys.advice().endsWith("for sway's configuration, ~/.config/sway/config."));
    QCOMPARE(with.row("shelfKeys").binding, "bindsym Mod4+Mod1+v exec tilebay --toggle-clipboard");
    QCOMPARE(with.row("pinnedKeys").binding, "bindsym Ctrl+Mod4+Mod1+1 exec tilebay --copy-pinned 1");
    QCOMPARE(with.row("shelfKeys").problem, "");
    with.defaults.set("shelfKeys", DefaultsValue{std::string("Super+C")});
    with.settings.reload();
    QCOMPARE(with.row("shelfKeys").binding, "bindsym Mod4+c exec tilebay --toggle-clipboard");
  }

  void aDesktopThatBindsKeysIsAskedForThem() {
    Keys with("KDE");
    FakeKeyKeeper& keeper = *with.desktop.desktop;
    QVERIFY2(keeper.asked.empty(), "its question would cover the guide");
    with.keys.beginAsking();
    QCOMPARE(keeper.asked.size(), 4u);
    QCOMPARE(keeper.asked[2].id, "copy-pinned-1");
    QCOMPARE(keeper.asked[3].preferred, (KeyCombination{.key = '2', .command = true, .option = true, .control = true}));
    keeper.asked[1].action();
    QCOMPARE(with.answered, QStringList{"ask"});

    keeper.answers(KeyKeeper::Answer::given);
    QVERIFY2(!with.row("shelfKeys").isGiven && !with.row("shelfKeys").binding.isEmpty(), "it does not say which");
    keeper.triggers = {{"toggle-clipboard", "Meta+V"}};
    keeper.answers(KeyKeeper::Answer::given);
    QCOMPARE(with.row("shelfKeys").text, "Meta+V");
    QVERIFY(with.row("shelfKeys").isGiven && with.row("shelfKeys").binding.isEmpty());
    QCOMPARE(with.row("askKeys").text, "");
  }

  void whoRefusesIsAskedAgainOnlyOnPurpose() {
    Keys with("KDE");
    FakeKeyKeeper& keeper = *with.desktop.desktop;
    with.keys.beginAsking();
    keeper.answers(KeyKeeper::Answer::refused);
    QVERIFY(keeper.asked.empty() && with.keys.canAsk());
    QVERIFY2(!with.settings.read(setting::keysAreAsked), "the next start asks nothing, either");
    with.keys.askAgain();
    QCOMPARE(keeper.asked.size(), 4u);
    QVERIFY(!with.keys.canAsk());
  }

  void aChangeElsewhereIsFollowedAndAClashIsTold() {
    Keys with;
    with.defaults.set("askKeys", DefaultsValue{std::string("Super+Alt+V")});
    with.settings.reload();
    QCOMPARE(with.row("askKeys").problem, "The same key as: Opens the clipboard shelf");
    QVERIFY(with.desktop.press(shelf));
    QCOMPARE(with.answered, QStringList{"shelf"});
    with.defaults.set("shelfKeys", DefaultsValue{std::string()});
    with.settings.reload();
    QCOMPARE(with.row("askKeys").problem, "");
    QVERIFY(with.desktop.press(shelf));
    QCOMPARE(with.answered.last(), "ask");
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::GlobalKeysTests)
#include "GlobalKeysTests.moc"
