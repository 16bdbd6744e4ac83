#include <gmock/gmock.h>

#include "core/developer/BrewPackages.h"
#include "core/developer/Containers.h"
#include "core/developer/HTTPAnswer.h"
#include "core/developer/LocalServers.h"
#include "core/developer/Simulators.h"

namespace ambrel {
namespace {

using std::string_view_literals::operator""sv;
using testing::ElementsAre;

TEST(LocalServers, AreTheListenersOfBothTablesOneForEachPortAndProcess) {
  auto sockets = parseListeningSockets(
      "  sl  local_address rem_address   st tx_queue rx_queue tr tm->when retrnsmt   uid  timeout inode\n"
      "   0: 0100007F:1435 00000000:0000 0A 00000000:00000000 00:00000000 00000000  1000        0 501 1 0 100 0\n"
      "   1: 0100007F:1435 0100007F:D431 01 00000000:00000000 00:00000000 00000000  1000        0 502 1 0 20 4\n"
      "   2: 3500007F:0035 00000000:0000 0A 00000000:00000000 00:00000000 00000000   101        0 503 1 0 100 0\n"
      "   3: 0501A8C0:0050 00000000:0000 0A 00000000:00000000 00:00000000 00000000  1000        0 504 1 0 100 0\n"
      "   4: 0100007F:0BB8 00000000:0000 0A 00000000:00000000 00:0000\n"
      "   5: nonsense\n");
  const auto six = parseListeningSockets(
      "   0: 00000000000000000000000001000000:1435 00000000000000000000000000000000:0000 0A 00000000:00000000 "
      "00:00000000 00000000  1000        0 505 1 0 100 0\n");
  ASSERT_EQ(sockets.size(), 3u);
  sockets.insert(sockets.end(), six.begin(), six.end());
  const SocketHolder server{
      .pid = 70, .startTicks = 900, .name = "node", .folder = "/home/u/shop", .inodes = {501, 505}};
  const SocketHolder worker{.pid = 60, .startTicks = 950, .name = "node", .folder = "/", .inodes = {501, 504}};
  const auto servers = localServers(sockets, {worker, server});
  ASSERT_EQ(servers.size(), 3u);
  EXPECT_EQ(servers[0].pid, 60);
  EXPECT_EQ(webAddress(servers[0]), "http://192.168.1.5:80");
  EXPECT_EQ(servers[1], (LocalServer{5173, {"127.0.0.1", "::1"}, 1000, 70, 900, "node", "/home/u/shop"}))
      << "a socket is its first holder's, not that of the worker that has inherited it";
  EXPECT_EQ(webAddress(servers[1]), "http://localhost:5173");
  EXPECT_EQ(servers[2].port, 53) << "other users' come last";
  EXPECT_EQ(servers[2].pid, 0);
}

TEST(HTTPAnswer, IsTakenWholeOrNotAtAll) {
  const auto body = [](std::string_view bytes) {
    const auto answer = parseHTTPAnswer(bytes);
    return answer ? std::to_string(answer->status) + " " + answer->body : "none";
  };
  EXPECT_EQ(body("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nabcdef"), "200 abcd");
  EXPECT_EQ(body("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nabc"), "none");
  EXPECT_EQ(body("HTTP/1.0 500 No\r\n\r\nuntil the end"), "500 until the end");
  EXPECT_EQ(body("HTTP/1.1 204 No Content\r\nContent-Length: 9\r\n\r\n"), "204 ");
  constexpr std::string_view chunked = "HTTP/1.1 200 OK\r\ntransfer-encoding: Chunked\r\n\r\n";
  EXPECT_EQ(body(std::string(chunked) + "3;x=1\r\nabc\r\nA\r\n0123456789\r\n0\r\n\r\n"), "200 abc0123456789");
  for (const char* broken : {"3\r\nabc\r\n", "3\r\nabcd\r\n0\r\n\r\n", "ffffffffffffffff\r\nabc", "-1\r\n", ""})
    EXPECT_EQ(body(std::string(chunked) + broken), "none") << broken;
  EXPECT_EQ(body("HTTP/1.1 200 OK\r\n"), "none");
  EXPECT_EQ(body("SSH-2.0-OpenSSH\r\n\r\n"), "none");
}

TEST(Containers, AreReadFromTheListOfEitherEngine) {
  const auto found = parseContainers(R"json([
    {"Id": "aa11", "Names": ["/old"], "Image": "busybox", "State": "exited", "Status": "Exited (0) 2 days ago"},
    {"Id": "bb22", "Names": ["/web"], "Image": "nginx:1.25", "State": "running", "Status": "Up 2 hours (unhealthy)",
     "Ports": [{"PrivatePort": 80, "PublicPort": 8080, "Type": "tcp", "IP": "::"}, {"PrivatePort": 9},
               {"PublicPort": 8080}, {"PublicPort": 99999}]},
    {"Id": "cc3333333333333333", "Names": null, "State": "running", "Status": "Up 1 second", "Ports": null,
     "Health": {"Status": "healthy"}},
    {"Names": ["/nobody"]}, 7])json");
  ASSERT_TRUE(found);
  ASSERT_EQ(found->size(), 3u);
  EXPECT_EQ((*found)[0].name, "cc3333333333");
  EXPECT_EQ((*found)[0].health, Container::Health::healthy);
  EXPECT_EQ(
      (*found)[1],
      (Container{"bb22", "web", "nginx:1.25", "Up 2 hours (unhealthy)", true, Container::Health::unhealthy, {8080}}));
  EXPECT_FALSE((*found)[2].isRunning);
  EXPECT_FALSE(parseContainers("{\"message\": \"no\"}"));
  EXPECT_EQ(engineComplaint("{\"message\": \"No such container: x\"}"), "No such container: x");
}

TEST(ContainerLog, IsReadableWhateverTheProgramWrote) {
  const auto frame = [](char stream, std::string_view text) {
    return std::string{stream, 0, 0, 0, 0, 0, 0, static_cast<char>(text.size())}.append(text);
  };
  EXPECT_EQ(readableLog(frame(1, "one\n") + frame(2, "two\nth") + frame(1, "ree\n"), 9), "one\ntwo\nthree");
  EXPECT_EQ(readableLog(frame(1, "one\ntwo\nthree\n"), 2), "two\nthree");
  EXPECT_EQ(readableLog(frame(1, "whole\n") + frame(1, "broken off").substr(0, 12), 9), "whole\nbrok");
  EXPECT_EQ(readableLog("a terminal's own\r\n\x1b[1;31mred\x1b[0m \x1b]0;title\ano\b\x07", 9),
            "a terminal's own\nred no");
  EXPECT_EQ(readableLog("ends in \x1b[12", 9), "ends in ");
  EXPECT_EQ(readableLog("one\r\r\n10%\r\x1b[K20%\r100%\r", 9), "one\n100%");
  EXPECT_EQ(readableLog("caf\xe9\n"sv, 9), "caf\xef\xbf\xbd");
  EXPECT_EQ(readableLog("", 9), "");
}

TEST(BrewPackages, AreThoseThatMayBeUpgraded) {
  const auto lines = parseOutdated(R"({"formulae": [
    {"name": "wget", "installed_versions": ["1.20", "1.21.3"], "current_version": "1.24.5", "pinned": false},
    {"name": "node", "installed_versions": ["18"], "current_version": "22", "pinned": true},
    {"name": "broken"}], "casks": [
    {"name": "firefox", "installed_versions": "131", "current_version": "133"}]})");
  ASSERT_TRUE(lines);
  EXPECT_THAT(*lines, ElementsAre("broken", "firefox 131 → 133", "wget 1.21.3 → 1.24.5"));
  EXPECT_FALSE(parseOutdated("Error: no such command"));
}

TEST(Simulators, AreReadFromTheirTools) {
  auto found = parseSimulatorDevices(R"({"devices": {"com.apple.CoreSimulator.SimRuntime.iOS-17-2": [
    {"udid": "A", "name": "iPhone 15", "state": "Shutdown", "isAvailable": true},
    {"udid": "B", "name": "iPhone 8", "state": "Booted", "isAvailable": false}, {"name": "nameless"}]}})");
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found[0].version, "iOS 17.2");
  found.push_back(parseVirtualDevice("Pixel_8", "path=/x\ntarget=android-34\n"));
  EXPECT_EQ(found[1].name, "Pixel 8");
  EXPECT_EQ(parseVirtualDevice("a", "avd.ini.displayname = Big Tablet\r\n").name, "Big Tablet");
  found[1].isRunning = runningDevice("port.serial=5554\navd.name=Pixel_8\n") == "Pixel_8";
  sortSimulators(found);
  EXPECT_EQ(found[0].id, "Pixel_8");
}

}  // namespace
}  // namespace ambrel
