// Notifications over a real bus: against a service of our own, and against dunst.

#include <QDBusArgument>
#include <QGuiApplication>
#include <QIcon>
#include <QPixmap>
#include <algorithm>
#include <array>

#include "platform/linux/DBusNotifications.h"
#include "platform/linux/SessionBus.h"
#include "tests/Matchers.h"
#include "tests/e2e/Desktop.h"
#include "tests/fakes/FakeNotificationDaemon.h"

namespace ambrel {
namespace {

const QStringList everything{"body", "body-markup", "actions"};

class NotificationsOnBus : public testing::Test {
 protected:
  NotificationsOnBus() : bus_(openSessionBus()), notifications_(bus_) {}
  void SetUp() override {
    ASSERT_TRUE(bus_.isConnected()) << "no session bus";
    notifications_.setAvailabilityHandler([this](bool is) { heard_.push_back(is); });
  }

  QDBusConnection bus_;
  DBusNotifications notifications_;
  std::vector<bool> heard_;
};

TEST_F(NotificationsOnBus, SaysExactlyWhatTheServiceExpects) {
  FakeNotificationDaemon daemon(everything);
  ASSERT_TRUE(daemon.isRegistered);
  notifications_.post({"s1", "Codex needs you", "a <b> & \"c\"", true});
  notifications_.post({"s2", "Cursor finished", "", false});
  ASSERT_TRUE(waitFor([&] { return daemon.calls.size() == 2; }));
  const NotifyCall& call = daemon.calls.front();
  EXPECT_EQ(call.application, "Tilebay");
  EXPECT_EQ(call.replaces, 0u);
  EXPECT_EQ(call.title, "Codex needs you");
  EXPECT_EQ(call.body, "a &lt;b&gt; &amp; \"c\"");
  EXPECT_EQ(call.actions, (QStringList{"default", "Show"}));
  EXPECT_EQ(call.timeout, -1);
  ASSERT_TRUE(call.hints.contains("urgency"));
  EXPECT_EQ(call.hints["urgency"].userType(), QMetaType::UChar);
  EXPECT_TRUE(call.hints.contains("sound-name"));
  EXPECT_FALSE(call.hints.contains("suppress-sound"));
  EXPECT_EQ(daemon.calls[1].hints["suppress-sound"].userType(), QMetaType::Bool);
  EXPECT_FALSE(daemon.calls[1].hints.contains("sound-name"));
}

TEST_F(NotificationsOnBus, BringTheIconOfTheProgramAlong) {
  QPixmap red(64, 64);
  red.fill(Qt::red);
  QGuiApplication::setWindowIcon(QIcon(red));
  FakeNotificationDaemon daemon(everything);
  notifications_.post({"s1", "t", "", true});
  ASSERT_TRUE(waitFor([&] { return daemon.calls.size() == 1; }));
  QGuiApplication::setWindowIcon({});
  const QVariant hint = daemon.calls.front().hints["image-data"];
  ASSERT_TRUE(hint.canConvert<QDBusArgument>());
  const auto argument = hint.value<QDBusArgument>();
  EXPECT_EQ(argument.currentSignature(), "(iiibiiay)");
  int width = 0, height = 0, rowBytes = 0, bits = 0, samples = 0;
  bool hasAlpha = false;
  QByteArray pixels;
  argument.beginStructure();
  argument >> width >> height >> rowBytes >> hasAlpha >> bits >> samples >> pixels;
  EXPECT_EQ((std::array{width, height, rowBytes, bits, samples}), (std::array{64, 64, 256, 8, 4}));
  EXPECT_TRUE(hasAlpha);
  ASSERT_EQ(pixels.size(), 64 * 256);
  EXPECT_EQ(pixels.left(4), QByteArray("\xff\0\0\xff", 4));
}

TEST_F(NotificationsOnBus, APlainServiceGetsPlainText) {
  FakeNotificationDaemon daemon({"body"});
  notifications_.post({"s1", "t", "a <b> & c", true});
  ASSERT_TRUE(waitFor([&] { return daemon.calls.size() == 1; }));
  EXPECT_EQ(daemon.calls.front().body, "a <b> & c");
  EXPECT_TRUE(daemon.calls.front().actions.isEmpty());
}

TEST_F(NotificationsOnBus, TheSameIdentifierReplaces) {
  FakeNotificationDaemon daemon(everything);
  // The second and third come before the service has answered the first: only the newest of them is sent.
  notifications_.post({"s1", "first", "", true});
  ASSERT_TRUE(waitFor([&] { return daemon.calls.size() == 1; }));
  notifications_.post({"s1", "second", "", true});
  notifications_.post({"s1", "third", "", true});
  ASSERT_TRUE(waitFor([&] { return daemon.calls.back().title == "third"; }));
  EXPECT_EQ(daemon.calls.back().replaces, 41u);
  // Another identifier is another notification.
  notifications_.post({"s2", "other", "", true});
  ASSERT_TRUE(waitFor([&] { return daemon.calls.back().title == "other"; }));
  EXPECT_EQ(daemon.calls.back().replaces, 0u);
}

TEST_F(NotificationsOnBus, ButtonsAndUrgencyReachTheService) {
  FakeNotificationDaemon daemon(everything);
  std::vector<std::pair<std::string, std::string>> pressed;
  notifications_.setActionHandler(
      [&](const std::string& identifier, const std::string& action) { pressed.emplace_back(identifier, action); });
  notifications_.post({.identifier = "alarm",
                       .title = "Alarm",
                       .body = "",
                       .sound = false,
                       .actions = {{"snooze", "Snooze"}, {"stop", "Stop"}},
                       .isUrgent = true});
  ASSERT_TRUE(waitFor([&] { return daemon.calls.size() == 1; }));
  EXPECT_EQ(daemon.calls[0].actions, (QStringList{"default", "Show", "snooze", "Snooze", "stop", "Stop"}));
  EXPECT_EQ(daemon.calls[0].hints["urgency"].value<uchar>(), 2);
  // Buttons are answered once the id is known.
  ASSERT_TRUE(waitFor([&] {
    daemon.press(41, "snooze");
    return !pressed.empty();
  }));
  EXPECT_EQ(pressed.front(), std::pair(std::string("alarm"), std::string("snooze")));
}

TEST_F(NotificationsOnBus, AClosedOneIsNotReplacedAnyMore) {
  FakeNotificationDaemon daemon(everything);
  std::vector<std::string> clicked;
  notifications_.setActivationHandler([&](const std::string& identifier) { clicked.push_back(identifier); });
  notifications_.post({"s1", "first", "", true});
  ASSERT_TRUE(waitFor([&] { return daemon.calls.size() == 1; }));
  // Clicks are answered once the id is known; a click on a stranger's notification is not ours.
  ASSERT_TRUE(waitFor([&] {
    daemon.click(999);
    daemon.click(41);
    return !clicked.empty();
  }));
  for (const std::string& identifier : clicked) EXPECT_EQ(identifier, "s1");
  daemon.dismiss(41);
  notifications_.post({"s2", "fence", "", true});
  ASSERT_TRUE(waitFor([&] { return daemon.calls.size() == 2; }));
  notifications_.post({"s1", "again", "", true});
  ASSERT_TRUE(waitFor([&] { return daemon.calls.size() == 3; }));
  EXPECT_EQ(daemon.calls.back().replaces, 0u);
}

TEST_F(NotificationsOnBus, TellsWhatTheUserHasPutAway) {
  FakeNotificationDaemon daemon(everything);
  std::vector<std::string> dismissed;
  int clicks = 0;
  notifications_.setDismissalHandler([&](const std::string& identifier) { dismissed.push_back(identifier); });
  notifications_.setActivationHandler([&](const std::string&) { ++clicks; });
  for (const char* identifier : {"expired", "withdrawn", "dismissed"})
    notifications_.post({identifier, identifier, "", true});
  ASSERT_TRUE(waitFor([&] { return daemon.calls.size() == 3; }));
  const auto idOf = [&](const char* title) {
    const auto call = std::ranges::find(daemon.calls, QString::fromLatin1(title), &NotifyCall::title);
    return 41 + static_cast<uint>(call - daemon.calls.begin());
  };
  // Their ids are known once the last of them can be clicked.
  ASSERT_TRUE(waitFor([&] {
    daemon.click(43);
    return clicks > 0;
  }));
  daemon.expire(idOf("expired"));
  notifications_.withdraw("withdrawn");
  ASSERT_TRUE(waitFor([&] { return !daemon.closed.empty(); }));
  daemon.dismiss(999);
  daemon.dismiss(idOf("dismissed"));
  ASSERT_TRUE(waitFor([&] { return !dismissed.empty(); }));
  EXPECT_EQ(dismissed, std::vector<std::string>{"dismissed"});
}

TEST_F(NotificationsOnBus, WithdrawsWhatIsShownAndWhatIsUnderWay) {
  FakeNotificationDaemon daemon(everything);
  bool isGranted = false;
  notifications_.requestAuthorization([&](bool granted) { isGranted = granted; });
  ASSERT_TRUE(waitFor([&] { return isGranted; }));
  notifications_.post({"s1", "first", "", true});
  notifications_.withdraw("s1");
  EXPECT_TRUE(waitFor([&] { return daemon.closed == std::vector<uint>{41}; }));
  notifications_.withdraw("s1");
  notifications_.withdraw("unknown");
  notifications_.post({"s1", "second", "", true});
  ASSERT_TRUE(waitFor([&] { return daemon.calls.size() == 2; }));
  EXPECT_EQ(daemon.calls.back().replaces, 0u);
}

TEST_F(NotificationsOnBus, AServiceThatAppearsLaterShowsTheNewestOfEach) {
  bool isAnswered = false, isGranted = true;
  notifications_.requestAuthorization([&](bool granted) {
    isAnswered = true;
    isGranted = granted;
  });
  ASSERT_TRUE(waitFor([&] { return isAnswered; }));
  EXPECT_FALSE(isGranted);
  notifications_.post({"s1", "old", "", true});
  notifications_.post({"s1", "new", "", true});
  notifications_.post({"s2", "gone", "", true});
  notifications_.withdraw("s2");
  QCoreApplication::processEvents();
  EXPECT_THAT(heard_, ElementsAre(false));

  auto daemon = std::make_unique<FakeNotificationDaemon>(everything);
  ASSERT_TRUE(waitFor([&] { return daemon->calls.size() == 1; }));
  EXPECT_EQ(daemon->calls.front().title, "new");
  EXPECT_THAT(heard_, ElementsAre(false, true));
  // The ids of a service that went away mean nothing to the next one.
  daemon.reset();
  ASSERT_TRUE(waitFor([&] { return heard_.size() == 3; }));
  daemon = std::make_unique<FakeNotificationDaemon>(everything);
  ASSERT_TRUE(waitFor([&] { return heard_.size() == 4; }));
  notifications_.post({"s1", "third", "", true});
  ASSERT_TRUE(waitFor([&] { return daemon->calls.size() == 1; }));
  EXPECT_EQ(daemon->calls.front().replaces, 0u);
  EXPECT_THAT(heard_, ElementsAre(false, true, false, true));
}

class NotificationsOnDunst : public NotificationsOnBus {
 protected:
  static int displayed() {
    const Outcome count = run("dunstctl", {"count", "displayed"});
    return count.status == 0 ? std::atoi(count.output.c_str()) : -1;
  }
};

TEST_F(NotificationsOnDunst, ShowsReplacesAndWithdraws) {
  const QTemporaryDir folder;
  writeFile(folder.filePath("dunstrc"), "[global]\n    markup = full\n");
  const Client dunst("dunst", {"-conf", folder.filePath("dunstrc")});
  bool isGranted = false;
  notifications_.requestAuthorization([&](bool granted) { isGranted = granted; });
  if (!waitFor([&] { return isGranted; }, 500)) {
    ASSERT_TRUE(waitFor([&] { return heard_.size() == 2; })) << "dunst did not come";
  }
  notifications_.post({"s1", "Codex needs you", "<project> & more", true});
  notifications_.post({"s2", "Cursor finished", "other", true});
  EXPECT_TRUE(waitFor([&] { return displayed() == 2; }));
  notifications_.post({"s1", "Codex finished", "<project> & more", true});
  notifications_.withdraw("s2");
  EXPECT_TRUE(waitFor([&] { return displayed() == 1; }));
  notifications_.withdraw("s1");
  EXPECT_TRUE(waitFor([&] { return displayed() == 0; }));
  const std::string history = run("dunstctl", {"history"}).output;
  EXPECT_NE(history.find("Codex finished"), std::string::npos);
  EXPECT_NE(history.find("&lt;project&gt; &amp; more"), std::string::npos) << history;
  EXPECT_EQ(history.find("Codex needs you"), std::string::npos);
}

}  // namespace
}  // namespace ambrel
