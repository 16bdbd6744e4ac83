#include <csignal>
#include <sys/resource.h>
#include <thread>

#include "core/agents/attention/HookStore.h"
#include "tests/Matchers.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {
namespace {

const Instant noon = *parseISO8601("2026-11-21T12:00:00Z");

HookEvent event(std::string session) {
  return {.name = HookEvent::Name::permissionRequest,
          .kind = AgentKind::codex,
          .session = std::move(session),
          .at = noon,
          .tool = "Bash",
          .asks = "Bash: \"ls\"\n\xc3\xa9"};
}

class Store {
 public:
  TemporaryFolder folder;
  HookStoreFiles files{folder / "Ambrel"};
  HookStoreReader reader;

  void append(std::string session, std::uint64_t largest = 1 << 20) { appendHookEvent(files, event(session), largest); }
  std::vector<std::string> read() {
    std::vector<std::string> sessions;
    reader.readNew(files, [&](const HookEvent& each) {
      EXPECT_EQ(each, event(each.session));
      sessions.push_back(each.session);
    });
    return sessions;
  }
};

TEST(HookStore, GivesEachEventOnce) {
  Store store;
  EXPECT_THAT(store.read(), SizeIs(0));
  EXPECT_FALSE(store.reader.exists());
  store.append("a");
  store.append("b");
  EXPECT_THAT(store.read(), ElementsAre("a", "b"));
  EXPECT_TRUE(store.reader.exists());
  EXPECT_THAT(store.read(), SizeIs(0));
  store.append("c");
  EXPECT_THAT(store.read(), ElementsAre("c"));
  const auto mode = std::filesystem::status(store.files.current).permissions();
  EXPECT_EQ(mode, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST(HookStore, LosesNothingWhereAFullFileIsMovedAway) {
  Store store;
  store.append("a");
  EXPECT_THAT(store.read(), ElementsAre("a"));
  store.append("b", 1);  // the file is full, and is moved away behind this one
  store.append("c");
  EXPECT_THAT(store.read(), ElementsAre("b", "c"));
  HookStoreReader other;
  std::swap(other, store.reader);
  EXPECT_THAT(store.read(), ElementsAre("a", "b", "c"));
}

TEST(HookStore, KeepsEveryEventOfManyAtOnce) {
  Store store;
  std::vector<std::thread> threads;
  for (int i = 0; i < 100; ++i)
    threads.emplace_back([&store, i] { store.append(std::to_string(i), i % 7 == 0 ? 2000 : 1 << 20); });
  for (std::thread& each : threads) each.join();
  // Rotated at least twice: what is left is whole, and the newest.
  EXPECT_THAT(store.read(), SizeIs(testing::Ge(10U)));
  Store calm;
  threads.clear();
  for (int i = 0; i < 100; ++i) threads.emplace_back([&calm, i] { calm.append(std::to_string(i)); });
  for (std::thread& each : threads) each.join();
  EXPECT_THAT(calm.read(), SizeIs(100));
}

TEST(HookStore, GoesOnBehindALineThatAFullDiskHasCut) {
  Store store;
  store.append("a");
  rlimit former{};
  getrlimit(RLIMIT_FSIZE, &former);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  rlimit full = former;
  full.rlim_cur = std::filesystem::file_size(store.files.current) + 20;
  setrlimit(RLIMIT_FSIZE, &full);
  store.append("b");
  store.append("c");
  setrlimit(RLIMIT_FSIZE, &former);
  std::signal(SIGXFSZ, handler);
  EXPECT_THAT(store.read(), ElementsAre("a"));
  store.append("d");
  EXPECT_THAT(store.read(), ElementsAre("d"));
}

}  // namespace
}  // namespace ambrel
