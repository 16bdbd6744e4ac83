#pragma once
// A machine of the test data, whose clock the test moves on and whose files it changes.

#include <gtest/gtest.h>

#include "platform/linux/telemetry/LinuxTelemetry.h"
#include "tests/MachineTree.h"

namespace ambrel {

struct Machine {
  static constexpr std::uint64_t second = 1'000'000'000;

  explicit Machine(const std::string& name = {}, std::string managementLibrary = "no-such-library.so")
      : tree(AMBREL_CASES, name),
        telemetry({.root = tree.path(),
                   .managementLibrary = std::move(managementLibrary),
                   .clock = [this] { return now; },
                   .pause = [this](std::chrono::milliseconds span) { paused(span); },
                   .ticksPerSecond = 100,
                   .wireless = [this](const netlink::Request& request) { return answer(request); },
                   .otherSupplies = [this] { return ++supplyQuestions, otherSupplies; }}) {}

  void pass(double seconds) { now += static_cast<std::uint64_t>(seconds * 1e9); }

  MachineTree tree;
  std::uint64_t now = 1000 * second;
  std::function<void(std::chrono::milliseconds)> paused = [this](std::chrono::milliseconds span) {
    pass(static_cast<double>(span.count()) / 1000);
  };
  std::function<std::optional<std::vector<netlink::Reply>>(const netlink::Request&)> answer =
      [](const netlink::Request&) { return std::nullopt; };
  std::vector<PowerSupply> otherSupplies;
  int supplyQuestions = 0;
  LinuxTelemetry telemetry;
};

}  // namespace ambrel
