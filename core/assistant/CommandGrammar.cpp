#include <algorithm>

#include "core/assistant.h"
#include "core/base/PlatformWords.h"
#include "core/base/Text.h"
#include "core/base/Whitespace.h"

namespace ambrel {
namespace {

// In the order in which they are tried.
struct Verb {
  std::string_view words;  // a blank follows
  AssistantAction action;
};
constexpr Verb verbs[] = {
    {"add", AssistantAction::addWidget},       {"show", AssistantAction::addWidget},
    {"remove", AssistantAction::removeWidget}, {"hide", AssistantAction::removeWidget},
    {"delete", AssistantAction::removeWidget}, {"switch to", AssistantAction::switchProfile},
    {"pin", AssistantAction::switchProfile},   {"use", AssistantAction::switchProfile},
};

// Also inside words: a word that ends in "the" before a blank loses these letters.
constexpr std::string_view fillers[] = {" widgets", " widget", "the ", " profile"};

void removeAll(std::string& text, std::string_view part) {
  const std::string lower = asciiLower(text);
  std::string kept;
  std::size_t from = 0;
  for (std::size_t at; (at = lower.find(part, from)) != std::string::npos; from = at + part.size())
    kept.append(text, from, at - from);
  text = kept.append(text, from);
}

std::vector<std::string> namesIn(std::string_view text) {
  std::vector<std::string> names;
  const auto add = [&](std::string_view name) {
    if (name = trimmedOfBlanks(name); !name.empty()) names.emplace_back(name);
  };
  constexpr std::string_view between = " and ";
  while (true) {
    const std::size_t end = std::min(text.find_first_of(",&"), text.size());
    std::string_view piece = text.substr(0, end);
    for (std::size_t at; (at = piece.find(between)) != std::string_view::npos; piece.remove_prefix(at + between.size()))
      add(piece.substr(0, at));
    add(piece);
    if (end == text.size()) return names;
    text.remove_prefix(end + 1);
  }
}

}  // namespace

std::optional<std::vector<AssistantCall>> parseCommand(std::string_view text) {
  // No letter beyond ASCII becomes one of the words' letters in lower case.
  const std::string lower = asciiLower(text);
  for (const std::string_view word : {"agent", "session", "doing"})
    if (lower.find(word) != std::string::npos) return {{{.action = AssistantAction::agentsStatus}}};

  const auto verb = std::ranges::find_if(verbs, [&](const Verb& candidate) {
    return lower.starts_with(candidate.words) && lower.substr(candidate.words.size()).starts_with(' ');
  });
  if (verb == std::end(verbs)) return std::nullopt;
  std::string rest(text.substr(verb->words.size() + 1));
  for (const std::string_view filler : fillers) removeAll(rest, filler);
  std::vector<std::string> names = namesIn(rest);
  if (verb->action == AssistantAction::switchProfile) {
    if (names.empty()) names.push_back(rest);
    names.resize(1);
  }
  std::vector<AssistantCall> calls;
  for (std::string& name : names) calls.push_back({.action = verb->action, .name = std::move(name)});
  return calls;
}

std::string commandReply(std::string_view text, const std::function<std::string(const AssistantCall&)>& perform) {
  const auto calls = parseCommand(text);
  if (!calls)
    return std::string(
        "{intelligence} is not ready yet. Until then, try: “What are my agents doing?”, “Add CPU and Battery”, “Remove Clock”, “Switch to Laptop”."_local);
  std::string reply;
  for (const AssistantCall& call : *calls) {
    if (&call != &calls->front()) reply += ' ';
    reply += perform(call);
  }
  return reply;
}

}  // namespace ambrel
