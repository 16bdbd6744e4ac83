#include <gtest/gtest.h>

#include "platform/linux/ProcReadings.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {
namespace {

class ProcReadingsBelow : public testing::Test {
 protected:
  void hasInterfaces(std::initializer_list<const char*> names) {
    std::string text = "Inter-|   Receive  |  Transmit\n face |bytes packets|bytes packets\n";
    std::uint64_t bytes = 0;
    for (const char* name : names) {
      bytes += 1000;
      text += std::string(name) + ": " + std::to_string(bytes) + " 1 0 0 0 0 0 0 " + std::to_string(bytes + 1) +
              " 1 0 0 0 0 0 0\n";
    }
    folder_.write("proc/net/dev", text);
  }
  // What the kernel shows below the interface's folder: "device" for hardware.
  void marks(const std::string& interface, const std::string& mark) {
    folder_.write("sys/class/net/" + interface + "/" + mark, "");
  }
  std::vector<std::string> counted() {
    std::vector<std::string> names;
    for (const auto& [name, bytes] : readings_.network()) names.push_back(name);
    return names;
  }

  TemporaryFolder folder_;
  ProcReadings readings_{folder_.path()};
};

using Names = std::vector<std::string>;

TEST_F(ProcReadingsBelow, ReadsTheKernelsFilesWhereverTheRootIs) {
  EXPECT_FALSE(readings_.processor() || readings_.memory() || !readings_.network().empty());
  folder_.write("proc/stat", "cpu  10 20 30 40 50 60 70 80 90 100\ncpu0 1 1 1 1 1 1 1 1 1 1\n");
  folder_.write("proc/meminfo", "MemTotal: 200 kB\nMemFree: 1 kB\nMemAvailable: 50 kB\n");
  EXPECT_EQ(readings_.processor()->columns, (std::array<std::uint64_t, 8>{10, 20, 30, 40, 50, 60, 70, 80}));
  EXPECT_EQ(readings_.memory()->usedBytes(), 150u * 1024);
  folder_.write("proc/stat", "");
  EXPECT_EQ(readings_.processor(), std::nullopt);
}

TEST_F(ProcReadingsBelow, CountsEachByteOfTheNetworkOnce) {
  hasInterfaces({"lo", "enp3s0", "wlan0", "docker0", "veth12", "tun0", "wg0"});
  marks("enp3s0", "device/vendor");
  marks("wlan0", "device/vendor");
  marks("docker0", "bridge/bridge_id");
  marks("tun0", "tun_flags");
  EXPECT_EQ(counted(), (Names{"enp3s0", "wlan0"}));
  EXPECT_EQ(readings_.network().at("enp3s0"), (InterfaceBytes{2000, 2001}));
  hasInterfaces({"enp3s0", "usb0"});
  marks("usb0", "device/vendor");
  EXPECT_EQ(counted(), (Names{"enp3s0", "usb0"})) << "one that is plugged in is seen at the next reading";
}

TEST_F(ProcReadingsBelow, InAContainerWhatIsNeitherLoopNorBridgeIsTheNetwork) {
  hasInterfaces({"lo", "eth0", "docker0", "tun0"});
  marks("docker0", "bridge/bridge_id");
  marks("tun0", "tun_flags");
  EXPECT_EQ(counted(), Names{"eth0"});
}

TEST_F(ProcReadingsBelow, ATextOfManyPagesIsReadToItsEnd) {
  std::string lines(20'000, ' ');
  for (std::size_t i = 40; i < lines.size(); i += 40) lines[i] = '\n';
  folder_.write("proc/net/dev", lines + "\nlast0: 7 1 0 0 0 0 0 0 8 1 0 0 0 0 0 0\n");
  EXPECT_EQ(readings_.network().at("last0"), (InterfaceBytes{7, 8}));
  // And what gets shorter leaves nothing behind.
  hasInterfaces({"usb0"});
  EXPECT_EQ(counted(), Names{"usb0"});
}

TEST_F(ProcReadingsBelow, TheVolumeOfTheRootHasRoomWithinItsSize) {
  const auto sizes = readings_.startUpVolume();
  ASSERT_TRUE(sizes);
  EXPECT_GT(sizes->totalBytes, 0);
  EXPECT_GE(sizes->freeBytes, 0);
  EXPECT_LE(sizes->freeBytes, sizes->totalBytes);
  EXPECT_EQ(ProcReadings(folder_ / "missing").startUpVolume(), std::nullopt);
}

}  // namespace
}  // namespace ambrel
