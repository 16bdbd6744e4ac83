#include <QThread>

#include "platform/linux/services/UPowerSupplies.h"
#include "tests/platform/linux/services/BusTest.h"

namespace ambrel {
namespace {

class UPowerOnBus : public BusTest {
 protected:
  void SetUp() override {
    BusTest::SetUp();
    if (IsSkipped()) return;
    upower_ = service("org.freedesktop.UPower");
    upower_->answer = [this](const QDBusMessage& message) {
      return message.createReply(QVariant::fromValue(QList<QDBusObjectPath>(upower_->objects.keys())));
    };
  }
  void has(const char* name, QVariantMap properties) {
    properties.insert(QStringLiteral("NativePath"), QString::fromLatin1(name));
    upower_->objects[QDBusObjectPath(QStringLiteral("/org/freedesktop/UPower/devices/") + QString::fromLatin1(name))]
                    [QStringLiteral("org.freedesktop.UPower.Device")] = properties;
  }
  // On a thread of its own, as in the program, while the service is played on this one.
  std::vector<PowerSupply> read() {
    std::vector<PowerSupply> supplies;
    const QDBusConnection connection = bus_.connection();
    std::unique_ptr<QThread> worker(QThread::create([&] { supplies = readUPower(connection); }));
    worker->start();
    EXPECT_TRUE(happens([&] { return worker->isFinished(); }));
    worker->wait();
    return supplies;
  }

  std::unique_ptr<FakeService> upower_;
};

TEST_F(UPowerOnBus, TellsBatteriesAndAdapters) {
  has("AC", {{QStringLiteral("Type"), 1u}, {QStringLiteral("PowerSupply"), true}, {QStringLiteral("Online"), true}});
  has("BAT0", {{QStringLiteral("Type"), 2u},
               {QStringLiteral("PowerSupply"), true},
               {QStringLiteral("IsPresent"), true},
               {QStringLiteral("State"), 1u},
               {QStringLiteral("Percentage"), 50.0},
               {QStringLiteral("Energy"), 25.0},
               {QStringLiteral("EnergyFull"), 50.0},
               {QStringLiteral("EnergyFullDesign"), 60.0},
               {QStringLiteral("EnergyRate"), 10.0},
               {QStringLiteral("TimeToEmpty"), qlonglong(0)},
               {QStringLiteral("TimeToFull"), qlonglong(9000)},
               {QStringLiteral("ChargeCycles"), 77}});
  has("mouse",
      {{QStringLiteral("Type"), 5u}, {QStringLiteral("PowerSupply"), false}, {QStringLiteral("Percentage"), 20.0}});
  const auto supplies = read();
  ASSERT_EQ(supplies.size(), 3u);
  EXPECT_EQ(powerReading(supplies),
            (PowerReading{.isOnAdapter = true, .isCharging = true, .percent = 50, .minutesToFull = 150}));
  EXPECT_EQ(batteryHealth(supplies).health, (BatteryHealth{77, 83, BatteryCondition::normal}));
}

TEST_F(UPowerOnBus, AKeyboardThatCallsItselfABatteryIsNone) {
  has("hid", {{QStringLiteral("Type"), 2u},
              {QStringLiteral("PowerSupply"), false},
              {QStringLiteral("IsPresent"), true},
              {QStringLiteral("Percentage"), 20.0}});
  EXPECT_FALSE(hasBattery(read()));
}

TEST_F(UPowerOnBus, StatesHaveTheirMeaning) {
  using Status = PowerSupply::Status;
  const std::pair<uint, Status> cases[] = {{0, Status::unknown},     {1, Status::charging}, {2, Status::discharging},
                                           {3, Status::discharging}, {4, Status::full},     {5, Status::notCharging},
                                           {6, Status::notCharging}, {99, Status::unknown}};
  for (const auto& [state, status] : cases) {
    has("BAT0",
        {{QStringLiteral("Type"), 2u}, {QStringLiteral("PowerSupply"), true}, {QStringLiteral("State"), state}});
    EXPECT_EQ(read().at(0).status, status) << state;
  }
}

TEST_F(UPowerOnBus, WithoutTheServiceThereIsNothing) {
  upower_->stop();
  EXPECT_TRUE(read().empty());
  EXPECT_TRUE(readUPower(QDBusConnection(QStringLiteral("none"))).empty());
}

}  // namespace
}  // namespace ambrel
