#include <QThread>

#include "platform/linux/services/UPowerSupplies.h"
#include "tests/platform/linux/services/BusTest.h"

namespace ambrel {
namespace {

class UPowerOnBus : public BusTest {
 protected:
  void play() override {
    upower_ = service("org.freedesktop.UPower");
    upower_->answer = [this](const QDBusMessage& message) {
      return message.createReply(QVariant::fromValue(QList<QDBusObjectPath>(upower_->objects.keys())));
    };
  }
  void has(const char* name, QVariantMap properties) {
    properties.insert("NativePath", QString::fromLatin1(name));
    upower_->objects[QDBusObjectPath("/org/freedesktop/UPower/devices/" + QString::fromLatin1(name))]
                    ["org.freedesktop.UPower.Device"] = properties;
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
  has("AC", {{"Type", 1u}, {"PowerSupply", true}, {"Online", true}});
  has("BAT0", {{"Type", 2u},
               {"PowerSupply", true},
               {"IsPresent", true},
               {"State", 1u},
               {"Percentage", 50.0},
               {"Energy", 25.0},
               {"EnergyFull", 50.0},
               {"EnergyFullDesign", 60.0},
               {"EnergyRate", 10.0},
               {"TimeToEmpty", qlonglong(0)},
               {"TimeToFull", qlonglong(9000)},
               {"ChargeCycles", 77}});
  has("keyboard",
      {{"Type", 2u}, {"PowerSupply", false}, {"IsPresent", true}, {"Percentage", 20.0}});  // it calls itself a battery
  has("mouse", {{"Type", 5u}, {"PowerSupply", false}, {"Percentage", 20.0}});
  const auto supplies = read();
  ASSERT_EQ(supplies.size(), 4u);
  EXPECT_EQ(powerReading(supplies),
            (PowerReading{.isOnAdapter = true, .isCharging = true, .percent = 50, .minutesToFull = 150}));
  EXPECT_EQ(batteryHealth(supplies).health, (BatteryHealth{77, 83, BatteryCondition::normal}));

  using Status = PowerSupply::Status;
  const std::pair<uint, Status> states[] = {{2, Status::discharging},
                                            {3, Status::discharging},
                                            {4, Status::full},
                                            {5, Status::notCharging},
                                            {99, Status::unknown}};
  upower_->objects.clear();
  for (const auto& [state, status] : states) {
    has("BAT0", {{"Type", 2u}, {"PowerSupply", true}, {"State", state}});
    EXPECT_EQ(read().at(0).status, status) << state;
  }
}

TEST_F(UPowerOnBus, WithoutTheServiceThereIsNothing) {
  upower_->stop();
  EXPECT_TRUE(read().empty());
  EXPECT_TRUE(readUPower(QDBusConnection("none")).empty());
}

}  // namespace
}  // namespace ambrel
