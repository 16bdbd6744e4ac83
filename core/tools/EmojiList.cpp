#include "core/tools/EmojiList.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <unicode/utf8.h>
#include <unordered_map>

#include "core/base/Text.h"

namespace ambrel {
namespace {

constexpr std::uint32_t firstTone = 0x1F3FB;

struct Sequence {
  std::string text;
  std::string base;        // without the tones of skin
  std::vector<int> tones;  // of each person in it; 0 to 4
};

// "1F469 1F3FD 200D 1F52C"
std::optional<Sequence> parsedSequence(std::string_view codes) {
  Sequence sequence;
  for (const std::string_view code : split(codes, ' ')) {
    if (code.empty()) continue;
    std::uint32_t value = 0;
    const auto [end, problem] = std::from_chars(code.data(), code.data() + code.size(), value, 16);
    if (problem != std::errc() || end != code.data() + code.size() || value > 0x10FFFF) return std::nullopt;
    std::array<char, U8_MAX_LENGTH> bytes{};
    std::size_t length = 0;
    U8_APPEND_UNSAFE(bytes.data(), length, value);
    const std::string_view character(bytes.data(), length);
    sequence.text += character;
    if (value >= firstTone && value < firstTone + skinTones)
      sequence.tones.push_back(static_cast<int>(value - firstTone));
    else
      sequence.base += character;
  }
  return sequence.text.empty() ? std::nullopt : std::optional(std::move(sequence));
}

// Where a tone follows, the variation selector is left out.
std::string withoutSelectors(std::string text) {
  constexpr std::string_view selector = "\uFE0F";
  for (auto at = text.find(selector); at != std::string::npos; at = text.find(selector))
    text.erase(at, selector.size());
  return text;
}

bool hasWordThatBegins(std::string_view text, std::string_view part) {
  for (auto at = text.find(part); at != std::string_view::npos; at = text.find(part, at + 1))
    if (at == 0 || text[at - 1] == ' ' || text[at - 1] == '-' || text[at - 1] == '(') return true;
  return false;
}

}  // namespace

std::vector<Emoji> parseEmojiList(std::string_view file) {
  std::vector<Emoji> list;
  std::unordered_map<std::string, std::size_t> places;
  std::string_view group, subgroup;
  for (std::string_view line : split(file, '\n')) {
    constexpr std::string_view groupMark = "# group: ", subgroupMark = "# subgroup: ";
    if (line.starts_with(groupMark)) group = trimmed(line.substr(groupMark.size()));
    if (line.starts_with(subgroupMark)) subgroup = trimmed(line.substr(subgroupMark.size()));
    const auto mark = line.find(';'), comment = line.find('#');
    if (line.starts_with('#') || mark == std::string_view::npos || comment == std::string_view::npos || comment < mark)
      continue;
    // Others are the same in another spelling, or colours of skin and hair that stand for nothing by themselves.
    if (trimmed(line.substr(mark + 1, comment - mark - 1)) != "fully-qualified") continue;
    const auto sequence = parsedSequence(line.substr(0, mark));
    // "# 😀 E1.0 grinning face"
    const auto version = line.find(" E", comment);
    const auto name = version == std::string_view::npos ? version : line.find(' ', version + 2);
    if (!sequence || name == std::string_view::npos) continue;
    const auto known = places.find(withoutSelectors(sequence->base));
    if (sequence->tones.empty()) {
      places.emplace(withoutSelectors(sequence->base), list.size());
      list.push_back({.text = sequence->text,
                      .name = std::string(trimmed(line.substr(name))),
                      .group = std::string(group),
                      .subgroup = std::string(subgroup),
                      .tones = {}});
    } else if (known != places.end()) {
      const bool isOneTone = std::ranges::all_of(sequence->tones, [&](int tone) { return tone == sequence->tones[0]; });
      std::vector<std::string>& tones = list[known->second].tones;
      if (isOneTone && static_cast<int>(tones.size()) == sequence->tones[0]) tones.push_back(sequence->text);
    }
  }
  for (Emoji& one : list)
    if (one.tones.size() != skinTones) one.tones.clear();
  return list;
}

std::vector<const Emoji*> emojiMatching(std::span<const Emoji> emoji, std::string_view query, SearchFolding folding) {
  const std::string wanted = folding.folded(trimmed(query));
  std::vector<const Emoji*> first, others;
  for (const Emoji& one : emoji) {
    const std::string name = folding.folded(one.name);
    const std::string all = name + ' ' + folding.folded(one.subgroup) + ' ' + folding.folded(one.group);
    const auto words = split(wanted, ' ');
    if (!std::ranges::all_of(words, [&](std::string_view word) { return hasWordThatBegins(all, word); })) continue;
    (name.starts_with(wanted) ? first : others).push_back(&one);
  }
  first.insert(first.end(), others.begin(), others.end());
  return first;
}

}  // namespace ambrel
