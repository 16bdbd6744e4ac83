// How long the duplicate rule takes over generated sets, beside a bare comparison in lockstep, and beside other
// programs that are installed.
//
//   DiskDuplicates [--megabytes 500] [--small 12000] [--rounds 5] [--in FOLDER]
//
// Sets: a few large files, many small ones, files with holes, files with several names. Everything is warm, and all
// take turns; medians are compared. Ends with 1 when a budget is missed.

#include <cstring>
#include <filesystem>
#include <fmt/format.h>
#include <map>
#include <random>
#include <sys/stat.h>

#include "bench/ProcessCost.h"
#include "core/disk.h"

namespace ambrel::bench {
namespace {

constexpr std::size_t chunk = 1 << 18;

// Equal files as the set's maker knows them: what the rule must offer.
struct FileSet {
  std::string name, path;
  std::size_t duplicates = 0;
  double budget = 0;  // 0: none
};

void writeFile(const std::string& path, std::uint64_t seed, std::size_t length) {
  std::mt19937_64 random(seed);
  std::vector<std::uint64_t> block(chunk / 8);
  for (auto& word : block) word = random();
  const int fd = open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
  for (std::size_t at = 0; at < length; at += chunk) {
    block[0] = seed + at;
    const std::size_t count = std::min(chunk, length - at);
    if (write(fd, block.data(), count) != static_cast<ssize_t>(count)) throw std::runtime_error("no room");
  }
  close(fd);
}

FileSet largeFiles(const std::string& base, std::size_t megabytes) {
  FileSet set{.name = "50 large files", .path = base + "/large", .budget = 3.0};
  std::filesystem::create_directories(set.path);
  const std::size_t each = megabytes * 1'000'000 / 50;
  // 20 pairs, and ten that only share their size.
  for (unsigned i = 0; i < 50; ++i) writeFile(set.path + fmt::format("/{}", i), i < 40 ? i / 2 : i, each);
  set.duplicates = 20;
  return set;
}

FileSet smallFiles(const std::string& base, unsigned count) {
  FileSet set{.name = fmt::format("{} small files", count), .path = base + "/small", .budget = 1.5};
  for (unsigned i = 0; i < count; ++i) {
    const std::string folder = set.path + fmt::format("/{}", i / 200);
    if (i % 200 == 0) std::filesystem::create_directories(folder);
    // One in four has a copy; sizes repeat, as those of small files do.
    const unsigned seed = i % 4 == 1 ? i - 1 : i;
    writeFile(folder + fmt::format("/{}", i), seed, 600 + seed / 4 % 500 * 16);
    if (i % 4 == 1) ++set.duplicates;
  }
  return set;
}

FileSet sparseFiles(const std::string& base) {
  FileSet set{.name = "files with holes", .path = base + "/sparse"};
  std::filesystem::create_directories(set.path);
  for (unsigned i = 0; i < 10; ++i) {
    const std::string path = set.path + fmt::format("/{}", i);
    writeFile(path, 7, 4 * chunk);
    if (truncate(path.c_str(), off_t{1} << 28) != 0) throw std::runtime_error("cannot make a hole");
  }
  set.duplicates = 9;
  return set;
}

FileSet namedTwice(const std::string& base) {
  FileSet set{.name = "files with two names", .path = base + "/linked"};
  std::filesystem::create_directories(set.path);
  for (unsigned i = 0; i < 10; ++i) {
    const std::string path = set.path + fmt::format("/{}", i);
    writeFile(path, i, 40 * chunk);
    std::filesystem::create_hard_link(path, path + " again");
  }
  return set;
}

// The floor: files of one size are opened together and compared chunk by chunk in lockstep; a group splits where its
// members differ; holes are skipped; one thread. No digests, and nothing but the answer's size is kept.
class Lockstep {
 public:
  std::size_t run(const std::string& root) {
    std::map<std::pair<off_t, std::int64_t>, std::vector<std::string>> bySize;
    std::map<std::pair<dev_t, ino_t>, bool> seen;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
      struct stat info;
      if (lstat(entry.path().c_str(), &info) != 0 || !S_ISREG(info.st_mode)) continue;
      if (info.st_nlink > 1 && !seen.emplace(std::pair(info.st_dev, info.st_ino), true).second) continue;
      bySize[{info.st_size, info.st_blocks}].push_back(entry.path());
    }
    std::size_t duplicates = 0;
    for (const auto& [size, paths] : bySize)
      if (paths.size() > 1) duplicates += compare(paths, size.first, size.second * 512 < size.first);
    return duplicates;
  }

 private:
  struct Member {
    int fd;
    std::vector<char> bytes = {};
    ssize_t count = 0;
  };

  std::size_t compare(const std::vector<std::string>& paths, off_t size, bool hasHoles) {
    std::size_t duplicates = 0;
    std::vector<Member> members;
    for (const std::string& path : paths) {
      members.push_back({.fd = open(path.c_str(), O_RDONLY | O_CLOEXEC)});
      members.back().bytes.resize(std::min<std::size_t>(chunk, static_cast<std::size_t>(size)));
    }
    std::vector<std::vector<Member*>> groups(1);
    for (Member& member : members) groups.front().push_back(&member);
    for (off_t at = 0; at < size && !groups.empty(); at += static_cast<off_t>(chunk)) {
      if (hasHoles) at = std::max(at, nextData(members, at, size));
      std::vector<std::vector<Member*>> next;
      for (auto& group : groups) split(group, at, next);
      groups = std::move(next);
    }
    for (const auto& group : groups) duplicates += group.size() - 1;
    for (const Member& member : members) close(member.fd);
    return duplicates;
  }

  // Where the next chunk is that is no hole in every file.
  static off_t nextData(const std::vector<Member>& members, off_t at, off_t size) {
    off_t next = size;
    for (const Member& member : members) {
      const off_t data = lseek(member.fd, at, SEEK_DATA);
      if (data >= 0) next = std::min(next, data);
    }
    return next / static_cast<off_t>(chunk) * static_cast<off_t>(chunk);
  }

  static void split(std::vector<Member*>& group, off_t at, std::vector<std::vector<Member*>>& next) {
    for (Member* member : group) member->count = pread(member->fd, member->bytes.data(), member->bytes.size(), at);
    while (group.size() > 1) {
      const Member* first = group.front();
      std::vector<Member*> same, other;
      for (Member* member : group) {
        const bool isEqual = member->count == first->count &&
                             std::memcmp(member->bytes.data(), first->bytes.data(),
                                         static_cast<std::size_t>(std::max<ssize_t>(first->count, 0))) == 0;
        (isEqual ? same : other).push_back(member);
      }
      if (same.size() > 1) next.push_back(std::move(same));
      group = std::move(other);
    }
  }
};

std::size_t offered(const std::string& path) {
  const auto root = DiskScanner{}.scan(path).root;
  DiskAnalyzer analyzer;
  analyzer.duplicateMinBytes = 1;
  for (const DiskFinding& finding : analyzer.analyze(*root, "/nowhere", {}, Instant{}, Calendar("UTC", "en_US")))
    if (finding.rule == FindingRule::duplicates) return finding.items.size();
  return 0;
}

bool measure(const FileSet& set, int rounds) {
  struct Row {
    std::string name;
    std::function<Cost()> measure;
    std::vector<Cost> costs = {};
  };
  const auto check = [&](std::size_t found) {
    if (found != set.duplicates)
      throw std::runtime_error(fmt::format("{}: {} duplicates instead of {}", set.name, found, set.duplicates));
  };
  std::vector<Row> rows{{"floor, lockstep", [&] { return costOf([&] { check(Lockstep().run(set.path)); }); }},
                        {"duplicates", [&] { return costOf([&] { check(offered(set.path)); }); }}};
  // Never /dev/null: a program that replaces its output file would replace the device when root measures.
  const std::vector<std::vector<std::string>> peers{
      {"rmlint", "-g", "--types=duplicates", "-o", "json:" + set.path + ".report", set.path},
      {"jdupes", "-r", "-q", set.path},
      {"rdfind", "-dryrun", "true", "-makeresultsfile", "false", "-checksum", "sha256", set.path}};
  for (const auto& command : peers)
    if (costOfProgram(command)) rows.push_back({command.front(), [&command] { return *costOfProgram(command); }});
  for (int round = 0; round < rounds; ++round)
    for (Row& row : rows) row.costs.push_back(row.measure());
  const double floor = median(rows.front().costs).wall;
  fmt::print("{:24}{:>10}{:>12}{:>8}\n", set.name + ", ms", "wall", "processor", "ratio");
  for (const Row& row : rows) {
    const Cost cost = median(row.costs);
    fmt::print("  {:22}{:>10.1f}{:>12.1f}{:>8.2f}\n", row.name, cost.wall * 1e3, cost.processor * 1e3,
               cost.wall / floor);
  }
  const double ratio = median(rows[1].costs).wall / floor;
  if (set.budget > 0) fmt::print("  duplicates / floor: {:.2f} (budget {:.2f})\n", ratio, set.budget);
  return set.budget == 0 || ratio <= set.budget;
}

int run(const std::string& where, std::size_t megabytes, unsigned small, int rounds) {
  std::string base = where + "/disk-duplicates-XXXXXX";
  if (!mkdtemp(base.data())) throw std::runtime_error("cannot make a folder in " + where);
  bool isWithinBudget = true;
  try {
    for (const FileSet& set :
         {largeFiles(base, megabytes), smallFiles(base, small), sparseFiles(base), namedTwice(base)})
      isWithinBudget = measure(set, rounds) && isWithinBudget;
  } catch (...) {
    std::filesystem::remove_all(base);
    throw;
  }
  std::filesystem::remove_all(base);
  return isWithinBudget ? 0 : 1;
}

}  // namespace
}  // namespace ambrel::bench

int main(int count, char** words) {
  if (count > 2 && std::string_view(words[1]) == "--cost") return ambrel::bench::printCost(words + 2);
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  std::string where = std::filesystem::temp_directory_path();
  int megabytes = 500, small = 12'000, rounds = 5;
  for (int i = 1; i + 1 < count; i += 2) {
    const std::string_view option = words[i];
    if (option == "--in") where = words[i + 1];
    if (option == "--megabytes") megabytes = std::atoi(words[i + 1]);
    if (option == "--small") small = std::atoi(words[i + 1]);
    if (option == "--rounds") rounds = std::atoi(words[i + 1]);
  }
  try {
    return ambrel::bench::run(where, static_cast<std::size_t>(megabytes), static_cast<unsigned>(small),
                              std::max(rounds, 1));
  } catch (const std::exception& error) {
    fmt::print(stderr, "DiskDuplicates: {}\n", error.what());
    return 1;
  }
}
