#pragma once
// The answer of a model server to one request of the chat API that many of them share, read while it comes in: as
// server-sent events, as lines of JSON, or as one document.

#include <cstddef>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ambrel {

// What the model wants to be done. Servers differ in how they write the arguments: an object, a text that holds one, or
// pieces of such a text; some give no id.
struct ChatToolCall {
  std::string id;  // empty: the server gave none
  std::string name;
  std::string arguments;  // JSON, if the model has made no mistake
  std::optional<int> index = {};
  friend bool operator==(const ChatToolCall&, const ChatToolCall&) = default;
};

class ChatReply {
 public:
  // What is longer, or asks for more, is no answer.
  static constexpr std::size_t mostBytes = 4 << 20, mostText = 64 << 10, mostCalls = 16;

  // The next bytes; a line may be cut anywhere.
  void add(std::string_view bytes);
  // Nothing comes any more.
  void end();

  // What the model says, so far; UTF-8, without what it thought aloud before.
  std::string text() const;
  const std::vector<ChatToolCall>& calls() const { return calls_; }
  // The server has said that this is all.
  bool isComplete() const { return isComplete_; }
  // What went wrong, in the server's words or ours.
  const std::optional<std::string>& problem() const { return problem_; }

 private:
  void takeLine(std::string_view line);
  bool takeDocument(std::string_view text);
  void takeMessage(const nlohmann::json& message);
  void takeCall(const nlohmann::json& entry);
  ChatToolCall* callFor(std::optional<int> index, const std::string& id, const std::string& name);
  void fail(std::string problem);

  std::string line_;   // without its end so far
  std::string whole_;  // lines that are no documents by themselves, as those of an indented one
  std::string text_;
  std::vector<ChatToolCall> calls_;
  std::optional<std::string> problem_;
  std::size_t bytes_ = 0;
  bool isComplete_ = false, isStream_ = false;
};

// The words of an error in a server's answer: {"error":"..."} or {"error":{"message":"..."}}. Absent without one.
std::optional<std::string> chatProblem(const nlohmann::json& document);

}  // namespace ambrel
