#include "core/assistant/ChatReply.h"

#include <algorithm>

#include "core/base/JSON.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

// A text, or a list of parts of which some are text.
std::string contentOf(const JSON& message) {
  if (auto text = stringField(message, "content")) return *text;
  std::string all;
  if (const JSON* parts = arrayField(message, "content"))
    for (const JSON& part : *parts) all += stringField(part, "text").value_or("");
  return all;
}

}  // namespace

std::optional<std::string> chatProblem(const JSON& document) {
  if (!document.is_object()) return std::nullopt;
  const auto found = document.find("error");
  if (found == document.end() || found->is_null()) return std::nullopt;
  std::string words = found->is_string() ? found->get<std::string>() : stringField(*found, "message").value_or("");
  if (words.empty()) words = "The model server reports an error.";
  constexpr std::size_t longest = 400;
  return repairedUTF8(std::string_view(words).substr(0, longest));
}

void ChatReply::fail(std::string problem) {
  if (!problem_) problem_ = std::move(problem);
}

void ChatReply::add(std::string_view bytes) {
  bytes_ += bytes.size();
  if (bytes_ > mostBytes) fail("The model's answer is too long.");
  while (!problem_ && !isComplete_) {
    const std::size_t end = bytes.find('\n');
    line_.append(bytes.substr(0, end));
    if (end == std::string_view::npos) return;
    bytes.remove_prefix(end + 1);
    takeLine(std::exchange(line_, {}));
  }
}

void ChatReply::end() {
  if (!line_.empty()) takeLine(std::exchange(line_, {}));
  if (!problem_ && !isStream_ && !trimmed(whole_).empty() && !takeDocument(whole_))
    fail("The model server's answer is not understood.");
}

void ChatReply::takeLine(std::string_view line) {
  if (problem_ || isComplete_) return;
  line = trimmed(line);
  constexpr std::string_view field = "data:";
  if (line.starts_with(field)) {
    isStream_ = true;
    const std::string_view data = trimmed(line.substr(field.size()));
    if (data == "[DONE]")
      isComplete_ = true;
    else
      takeDocument(data);
    return;
  }
  for (const std::string_view other : {":", "event:", "id:", "retry:"})
    if (line.starts_with(other)) return;
  // Some servers put an error into a stream of events as a line of its own.
  if (line.starts_with('{') && takeDocument(line)) {
    isStream_ = true;
    return;
  }
  if (!isStream_) whole_.append(line).append("\n");
}

// False for what is no document of an answer.
bool ChatReply::takeDocument(std::string_view text) {
  const auto document = parseJSON(repairedUTF8(text));
  if (!document || !document->is_object()) return false;
  if (auto problem = chatProblem(*document)) {
    fail(std::move(*problem));
    return true;
  }
  if (const JSON* choices = arrayField(*document, "choices")) {
    if (choices->empty()) return true;
    const JSON& choice = choices->front();
    if (const JSON* delta = objectField(choice, "delta")) takeMessage(*delta);
    const JSON* whole = objectField(choice, "message");
    if (whole) takeMessage(*whole);
    if (whole || stringField(choice, "finish_reason")) isComplete_ = true;
    return true;
  }
  const JSON* message = objectField(*document, "message");
  if (message) takeMessage(*message);
  if (boolField(*document, "done").value_or(false)) isComplete_ = true;
  return message != nullptr || isComplete_;
}

void ChatReply::takeMessage(const JSON& message) {
  text_ += contentOf(message);
  if (text_.size() > mostText) fail("The model's answer is too long.");
  if (const JSON* calls = arrayField(message, "tool_calls"))
    for (const JSON& call : *calls) takeCall(call);
}

void ChatReply::takeCall(const JSON& entry) {
  const JSON* function = objectField(entry, "function");
  if (!function) return;
  auto index = integerField(entry, "index");
  if (!index) index = integerField(*function, "index");
  const std::string id = stringField(entry, "id").value_or(""), name = stringField(*function, "name").value_or("");
  ChatToolCall* call = callFor(index ? std::optional(static_cast<int>(*index)) : std::nullopt, id, name);
  if (!call) return fail("The model asks for too much at once.");
  if (call->id.empty()) call->id = id;
  if (call->name.empty()) call->name = name;
  if (const auto arguments = stringField(*function, "arguments"))
    call->arguments += *arguments;
  else if (const JSON* object = objectField(*function, "arguments"))
    call->arguments = compactJSON(*object);
}

// The call that a piece belongs to. Some servers give every call of an answer the same index, and some give none: then
// another id or a name of its own begins another call. Null when there are too many.
ChatToolCall* ChatReply::callFor(std::optional<int> index, const std::string& id, const std::string& name) {
  const auto isOther = [&](const ChatToolCall& call) { return !id.empty() && !call.id.empty() && id != call.id; };
  for (auto call = calls_.rbegin(); call != calls_.rend(); ++call) {
    if (isOther(*call)) continue;
    if (index ? call->index == index : (!id.empty() && call->id == id) || name.empty()) return &*call;
  }
  if (calls_.size() == mostCalls) return nullptr;
  return &calls_.emplace_back(ChatToolCall{.id = id, .name = name, .arguments = {}, .index = index});
}

std::string ChatReply::text() const {
  // Models that reason write it down first, between these marks.
  constexpr std::string_view open = "<think>", close = "</think>";
  std::string_view text = trimmed(text_);
  if (text.size() < open.size() && open.starts_with(text)) return {};
  if (text.starts_with(open)) {
    const std::size_t end = text.find(close);
    if (end == std::string_view::npos) return {};
    text = trimmed(text.substr(end + close.size()));
  }
  return std::string(text);
}

}  // namespace ambrel
