// What it costs to read a repository, beside `git status`.
//
//   GitStatus [--files 200000] [--rounds 7]
//
// A clean repository of files in folders of a hundred, a few of them changed; both read it in turns with warm caches.
// Ends with 1 when the budget is missed, or both count differently.

#include <cstring>
#include <fmt/format.h>
#include <fstream>

#include "bench/ProcessCost.h"
#include "platform/linux/developer/GitReader.h"

namespace ambrel::bench {
namespace {

namespace fs = std::filesystem;

constexpr double budget = 2;  // times the processor time of git

int run(int files, int rounds) {
  const fs::path folder = fs::temp_directory_path() / fmt::format("tilebay-bench-{}", getpid());
  const fs::path top = folder / "repository";
  const auto git = [&](const std::string& arguments) {
    return std::system(fmt::format("git -C '{}' -c user.name=U -c user.email=u@x -c gc.auto=0 {} >/dev/null 2>&1",
                                   top.string(), arguments)
                           .c_str());
  };
  for (int i = 0; i < files; ++i) {
    const fs::path file = top / fmt::format("{}/{}/file-{}.txt", i / 10000, i / 100 % 100, i);
    if (i % 100 == 0) fs::create_directories(file.parent_path());
    std::ofstream(file) << "line\n";  // all alike: Git then keeps one object
  }
  int failed = git("init") | git("add .") | git("commit -m all");
  for (int i = 0; i < files; i += files / 10 + 1)
    std::ofstream(top / fmt::format("{}/{}/file-{}.txt", i / 10000, i / 100 % 100, i), std::ios::app) << "more\n";
  std::ofstream(top / "new") << "new\n";

  std::vector<Cost> ours, theirs;
  for (int round = 0; round < rounds && failed == 0; ++round) {
    const auto cost = costOfProgram({"git", "-C", top.string(), "--no-optional-locks", "status", "--porcelain=v2"});
    if (!cost) failed = 1;
    theirs.push_back(cost.value_or(Cost()));
    ours.push_back(costOf([&] {
      const auto answer = readRepository(top, std::chrono::seconds(60));
      const auto* reading = std::get_if<GitReading>(&answer);
      const GitState::Changes expected{.changed = 10, .untracked = 1};
      if (!reading || reading->state.changes != expected) failed = 1;
    }));
  }
  fs::remove_all(folder);
  if (failed != 0) return std::puts("The repository was not made or not read."), 1;
  const Cost our = median(ours), their = median(theirs);
  const double ratio = our.processor / their.processor;
  fmt::print(
      "{} files    wall ms    processor ms\n  git status  {:8.0f}  {:14.0f}\n  tilebay     {:8.0f}  {:14.0f}    {:.2f} "
      "(budget {})\n",
      files, their.wall * 1e3, their.processor * 1e3, our.wall * 1e3, our.processor * 1e3, ratio, budget);
  return ratio <= budget ? 0 : 1;
}

}  // namespace
}  // namespace ambrel::bench

int main(int argc, char** argv) {
  if (argc > 2 && std::strcmp(argv[1], "--cost") == 0) return ambrel::bench::printCost(argv + 2);
  int files = 200'000, rounds = 7;
  for (int i = 1; i + 1 < argc; i += 2)
    (std::strcmp(argv[i], "--files") == 0 ? files : rounds) = std::atoi(argv[i + 1]);
  return ambrel::bench::run(files, rounds);
}
