#include "tests/fakes/FakeKeyPortal.h"
#include "tests/platform/linux/services/BusTest.h"

namespace ambrel {
namespace {

using Answer = KeyKeeper::Answer;

class KeysOfPortal : public BusTest {
 protected:
  void play() override {
    portal_ = std::make_unique<FakeKeyPortal>(bus_.connection());
    keys_ = std::make_unique<PortalKeys>(bus_.connection(), "KDE");
  }

  void ask() {
    keys_->ask({{"toggle-clipboard",
                 "Opens the shelf",
                 {.key = 'v', .command = true, .option = true},
                 [this] { pressed_ << "shelf"; }},
                {"reveal", "Brings the bar out", {}, [this] { pressed_ << "bar"; }}});
  }
  bool becomes(Answer answer) {
    return happens([&] { return keys_->answer() == answer; });
  }

  QStringList pressed_;
  std::unique_ptr<FakeKeyPortal> portal_;
  std::unique_ptr<PortalKeys> keys_;
};

TEST_F(KeysOfPortal, BindsWhatIsAskedAndRunsWhatIsPressed) {
  portal_->bound = {{"toggle-clipboard", {{"trigger_description", "Meta+Alt+V"}}}};
  ask();
  ASSERT_TRUE(becomes(Answer::given));
  EXPECT_EQ(portal_->members().front(), "Register") << "the portal refuses a name that comes later";
  ASSERT_EQ(portal_->offered.size(), 2);
  EXPECT_EQ(portal_->offered[0].properties.value("description"), "Opens the shelf");
  EXPECT_EQ(portal_->offered[0].properties.value("preferred_trigger"), "LOGO+ALT+v");
  EXPECT_FALSE(portal_->offered[1].properties.contains("preferred_trigger"));
  EXPECT_EQ(keys_->trigger("toggle-clipboard"), "Meta+Alt+V");
  EXPECT_TRUE(keys_->canConfigure());

  portal_->press("/of/somebody/else", "reveal");
  portal_->press(portal_->session, "not-ours");
  portal_->press(portal_->session, "toggle-clipboard");
  EXPECT_TRUE(happens([&] { return !pressed_.isEmpty(); }));
  EXPECT_EQ(pressed_, QStringList{"shelf"});

  portal_->send(
      "/org/freedesktop/portal/desktop", "org.freedesktop.portal.GlobalShortcuts", "ShortcutsChanged",
      {QVariant::fromValue(QDBusObjectPath(portal_->session)),
       QVariant::fromValue(QList<PortalShortcut>{{"toggle-clipboard", {{"trigger_description", "Meta+F"}}}})});
  EXPECT_TRUE(happens([&] { return keys_->trigger("toggle-clipboard") == "Meta+F"; }));
}

TEST_F(KeysOfPortal, TellsARefusalFromADesktopThatHasNoKeys) {
  portal_->response = 1;
  ask();
  EXPECT_TRUE(becomes(Answer::refused));
  EXPECT_TRUE(happens([&] { return portal_->asked("Close") == 1; })) << "its session would keep the keys";
  portal_->response = 2;
  ask();
  EXPECT_TRUE(becomes(Answer::none));
  portal_->hasKeys = false;
  ask();
  EXPECT_EQ(keys_->answer(), Answer::waiting);
  EXPECT_TRUE(becomes(Answer::none));
}

TEST_F(KeysOfPortal, AsksAPortalThatComesBackAndNotOneThatClosesTheSession) {
  ask();
  ASSERT_TRUE(becomes(Answer::given));
  portal_->stop();
  EXPECT_TRUE(becomes(Answer::none));
  portal_->start();
  ASSERT_TRUE(becomes(Answer::given));
  EXPECT_EQ(portal_->asked("Register"), 2) << "a new portal does not know the program";
  portal_->send(portal_->session, "org.freedesktop.portal.Session", "Closed", {QVariantMap()});
  EXPECT_TRUE(becomes(Answer::none));
  portal_->press(portal_->session, "reveal");
  keys_->ask({});
  ask();
  ASSERT_TRUE(becomes(Answer::given));
  EXPECT_EQ(portal_->asked("CreateSession"), 3);
  EXPECT_EQ(pressed_, QStringList());
}

TEST_F(KeysOfPortal, LeavesAPortalAloneThatBindsWhatItKnows) {
  portal_->version = 1;
  portal_->bound = {{"toggle-clipboard", {{"trigger_description", "Meta+Alt+V"}}}};
  ask();
  ASSERT_TRUE(becomes(Answer::given));
  EXPECT_EQ(portal_->asked("BindShortcuts"), 1) << "one of the two is new";
  portal_->bound.append({"reveal", {{"trigger_description", ""}}});
  ask();
  ASSERT_TRUE(becomes(Answer::given));
  EXPECT_EQ(portal_->asked("BindShortcuts"), 1);
  portal_->stop();
  ASSERT_TRUE(becomes(Answer::none));
  portal_->bound.clear();
  portal_->start();
  ASSERT_TRUE(becomes(Answer::given));
  EXPECT_EQ(portal_->asked("BindShortcuts"), 2) << "it has come back without what it knew";
}

}  // namespace
}  // namespace ambrel
