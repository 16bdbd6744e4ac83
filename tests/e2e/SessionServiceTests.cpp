// The running bar and those that want something of it, each a process of its own.

#include <QCoreApplication>

#include "platform/linux/DBusSessionService.h"
#include "platform/linux/SessionBus.h"
#include "tests/Matchers.h"
#include "tests/e2e/Desktop.h"

namespace ambrel {
namespace {

Outcome secondStart(const QStringList& arguments) {
  return run(QCoreApplication::applicationFilePath(), QStringList{"--second-start"} + arguments);
}

Outcome callMethod(const QString& method, const QStringList& arguments = {}) {
  return run("gdbus", QStringList{"call", "--session", "--dest", "dev.qorvin.ambrel", "--object-path",
                                  "/dev/qorvin/ambrel", "--method", "dev.qorvin.ambrel." + method} +
                          arguments);
}

TEST(SessionServiceOnBus, ASecondStartHandsItsWishOver) {
  DBusSessionService service(openSessionBus());
  ASSERT_EQ(service.start(std::nullopt), SessionRole::owner);
  std::vector<Wish> wishes;
  service.setWishHandler([&](const Wish& wish) { wishes.push_back(wish); });

  const std::vector<std::pair<QStringList, Wish>> cases{
      {{}, wish::Reveal{}},
      {{"--reveal"}, wish::Reveal{}},
      {{"--toggle-clipboard"}, wish::ToggleClipboard{}},
      {{"--toggle-agents"}, wish::ToggleAgents{}},
      {{"--capture-notes"}, wish::CaptureNotes{}},
      {{"--copy-pinned", "7"}, wish::CopyPinned{7}},
      {{"--ask", "what's \"new\" in café?"}, wish::Ask{"what's \"new\" in café?"}},
      {{"--open-disk-doctor"}, wish::OpenDiskDoctor{}},
      {{"--settings"}, wish::Settings{}},
      {{"--customize"}, wish::Customize{}},
      {{"--quit"}, wish::Quit{}},
  };
  for (const auto& [arguments, expected] : cases) {
    wishes.clear();
    EXPECT_EQ(secondStart(arguments).output, "handedOver\n");
    EXPECT_TRUE(waitFor([&] { return !wishes.empty(); })) << arguments.join(' ').toStdString();
    EXPECT_THAT(wishes, ElementsAre(expected));
  }
}

TEST(SessionServiceOnBus, EveryMethodIsForEveryone) {
  DBusSessionService service(openSessionBus());
  ASSERT_EQ(service.start(std::nullopt), SessionRole::owner);
  // What comes before anyone listens is kept.
  EXPECT_EQ(callMethod("CopyPinned", {"3"}).status, 0);
  EXPECT_EQ(callMethod("Ask", {"hello"}).status, 0);
  std::vector<Wish> wishes;
  service.setWishHandler([&](const Wish& wish) { wishes.push_back(wish); });
  EXPECT_THAT(wishes, ElementsAre(Wish(wish::CopyPinned{3}), Wish(wish::Ask{"hello"})));
  EXPECT_NE(callMethod("CopyPinned", {"0"}).status, 0);
  EXPECT_NE(callMethod("CopyPinned", {"10"}).status, 0);
  EXPECT_NE(callMethod("Ask", {" "}).status, 0);
  EXPECT_NE(callMethod("DeleteEverything").status, 0);
  EXPECT_EQ(wishes.size(), 2u);
}

TEST(SessionServiceOnBus, TheNameIsFreeAgainAfterTheEnd) {
  { EXPECT_EQ(DBusSessionService(openSessionBus()).start(std::nullopt), SessionRole::owner); }
  EXPECT_EQ(secondStart({}).output, "owner\n");
}

}  // namespace
}  // namespace ambrel
