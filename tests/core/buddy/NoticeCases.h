#pragma once
// The data folders of tests/cases/notices: each holds lines to replay and, line for line, the notices that are
// expected. An expected notice names the fields that matter to its case; one that is null has to be absent. The file
// calendar.txt holds a zone and a locale, if they are not UTC and en_US.

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/base/Files.h"
#include "core/base/JSON.h"
#include "core/base/Text.h"

namespace ambrel {

struct NoticeCase {
  std::string name;
  std::filesystem::path input;
  std::vector<std::string> lines;
  std::vector<JSON> expected;
  std::string zone = "UTC", locale = "en_US";
};

inline std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  for (const auto line : split(text, '\n'))
    if (!line.empty()) lines.emplace_back(line);
  return lines;
}

inline std::vector<NoticeCase> noticeCases() {
  std::vector<NoticeCase> cases;
  for (const auto& folder : std::filesystem::directory_iterator(std::filesystem::path(AMBREL_CASES) / "notices")) {
    NoticeCase one{
        .name = folder.path().filename(), .input = folder.path() / "lines.jsonl", .lines = {}, .expected = {}};
    one.lines = linesOf(readFile(one.input).value());
    for (const auto& line : linesOf(readFile(folder.path() / "expected.jsonl").value()))
      one.expected.push_back(parseJSON(line).value());
    if (const auto calendar = readFile(folder.path() / "calendar.txt")) {
      const auto words = split(trimmed(*calendar), ' ');
      one.zone = words.at(0);
      one.locale = words.at(1);
    }
    cases.push_back(std::move(one));
  }
  std::sort(cases.begin(), cases.end(), [](const NoticeCase& a, const NoticeCase& b) { return a.name < b.name; });
  return cases;
}

// What is wrong with the answer to one line; empty when nothing is.
inline std::string difference(const JSON& expected, const JSON& answer) {
  const std::string both = "\n  expected " + expected.dump() + "\n  given    " + answer.dump();
  if (!answer.is_array() || answer.size() != expected.size()) return "another number of notices" + both;
  for (std::size_t i = 0; i < expected.size(); ++i)
    for (const auto& [key, value] : expected[i].items()) {
      const bool isThere = answer[i].contains(key);
      if (value.is_null() ? isThere : !isThere || answer[i][key] != value)
        return "notice " + std::to_string(i + 1) + " differs in \"" + key + "\"" + both;
    }
  return {};
}

}  // namespace ambrel
