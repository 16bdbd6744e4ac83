#include "platform/linux/PortalKeys.h"
#include "tests/platform/linux/services/BusTest.h"

namespace ambrel {
namespace {

using Answer = KeyKeeper::Answer;

// A portal that binds as `response_` says and tells the keys of `bound_`.
class KeysOfPortal : public BusTest {
 protected:
  void play() override {
    portal_ = service("org.freedesktop.portal.Desktop");
    portal_->answer = [this](const QDBusMessage& message) { return answerTo(message); };
    keys_ = std::make_unique<PortalKeys>(bus_.connection(), "KDE");
  }

  QDBusMessage answerTo(const QDBusMessage& message) {
    if (!hasKeys_) return message.createErrorReply(QDBusError::UnknownMethod, "no such thing");
    if (message.member() == "Register") return message.createReply();
    if (message.member() == "Get") return message.createReply(QVariant::fromValue(QDBusVariant(version_)));
    if (message.member() == "Close") {
      sessions_.erase(message.path());
      return message.createReply();
    }
    QVariantMap results{{"shortcuts", QVariant::fromValue(bound_)}};
    uint response = 0;
    if (message.member() == "CreateSession") {
      const QVariantMap options = qdbus_cast<QVariantMap>(message.arguments().last());
      session_ = QStringLiteral("/org/freedesktop/portal/desktop/session/%1/%2")
                     .arg(message.service().mid(1).replace('.', '_'), options["session_handle_token"].toString());
      results = {{"session_handle", session_}};
      if (!sessions_.insert(session_).second) response = 2;
    } else if (message.member() == "BindShortcuts") {
      offered_ = qdbus_cast<QList<PortalShortcut>>(message.arguments().at(1));
      response = response_;
      results = {};
    }
    return promised(*portal_, message, response, results);
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
  void press(const QString& session, const QString& id) {
    portal_->send("/org/freedesktop/portal/desktop", "org.freedesktop.portal.GlobalShortcuts", "Activated",
                  {QVariant::fromValue(QDBusObjectPath(session)), id, qulonglong(7), QVariantMap()});
  }
  int asked(const QString& member) const { return static_cast<int>(std::ranges::count(portal_->members(), member)); }

  bool hasKeys_ = true;
  uint response_ = 0, version_ = 2;
  QList<PortalShortcut> bound_, offered_;
  QString session_;
  std::set<QString> sessions_;  // which outlive the portal: the desktop has them
  QStringList pressed_;
  std::unique_ptr<FakeService> portal_;
  std::unique_ptr<PortalKeys> keys_;
};

TEST_F(KeysOfPortal, BindsWhatIsAskedAndRunsWhatIsPressed) {
  bound_ = {{"toggle-clipboard", {{"trigger_description", "Meta+Alt+V"}}}};
  ask();
  ASSERT_TRUE(becomes(Answer::given));
  EXPECT_EQ(portal_->members().front(), "Register") << "the portal refuses a name that comes later";
  ASSERT_EQ(offered_.size(), 2);
  EXPECT_EQ(offered_[0].properties.value("description"), "Opens the shelf");
  EXPECT_EQ(offered_[0].properties.value("preferred_trigger"), "LOGO+ALT+v");
  EXPECT_FALSE(offered_[1].properties.contains("preferred_trigger"));
  EXPECT_EQ(keys_->trigger("toggle-clipboard"), "Meta+Alt+V");
  EXPECT_TRUE(keys_->canConfigure());

  press("/of/somebody/else", "reveal");
  press(session_, "not-ours");
  press(session_, "toggle-clipboard");
  EXPECT_TRUE(happens([&] { return !pressed_.isEmpty(); }));
  EXPECT_EQ(pressed_, QStringList{"shelf"});

  portal_->send(
      "/org/freedesktop/portal/desktop", "org.freedesktop.portal.GlobalShortcuts", "ShortcutsChanged",
      {QVariant::fromValue(QDBusObjectPath(session_)),
       QVariant::fromValue(QList<PortalShortcut>{{"toggle-clipboard", {{"trigger_description", "Meta+F"}}}})});
  EXPECT_TRUE(happens([&] { return keys_->trigger("toggle-clipboard") == "Meta+F"; }));
}

TEST_F(KeysOfPortal, TellsARefusalFromADesktopThatHasNoKeys) {
  response_ = 1;
  ask();
  EXPECT_TRUE(becomes(Answer::refused));
  EXPECT_TRUE(happens([&] { return asked("Close") == 1; })) << "its session would keep the keys";
  response_ = 2;
  ask();
  EXPECT_TRUE(becomes(Answer::none));
  hasKeys_ = false;
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
  EXPECT_EQ(asked("Register"), 2) << "a new portal does not know the program";
  portal_->send(session_, "org.freedesktop.portal.Session", "Closed", {QVariantMap()});
  EXPECT_TRUE(becomes(Answer::none));
  press(session_, "reveal");
  keys_->ask({});
  ask();
  ASSERT_TRUE(becomes(Answer::given));
  EXPECT_EQ(asked("CreateSession"), 3);
  EXPECT_EQ(pressed_, QStringList());
}

TEST_F(KeysOfPortal, LeavesAPortalAloneThatBindsWhatItKnows) {
  version_ = 1;
  bound_ = {{"toggle-clipboard", {{"trigger_description", "Meta+Alt+V"}}}};
  ask();
  ASSERT_TRUE(becomes(Answer::given));
  EXPECT_EQ(asked("BindShortcuts"), 1) << "one of the two is new";
  bound_.append({"reveal", {{"trigger_description", ""}}});
  ask();
  ASSERT_TRUE(becomes(Answer::given));
  EXPECT_EQ(asked("BindShortcuts"), 1);
}

}  // namespace
}  // namespace ambrel
