#include "core/agents/attention/AskedText.h"

#include "core/base/Text.h"

namespace ambrel {
namespace {

constexpr std::size_t mostCharacters = 120;

// The texts that say what a call is about, the most telling one first.
constexpr std::string_view subjects[] = {"command", "file_path", "notebook_path", "path",   "url",
                                         "query",   "pattern",   "description",   "prompt", "message"};

std::string cut(std::string_view text) {
  std::size_t characters = 0, end = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if ((static_cast<unsigned char>(text[i]) & 0xC0) == 0x80) continue;
    if (++characters == mostCharacters) end = i;
  }
  return characters <= mostCharacters ? std::string(text) : std::string(text.substr(0, end)) + "…";
}

// All patches begin alike; what tells one from another is the file in its second line.
std::string_view withoutPatchHead(std::string_view text) {
  constexpr std::string_view name = " File: ";
  if (!text.starts_with("*** Begin Patch")) return text;
  const auto at = text.find(name);
  return at == text.npos ? text : text.substr(at + name.size());
}

std::optional<std::string> question(const LineObject& input) {
  std::optional<std::string> asked;
  input.eachObject("questions", [&](const LineObject& each) {
    if (const auto text = each.text("question")) asked = askedLine(*text);
    return !asked;
  });
  return asked;
}

}  // namespace

std::optional<std::string> askedLine(std::string_view text) {
  // What nobody reads to its end need not be looked at.
  text = text.substr(0, 4096);
  while (!text.empty()) {
    const auto newline = text.find_first_of("\r\n");
    std::string_view line = trimmed(text.substr(0, newline));
    text = newline == text.npos ? std::string_view() : text.substr(newline + 1);
    if (line.starts_with('#')) line = trimmed(line.substr(std::min(line.find_first_not_of('#'), line.size())));
    if (line.empty()) continue;
    std::string plain = repairedUTF8(line);
    for (char& c : plain)
      if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f) c = ' ';
    return cut(plain);
  }
  return std::nullopt;
}

AgentWait::Reason reasonOf(std::string_view tool) {
  if (tool == "AskUserQuestion" || tool == "request_user_input") return AgentWait::Reason::question;
  if (tool == "ExitPlanMode") return AgentWait::Reason::plan;
  return AgentWait::Reason::permission;
}

std::optional<std::string> askedText(std::string_view tool, const std::optional<LineObject>& input) {
  switch (reasonOf(tool)) {
    case AgentWait::Reason::question:
      return input ? question(*input) : std::nullopt;
    case AgentWait::Reason::plan:
      return input ? askedLine(input->text("plan").value_or("")) : std::nullopt;
    case AgentWait::Reason::permission:
    case AgentWait::Reason::other:
      break;
  }
  std::optional<std::string> subject;
  for (const std::string_view key : subjects) {
    if (subject || !input) break;
    subject = askedLine(withoutPatchHead(input->text(key).value_or("")));
  }
  if (!subject) return askedLine(tool);
  return tool.empty() ? subject : askedLine(std::string(tool) + ": " + *subject);
}

}  // namespace ambrel
