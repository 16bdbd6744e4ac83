#include <cstdlib>

#include "core/base/Files.h"
#include "tests/platform/linux/telemetry/TelemetryFixture.h"

namespace ambrel {
namespace {

// The desktop's NVIDIA card, answered for by a library of the test's.
class NVIDIACard : public testing::Test {
 protected:
  NVIDIACard() {
    setenv("FAKE_NVIDIA_LOG", (machine_.tree / "calls").c_str(), 1);
    isBusy(0);
  }
  ~NVIDIACard() override {
    unsetenv("FAKE_NVIDIA_LOG");
    unsetenv("FAKE_NVIDIA_LOAD");
  }
  static void isBusy(int percent) { setenv("FAKE_NVIDIA_LOAD", std::to_string(percent).c_str(), 1); }
  void isSet(const char* file, const char* value) {
    machine_.tree.write(std::string("sys/bus/pci/devices/0000:01:00.0/power/") + file, value);
  }
  // Since the last time.
  std::string calls() {
    const std::string text = readFile(machine_.tree / "calls").value_or("");
    machine_.tree.remove("calls");
    return text;
  }

  Machine machine_{"desktop", FAKE_NVIDIA_MANAGEMENT};
};

TEST_F(NVIDIACard, IsAskedAndLetGoOfEachTime) {
  isBusy(42);
  EXPECT_EQ(machine_.telemetry.gpu(), 0.42);
  EXPECT_EQ(calls(), "init ask shutdown ");
  isBusy(3);
  EXPECT_EQ(machine_.telemetry.gpu(), 0.07) << "the busiest card counts";
  EXPECT_EQ(calls(), "init ask shutdown ");
}

TEST_F(NVIDIACard, IsNotAskedWhileItSleeps) {
  isBusy(42);
  for (const char* status : {"suspended\n", "suspending\n"}) {
    isSet("runtime_status", status);
    EXPECT_EQ(machine_.telemetry.gpu(), 0.07);
    EXPECT_EQ(calls(), "");
  }
}

TEST_F(NVIDIACard, ThatMaySleepIsLetAloneOnceItIsIdle) {
  isSet("control", "auto\n");
  EXPECT_EQ(machine_.telemetry.gpu(), 0.07);
  EXPECT_EQ(calls(), "init ask shutdown ");
  isBusy(90);
  machine_.pass(29);
  EXPECT_EQ(machine_.telemetry.gpu(), 0.07);
  EXPECT_EQ(calls(), "");
  machine_.pass(2);
  EXPECT_EQ(machine_.telemetry.gpu(), 0.9);
  EXPECT_EQ(machine_.telemetry.gpu(), 0.9) << "busy it has no sleep to be kept from";
  EXPECT_EQ(calls(), "init ask shutdown init ask shutdown ");
}

TEST_F(NVIDIACard, WithoutAnAnswerDoesNotCount) {
  unsetenv("FAKE_NVIDIA_LOAD");
  EXPECT_EQ(machine_.telemetry.gpu(), 0.07);
  machine_.tree.remove("sys/class/drm");
  EXPECT_EQ(machine_.telemetry.gpu(), std::nullopt);
  EXPECT_EQ(Machine("desktop").telemetry.gpu(), 0.07) << "no library";
}

// How long i915 has let its engine sleep.
class EngineSleep : public testing::Test {
 protected:
  void hasSlept(long long milliseconds) {
    machine_.tree.write("sys/class/drm/card1/gt/gt0/rc6_residency_ms", std::to_string(milliseconds) + "\n");
  }
  Machine machine_{"laptop"};
};

TEST_F(EngineSleep, TellsTheLoadOverTheSpanSinceTheLastReading) {
  machine_.paused = [this](std::chrono::milliseconds span) {
    machine_.pass(static_cast<double>(span.count()) / 1000);
    hasSlept(500'000 + span.count() / 4);
  };
  EXPECT_DOUBLE_EQ(machine_.telemetry.gpu().value(), 0.75);
  machine_.paused = [](std::chrono::milliseconds) { FAIL() << "there is an earlier reading"; };
  machine_.pass(4);
  hasSlept(500'025 + 1000);
  EXPECT_DOUBLE_EQ(machine_.telemetry.gpu().value(), 0.75);
  machine_.pass(4);
  hasSlept(500'025 + 1000 + 5000);
  EXPECT_EQ(machine_.telemetry.gpu(), 0) << "the counter runs a little ahead of the clock";
}

TEST_F(EngineSleep, IsMeasuredAgainAfterASleepOfTheComputer) {
  machine_.telemetry.gpu();
  machine_.pass(3600);
  int pauses = 0;
  machine_.paused = [&](std::chrono::milliseconds span) {
    ++pauses;
    machine_.pass(static_cast<double>(span.count()) / 1000);
  };
  hasSlept(500'010);
  EXPECT_EQ(machine_.telemetry.gpu(), 1);
  EXPECT_EQ(pauses, 1);
  // A sleeping card is not looked at.
  machine_.tree.write("sys/class/drm/card1/device/power/runtime_status", "suspended\n");
  machine_.pass(3600);
  EXPECT_EQ(machine_.telemetry.gpu(), 0);
  EXPECT_EQ(pauses, 1);
}

TEST_F(EngineSleep, OfXeIsBelowItsTiles) {
  machine_.tree.remove("sys/class/drm/card1/gt");
  machine_.tree.write("sys/class/drm/card1/device/tile0/gt0/gtidle/idle_residency_ms", "1000\n");
  machine_.tree.write("sys/class/drm/card1/device/tile0/gt1/gtidle/idle_residency_ms", "2000\n");
  machine_.paused = [this, calls = 0](std::chrono::milliseconds span) mutable {
    machine_.pass(static_cast<double>(span.count()) / 1000);
    const char* file = calls++ == 0 ? "sys/class/drm/card1/device/tile0/gt0/gtidle/idle_residency_ms"
                                    : "sys/class/drm/card1/device/tile0/gt1/gtidle/idle_residency_ms";
    machine_.tree.write(file, calls == 1 ? "1090\n" : "2060\n");
  };
  EXPECT_DOUBLE_EQ(machine_.telemetry.gpu().value(), 0.4) << "the busier engine";
}

}  // namespace
}  // namespace ambrel
