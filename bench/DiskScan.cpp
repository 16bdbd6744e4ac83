// How long a scan of a generated tree takes, beside a bare walk that only lists and stats, and beside other programs
// that are installed.
//
//   DiskScan [--files 60000] [--rounds 7] [--in FOLDER]
//
// Everything is warm, and all take turns; medians are compared. Ends with 1 when a budget is missed.

#include <atomic>
#include <cstring>
#include <dirent.h>
#include <filesystem>
#include <fmt/format.h>
#include <string_view>
#include <sys/stat.h>
#include <thread>

#include "bench/ProcessCost.h"
#include "core/disk.h"

namespace ambrel::bench {
namespace {

constexpr double scanBudget = 1.25;
constexpr double memoryBudget = 200;  // bytes for each entry seen

struct Walked {
  std::int64_t files = 0, entries = 0, bytes = 0;
  Walked& operator+=(const Walked& other) {
    files += other.files;
    entries += other.entries;
    bytes += other.bytes;
    return *this;
  }
};

// The floor: getdents64, one fstatat for each entry, one openat for each folder, and no more.
class BareWalk {
 public:
  // Subfolders down to `split` levels go to `later` instead of being entered.
  void walk(int folder, const std::string& path, int split, std::vector<std::string>* later, Walked& out) {
    std::vector<std::string> folders;
    if (!buffer_) buffer_.reset(new char[size]);
    for (;;) {
      const ssize_t count = getdents64(folder, buffer_.get(), size);
      if (count <= 0) break;
      for (ssize_t at = 0; at < count;) {
        const auto* entry = reinterpret_cast<const dirent64*>(buffer_.get() + at);
        at += entry->d_reclen;
        const char* name = entry->d_name;
        if (std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0) continue;
        struct stat info;
        if (fstatat(folder, name, &info, AT_SYMLINK_NOFOLLOW) != 0) continue;
        ++out.entries;
        if (S_ISREG(info.st_mode)) {
          ++out.files;
          out.bytes += static_cast<std::int64_t>(info.st_blocks) * 512;
        } else if (S_ISDIR(info.st_mode)) {
          folders.emplace_back(name);
        }
      }
    }
    for (const std::string& name : folders) {
      if (later && split == 0) {
        later->push_back(path + "/" + name);
        continue;
      }
      const int child = openat(folder, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
      if (child < 0) continue;
      walk(child, path + "/" + name, split - 1, later, out);
      close(child);
    }
  }

 private:
  static constexpr std::size_t size = 1 << 16;
  std::unique_ptr<char[]> buffer_;
};

Walked bareWalk(const std::string& root, unsigned threads) {
  Walked total;
  std::vector<std::string> later;
  const int top = open(root.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  BareWalk().walk(top, root, 1, threads > 1 ? &later : nullptr, total);
  close(top);
  std::atomic<std::size_t> next = 0;
  std::vector<Walked> parts(threads);
  std::vector<std::jthread> workers;
  for (unsigned i = 0; i < threads && threads > 1; ++i)
    workers.emplace_back([&, i] {
      BareWalk walk;
      for (std::size_t at; (at = next++) < later.size();) {
        const int folder = open(later[at].c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
        walk.walk(folder, later[at], 1 << 20, nullptr, parts[i]);
        close(folder);
      }
    });
  workers.clear();
  for (const Walked& part : parts) total += part;
  return total;
}

class GeneratedTree {
 public:
  GeneratedTree(const std::string& where, int files) {
    std::string name = where + "/disk-scan-XXXXXX";
    if (!mkdtemp(name.data())) throw std::runtime_error("cannot make a folder in " + where);
    path = name;
    // About ten upper folders of ten each, as homes have; 25 files a folder, six levels at most.
    int made = 0;
    for (unsigned i = 0; made < files; ++i) {
      std::string folder = path + fmt::format("/top{}/sub{}", i % 10, i / 10 % 10);
      for (unsigned rest = i / 100, level = 0; rest > 0 && level < 4; rest /= 6, ++level)
        folder += fmt::format("/level{}-{}", level, rest % 6);
      folder += fmt::format("/folder-{}", i);
      std::filesystem::create_directories(folder);
      for (int k = 0; k < 25 && made < files; ++k, ++made)
        write(folder + fmt::format("/some-file-name-{}.txt", k), made);
    }
  }
  GeneratedTree(const GeneratedTree&) = delete;
  ~GeneratedTree() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
  std::string path;

 private:
  // One in ten has content, one in a thousand is large enough to be kept.
  static void write(const std::string& file, int number) {
    const int fd = open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
    if (fd < 0) throw std::runtime_error("cannot write " + file);
    if (number % 1000 == 0 && posix_fallocate(fd, 0, 1'200'000) != 0) throw std::runtime_error("no room");
    if (number % 10 == 0 && pwrite(fd, "text", 4, 0) != 4) throw std::runtime_error("no room");
    close(fd);
  }
};

void print(std::string_view name, const Cost& cost, const Cost& floor) {
  fmt::print("{:24}{:>10.1f}{:>12.1f}{:>8.2f}{:>12}\n", name, cost.wall * 1e3, cost.processor * 1e3,
             cost.wall / floor.wall, cost.peak > 0 ? fmt::format("{:.1f} MiB", cost.peak) : "");
}

int run(const std::string& self, const std::string& where, int files, int rounds) {
  const GeneratedTree tree(where, files);
  const Walked expected = bareWalk(tree.path, 1);
  fmt::print("{} files, {} entries, {:.0f} MB on disk\n", expected.files, expected.entries,
             static_cast<double>(expected.bytes) / 1e6);
  const auto check = [&](std::int64_t seen, std::int64_t bytes) {
    if (seen != expected.files || bytes != expected.bytes) throw std::runtime_error("a walk found something else");
  };
  const auto scan = [&](std::int64_t minItemSize) {
    const auto result = DiskScanner{.minItemSize = minItemSize}.scan(tree.path, [](const DiskScanProgress&) {});
    check(result.root->fileCount(), result.root->size());
  };
  struct Row {
    std::string name;
    std::function<Cost()> measure;
    std::vector<Cost> costs = {};
  };
  const auto floorOf = [&](unsigned threads) {
    return costOf([&] {
      const Walked walked = bareWalk(tree.path, threads);
      check(walked.files, walked.bytes);
    });
  };
  std::vector<Row> rows{{"floor, one thread", [&] { return floorOf(1); }},
                        {"floor, two threads", [&] { return floorOf(2); }},
                        {"scan", [&] { return costOf([&] { scan(1'000'000); }); }},
                        {"scan, nothing folded", [&] { return costOf([&] { scan(0); }); }}};
  const std::vector<std::vector<std::string>> peers{
      {"du", "-s", tree.path}, {"ncdu", "-0", "-o", tree.path + ".report", tree.path}, {"gdu", "-n", "-p", tree.path}};
  for (const auto& command : peers)
    if (costOfProgram(command)) rows.push_back({command.front(), [&command] { return *costOfProgram(command); }});
  for (int round = 0; round < rounds; ++round)
    for (Row& row : rows) row.costs.push_back(row.measure());

  std::vector<Cost> medians;
  for (const Row& row : rows) medians.push_back(median(row.costs));
  // Memory of a process that does nothing else.
  const double idle = costOfProgram({self, "--only", "nothing", tree.path}).value_or(Cost{}).peak;
  medians[2].peak = costOfProgram({self, "--only", "scan", tree.path}).value_or(Cost{}).peak;
  medians[3].peak = costOfProgram({self, "--only", "whole", tree.path}).value_or(Cost{}).peak;
  fmt::print("{:24}{:>10}{:>12}{:>8}{:>12}\n", "milliseconds", "wall", "processor", "ratio", "peak");
  for (std::size_t i = 0; i < rows.size(); ++i) print(rows[i].name, medians[i], medians[1]);

  const double ratio = medians[2].wall / medians[1].wall;
  const auto perEntry = [&](std::size_t row) {
    return (medians[row].peak - idle) * 1024 * 1024 / static_cast<double>(expected.entries);
  };
  fmt::print("scan / floor on two threads: {:.2f} (budget {:.2f})\n", ratio, scanBudget);
  fmt::print("memory above an idle process: {:.0f} bytes an entry, {:.0f} with nothing folded (budget {:.0f})\n",
             perEntry(2), perEntry(3), memoryBudget);
  return ratio <= scanBudget && perEntry(2) < memoryBudget && perEntry(3) < memoryBudget ? 0 : 1;
}

}  // namespace
}  // namespace ambrel::bench

int main(int count, char** words) {
  if (count > 2 && std::string_view(words[1]) == "--cost") return ambrel::bench::printCost(words + 2);
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  using namespace ambrel;
  std::string where = std::filesystem::temp_directory_path();
  int files = 60'000, rounds = 7;
  for (int i = 1; i + 1 < count; i += 2) {
    const std::string_view option = words[i];
    if (option == "--only") {
      const std::string_view what = words[i + 1];
      if (what != "nothing") DiskScanner{.minItemSize = what == "scan" ? 1'000'000 : 0}.scan(words[i + 2]);
      return 0;
    }
    if (option == "--in") where = words[i + 1];
    if (option == "--files") files = std::atoi(words[i + 1]);
    if (option == "--rounds") rounds = std::atoi(words[i + 1]);
  }
  try {
    return bench::run(std::filesystem::read_symlink("/proc/self/exe"), where, files, std::max(rounds, 1));
  } catch (const std::exception& error) {
    fmt::print(stderr, "DiskScan: {}\n", error.what());
    return 1;
  }
}
