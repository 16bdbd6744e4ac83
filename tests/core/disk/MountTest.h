#pragma once
// Tests that mount: the program gives itself a mount namespace, so that nothing is mounted for anyone else; where the
// system forbids that, they are skipped.

#include <fstream>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>

#include "tests/core/disk/Tree.h"

namespace ambrel::test {

class MountTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    const std::string uid = std::to_string(getuid()), gid = std::to_string(getgid());
    isAvailable_ = unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0;
    if (!isAvailable_) return;
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/uid_map") << uid << " " << uid << " 1";
    std::ofstream("/proc/self/gid_map") << gid << " " << gid << " 1";
    isAvailable_ = mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
  }
  void SetUp() override {
    if (!isAvailable_) GTEST_SKIP() << "mounting is not permitted here";
  }
  static bool isAvailable() { return isAvailable_; }
  static void mountMemory(const std::string& place, unsigned long flags = 0, const char* options = nullptr) {
    ASSERT_EQ(mount("none", place.c_str(), "tmpfs", flags, options), 0) << place;
  }
  static void bindMount(const std::string& source, const std::string& place) {
    ASSERT_EQ(mount(source.c_str(), place.c_str(), nullptr, MS_BIND, nullptr), 0) << place;
  }
  static void unmount(const std::string& place) { EXPECT_EQ(umount2(place.c_str(), MNT_DETACH), 0) << place; }

 private:
  static inline bool isAvailable_ = false;
};

}  // namespace ambrel::test
