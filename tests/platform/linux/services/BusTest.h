#pragma once

#include <gtest/gtest.h>
#include <memory>

#include "tests/fakes/PrivateBus.h"

namespace ambrel {

// On a bus of its own; skipped without dbus-daemon.
class BusTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!bus_.isRunning()) GTEST_SKIP() << "no dbus-daemon";
    play();
  }
  // Puts on the bus what is there when the test begins.
  virtual void play() {}
  std::unique_ptr<FakeService> service(const char* name) {
    return std::make_unique<FakeService>(bus_.connection(), QString::fromLatin1(name));
  }

  PrivateBus bus_;
};

}  // namespace ambrel
