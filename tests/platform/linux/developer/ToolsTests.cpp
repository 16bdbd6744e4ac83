#include <arpa/inet.h>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "core/base/Files.h"
#include "platform/linux/developer/LinuxDeveloperTools.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {
namespace {

// Another process that listens on the loopback address until it is told to end.
class Listener {
 public:
  explicit Listener(const std::filesystem::path& folder, const char* name = "listener") {
    const FileDescriptor socket(::socket(AF_INET, SOCK_STREAM, 0));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    if (bind(socket.get(), reinterpret_cast<sockaddr*>(&address), size) != 0 || listen(socket.get(), 1) != 0 ||
        getsockname(socket.get(), reinterpret_cast<sockaddr*>(&address), &size) != 0)
      throw std::runtime_error("cannot listen");
    port = ntohs(address.sin_port);
    int ready[2];
    if (pipe(ready) != 0) throw std::runtime_error("no pipe");
    pid = fork();
    if (pid == 0) {
      if (prctl(PR_SET_NAME, name) == 0 && chdir(folder.c_str()) == 0 && write(ready[1], "x", 1) == 1) pause();
      _exit(0);
    }
    char byte = 0;
    if (read(ready[0], &byte, 1) != 1) throw std::runtime_error("the other process did not start");
    close(ready[0]);
    close(ready[1]);
  }
  ~Listener() {
    if (pid > 0) kill(pid, SIGKILL), waitpid(pid, nullptr, 0);
  }
  // The signal that has ended it.
  int ended() {
    int status = 0;
    waitpid(std::exchange(pid, 0), &status, 0);
    return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
  }

  pid_t pid = 0;
  int port = 0;
};

std::optional<LocalServer> serverOf(ServerReader& reader, const Listener& listener) {
  for (const LocalServer& server : reader.read())
    if (server.port == listener.port) return server;
  return std::nullopt;
}

TEST(ServerReader, FindsAndStopsTheProcessThatListens) {
  const TemporaryFolder folder;
  Listener listener(folder.path());
  ServerReader reader("/proc", getuid());
  const auto server = serverOf(reader, listener);
  ASSERT_TRUE(server);
  EXPECT_EQ(server->pid, listener.pid);
  EXPECT_EQ(server->folder, folder.path());
  LocalServer earlier = *server;
  earlier.startTicks -= 1;
  EXPECT_FALSE(reader.stop(earlier)) << "another process has its number now";
  LocalServer elsewhere = *server;
  elsewhere.port ^= 1;
  EXPECT_FALSE(reader.stop(elsewhere));
  EXPECT_EQ(waitpid(listener.pid, nullptr, WNOHANG), 0) << "it lives";
  EXPECT_TRUE(reader.stop(*server));
  EXPECT_EQ(listener.ended(), SIGTERM);
  EXPECT_FALSE(serverOf(reader, listener));
  EXPECT_FALSE(reader.stop(*server));
}

// Answers each request at a socket with the next of the texts, and keeps the requests.
class Engine {
 public:
  Engine(const std::filesystem::path& path, std::vector<std::string> answers)
      : socket_(::socket(AF_UNIX, SOCK_STREAM, 0)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.string().copy(address.sun_path, sizeof address.sun_path - 1);
    if (bind(socket_.get(), reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
        listen(socket_.get(), 9) != 0)
      throw std::runtime_error("cannot listen at " + path.string());
    thread_ = std::thread([this, answers = std::move(answers)] {
      for (const std::string& answer : answers) {
        const FileDescriptor client(accept(socket_.get(), nullptr, nullptr));
        std::string request;
        char byte = 0;
        while (!request.ends_with("\r\n\r\n") && recv(client.get(), &byte, 1, 0) == 1) request += byte;
        requests += request.substr(0, request.find(" HTTP")) + "\n";
        send(client.get(), answer.data(), answer.size(), MSG_NOSIGNAL);
        // Without an answer it hangs until the client gives up.
        if (answer.empty()) recv(client.get(), &byte, 1, 0);
      }
    });
  }
  ~Engine() {
    // Nobody asks any more.
    shutdown(socket_.get(), SHUT_RDWR);
    thread_.join();
  }

  std::string requests;

 private:
  FileDescriptor socket_;
  std::thread thread_;
};

TEST(ServerReader, TheServiceManagerIsNoServerOfItsSockets) {
  const TemporaryFolder folder;
  const Listener manager(folder.path(), "systemd");
  ServerReader reader("/proc", getuid());
  const auto server = serverOf(reader, manager);
  ASSERT_TRUE(server);
  EXPECT_EQ(server->pid, 0) << "it would end the session";
}

TEST(ContainerEngine, IsTheFirstSocketThatAnswers) {
  const TemporaryFolder folder;
  const auto socket = folder / "podman.sock";
  folder.write("docker.sock", "left behind");
  std::string requests;
  {
    Engine server(socket,
                  {"HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n1c\r\n[{\"Id\":\"a1\",\"Names\":[\"/w\"]}]\r\n"
                   "0\r\n\r\n",
                   "HTTP/1.1 304 Not Modified\r\n\r\n",
                   "HTTP/1.1 404 Not Found\r\nContent-Length: 25\r\n\r\n{\"message\":\"No such one\"}\n",
                   std::string("HTTP/1.1 200 OK\r\n\r\n\1\0\0\0\0\0\0\3hi\n", 30), "garbage", ""});
    const ContainerEngine engine({folder / "docker.sock", folder / "none.sock", socket},
                                 std::chrono::milliseconds(300));
    const auto list = engine.containers();
    ASSERT_TRUE(std::holds_alternative<ContainerReading>(list));
    EXPECT_EQ(std::get<ContainerReading>(list).engine, "Podman");
    EXPECT_EQ(std::get<ContainerReading>(list).containers.at(0).name, "w");
    EXPECT_FALSE(engine.setRunning("a1", true)) << "it runs already, which is as good";
    EXPECT_EQ(engine.setRunning("b2", false), (ToolFailure{ToolFailure::Reason::failed, "No such one"}));
    EXPECT_EQ(engine.log("a1"), ToolAnswer<std::string>("hi"));
    EXPECT_EQ(std::get<ToolFailure>(engine.containers()).reason, ToolFailure::Reason::failed);
    EXPECT_EQ(std::get<ToolFailure>(engine.containers()).reason, ToolFailure::Reason::failed) << "never answered";
    requests = server.requests;
  }
  EXPECT_EQ(requests,
            "GET /containers/json?all=1\nPOST /containers/a1/start\nPOST /containers/b2/stop?t=10\n"
            "GET /containers/a1/logs?stdout=1&stderr=1&tail=200\nGET /containers/json?all=1\n"
            "GET /containers/json?all=1\n");
  EXPECT_EQ(std::get<ToolFailure>(ContainerEngine({folder / "none.sock"}).containers()).reason,
            ToolFailure::Reason::missing);
}

TEST(DeveloperTools, AskTheProgramsThatAreInstalled) {
  const TemporaryFolder folder;
  LinuxDeveloperTools::Sources sources;
  EXPECT_EQ(std::get<ToolFailure>(LinuxDeveloperTools(sources).simulators()).reason, ToolFailure::Reason::missing);
  EXPECT_EQ(std::get<ToolFailure>(LinuxDeveloperTools(sources).outdatedPackages()).reason,
            ToolFailure::Reason::missing);
  const auto program = [&](const char* name, const std::string& script) {
    const auto path = folder.write(name, "#!/bin/sh\n" + script);
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    return path;
  };
  sources.brew = {folder / "none", program("brew",
                                           "[ \"$*$HOMEBREW_NO_AUTO_UPDATE\" = 'outdated --json=v21' ] && "
                                           "echo '{\"formulae\": [{\"name\": \"wget\"}], \"casks\": []}'\n")};
  sources.emulator = {program("emulator", "")};
  sources.virtualDevices = {folder / "avd"};
  sources.runningEmulators = {folder / "running"};
  sources.proc = folder / "proc";
  folder.write("avd/Pixel_8.ini", "target=android-34\n");
  folder.write("avd/Tablet.ini", "");
  folder.write("avd/Tablet.avd/config.ini", "avd.ini.displayname=Big Tablet\n");
  folder.write("running/pid_70.ini", "avd.id=Tablet\n");
  folder.write("proc/70/cmdline", std::string("/opt/sdk/emulator/qemu/qemu-system-x86_64\0-avd\0Tablet", 53));
  folder.write("running/pid_71.ini", "avd.id=Pixel_8\n");
  folder.write("proc/71/cmdline", "/usr/bin/editor");
  LinuxDeveloperTools tools(sources);
  EXPECT_EQ(tools.outdatedPackages(), (ToolAnswer<std::vector<std::string>>(std::vector<std::string>{"wget"})));
  const auto simulators = std::get<std::vector<Simulator>>(tools.simulators());
  using enum Simulator::Maker;
  EXPECT_EQ(simulators, (std::vector<Simulator>{{android, "Tablet", "Big Tablet", "", true},
                                                {android, "Pixel_8", "Pixel 8", "android-34", false}}));
  sources.brew = {program("brew", "echo Error >&2; exit 1\n")};
  EXPECT_EQ(std::get<ToolFailure>(LinuxDeveloperTools(sources).outdatedPackages()).reason, ToolFailure::Reason::failed);
}

}  // namespace
}  // namespace ambrel
