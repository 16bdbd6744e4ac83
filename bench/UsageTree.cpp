#include "bench/UsageTree.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fcntl.h>
#include <fmt/format.h>
#include <fstream>
#include <random>
#include <stdexcept>
#include <string>
#include <sys/stat.h>

namespace ambrel {
namespace {

// Distributions of our own, as those of the library differ between its makers.
class Dice {
 public:
  explicit Dice(std::uint32_t seed) : random_(seed) {}
  std::uint32_t below(std::uint32_t limit) { return static_cast<std::uint32_t>(random_() % limit); }
  // Many short, a few very long.
  std::size_t length(double middle, std::size_t most) {
    double sum = 0;
    for (int i = 0; i < 4; ++i) sum += below(1001) / 1000.0 - 0.5;
    return std::min(most, static_cast<std::size_t>(middle * std::exp(2.0 * sum)));
  }

 private:
  std::mt19937 random_;
};

// Prose and code in the proportion in which logs hold them, escaped for JSON.
void appendText(std::string& out, std::size_t length, Dice& dice) {
  static constexpr std::array<const char*, 24> words{
      "the",  "file",  "reads",          "value",          "in",      "of",           "returns",  "line",      "error",
      "test", "build", "usage",          "token",          "\\n    ", "\\\"key\\\":", "{ return", "std::move", "const",
      "{\\n", "}\\n",  "/home/ada/code", "\\\"usage\\\":", "0x7f3a",  "message"};
  const std::size_t end = out.size() + length;
  while (out.size() < end) out.append(words[dice.below(words.size())]).append(1, ' ');
}

constexpr const char* head =
    R"({{"parentUuid":"5a3d4c0e-3f8e-4f5b-9a3e-0c2b7d1f6e11","isSidechain":false,"userType":"external",)"
    R"("cwd":"/home/ada/code/engine","sessionId":"0b54c9de-6aa1-4f29-9a61-7f34a8d5f9ad","version":"2.1.233",)"
    R"("gitBranch":"main","type":"{}",)";
constexpr const char* tail = R"("uuid":"e7d0a9c4-11b2-4c37-8f0d-2f6f8f1a9b55","timestamp":"{}"}})"
                             "\n";

void appendReply(std::string& out, Dice& dice, const std::string& date, UsageTree& tree) {
  const std::uint32_t input = dice.below(20), output = dice.below(2000), written = dice.below(9000);
  out += fmt::format(head, "assistant");
  out += R"("message":{"model":"claude-opus","id":"msg_01AbC","type":"message","role":"assistant","content":[)"
         R"({"type":"tool_use","id":"toolu_01AbC","name":"Edit","input":{"file_path":"/home/ada/code/x","text":")";
  appendText(out, dice.length(700, 40'000), dice);
  out += fmt::format(R"("}}}}],"stop_reason":"tool_use","stop_sequence":null,"usage":{{"input_tokens":{},)"
                     R"("cache_creation_input_tokens":{},"cache_read_input_tokens":{},"cache_creation":)"
                     R"({{"ephemeral_5m_input_tokens":0,"ephemeral_1h_input_tokens":0}},"output_tokens":{},)"
                     R"("service_tier":"standard"}}}},"requestId":"req_011AbC",)",
                     input, written, dice.below(100'000), output);
  out += fmt::format(tail, date);
  tree.tokens += input + output + written;
  ++tree.replies;
}

void appendOther(std::string& out, Dice& dice, const std::string& date) {
  const bool isUser = dice.below(3) > 0;
  out += fmt::format(head, isUser ? "user" : "attachment");
  out += R"("message":{"role":"user","content":[{"tool_use_id":"toolu_01AbC","type":"tool_result","content":")";
  appendText(out, isUser ? dice.length(1800, 70'000) : dice.length(600, 20'000), dice);
  out += R"("}]},)";
  out += fmt::format(tail, date);
}

void date(const std::filesystem::path& file, Instant modified) {
  timespec times[2] = {};
  times[0].tv_nsec = UTIME_OMIT;
  times[1].tv_sec = std::chrono::floor<std::chrono::seconds>(modified).time_since_epoch().count();
  if (utimensat(AT_FDCWD, file.c_str(), times, 0) != 0) throw std::runtime_error("cannot date " + file.string());
}

}  // namespace

UsageTree writeUsageTree(const std::filesystem::path& home, std::uint64_t bytes, std::uint32_t seed, Instant now) {
  Dice dice(seed);
  UsageTree tree;
  std::string log;
  while (tree.bytes < bytes) {
    log.clear();
    const std::size_t size = std::min<std::size_t>(dice.length(1'500'000, 20'000'000), bytes - tree.bytes);
    while (log.size() < size) {
      const std::string text = iso8601(advanced(now, Seconds(-1.0 - dice.below(3000))));
      dice.below(3) == 0 ? appendReply(log, dice, text, tree) : appendOther(log, dice, text);
    }
    const auto folder = home / fmt::format(".claude/projects/-home-ada-work-{}", tree.files % 12);
    std::filesystem::create_directories(folder);
    const auto file = folder / fmt::format("{:08x}-6aa1-4f29-9a61-7f34a8d5f9ad.jsonl", tree.files);
    if (!std::ofstream(file, std::ios::binary).write(log.data(), static_cast<std::streamsize>(log.size())).flush())
      throw std::runtime_error("cannot write " + file.string());
    date(file, now);
    tree.bytes += log.size();
    ++tree.files;
  }
  return tree;
}

}  // namespace ambrel
