#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/linux/services/SystemKeepAwake.h"
#include "tests/platform/linux/services/BusTest.h"

namespace ambrel {
namespace {

// A session manager that gives out one end of a pipe, as the real one does: it sees when the other is closed.
class KeepAwakeOnBus : public BusTest {
 protected:
  void play() override {
    login_ = service("org.freedesktop.login1");
    login_->answer = [this](const QDBusMessage& message) {
      int ends[2];
      EXPECT_EQ(pipe2(ends, O_CLOEXEC | O_NONBLOCK), 0);
      held_ = ends[0];
      QDBusUnixFileDescriptor given;
      given.giveFileDescriptor(ends[1]);
      return message.createReply(QVariant::fromValue(given));
    };
    keepAwake_ = std::make_unique<SystemKeepAwake>(bus_.connection(), bus_.connection());
  }
  void TearDown() override {
    if (held_ >= 0) close(held_);
  }
  void playScreenSaver() {
    saver_ = service("org.freedesktop.ScreenSaver");
    saver_->answer = [](const QDBusMessage& message) {
      return message.member() == QLatin1String("Inhibit") ? message.createReply(QVariant(4711u))
                                                          : message.createReply();
    };
  }
  bool take() {
    std::optional<bool> told;
    keepAwake_->take([&](bool isHeld) { told = isHeld; });
    EXPECT_FALSE(told) << "later";
    EXPECT_TRUE(happens([&] { return told.has_value(); }));
    return told.value_or(false);
  }
  // Whether nobody holds the other end.
  bool isReleased() const {
    char byte;
    return read(held_, &byte, 1) == 0;
  }

  std::unique_ptr<FakeService> login_, saver_;
  std::unique_ptr<SystemKeepAwake> keepAwake_;
  int held_ = -1;
};

TEST_F(KeepAwakeOnBus, HoldsTheInhibitorUntilItIsReleased) {
  EXPECT_TRUE(take());
  EXPECT_TRUE(keepAwake_->isHeld());
  ASSERT_EQ(login_->calls.size(), 1u);
  EXPECT_EQ(login_->calls[0].arguments, (QVariantList{"sleep:idle", "Tilebay", "Keep Awake is on", "block"}));
  EXPECT_TRUE(take()) << "a second time";
  EXPECT_EQ(login_->calls.size(), 1u);
  EXPECT_FALSE(isReleased());
  keepAwake_->release();
  EXPECT_FALSE(keepAwake_->isHeld());
  EXPECT_TRUE(happens([this] { return isReleased(); }));
  // It ends with its owner.
  EXPECT_TRUE(take());
  keepAwake_.reset();
  EXPECT_TRUE(happens([this] { return isReleased(); }));
  keepAwake_ = std::make_unique<SystemKeepAwake>(bus_.connection(), bus_.connection());
  login_->answer = [](const QDBusMessage& message) {
    return message.createErrorReply(QDBusError::AccessDenied, "Permission denied");
  };
  EXPECT_FALSE(take()) << "a refusal is told";
}

TEST_F(KeepAwakeOnBus, KeepsTheScreensOnToo) {
  playScreenSaver();
  EXPECT_TRUE(take());
  EXPECT_EQ(saver_->members(), std::vector<QString>{"Inhibit"});
  keepAwake_->release();
  EXPECT_TRUE(happens([this] { return saver_->calls.size() == 2; }));
  EXPECT_EQ(saver_->calls[1].member, "UnInhibit");
  EXPECT_EQ(saver_->calls[1].arguments, QVariantList{4711u});
}

TEST_F(KeepAwakeOnBus, AGrantThatComesTooLateIsGivenBack) {
  playScreenSaver();
  int told = 0;
  keepAwake_->take([&](bool isHeld) { told += isHeld ? 100 : 1; });
  keepAwake_->release();
  EXPECT_TRUE(happens([this] { return saver_->calls.size() == 2 && held_ >= 0; }));
  EXPECT_TRUE(happens([this] { return isReleased(); }));
  EXPECT_EQ(told, 1);
  EXPECT_FALSE(keepAwake_->isHeld());
  EXPECT_TRUE(take()) << "and it can be taken again";
}

TEST(KeepAwake, WithoutABusTheWindowSystemHasToDo) {
  const QDBusConnection none("none");
  std::vector<bool> asked;
  SystemKeepAwake keepAwake(none, none, [&](bool isHeld) {
    asked.push_back(isHeld);
    return true;
  });
  bool isHeld = false;
  keepAwake.take([&](bool is) { isHeld = is; });
  keepAwake.take({});
  QCoreApplication::processEvents();
  EXPECT_TRUE(isHeld);
  EXPECT_TRUE(keepAwake.isHeld());
  keepAwake.release();
  keepAwake.release();
  EXPECT_FALSE(keepAwake.isHeld());
  EXPECT_EQ(asked, (std::vector<bool>{true, false}));

  SystemKeepAwake powerless(none, none, [](bool) { return false; });
  int told = 0;
  powerless.take([&](bool is) { told += is ? 100 : 1; });
  QCoreApplication::processEvents();
  EXPECT_EQ(told, 1);
}

}  // namespace
}  // namespace ambrel
