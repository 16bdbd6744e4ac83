#pragma once
// One question to a language model over the chat API that many servers share, with the tools that it may call on the
// way to its answer. It knows no network: it gives the bodies to send, and takes the bytes that come back.

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/assistant.h"
#include "core/assistant/ChatReply.h"

namespace ambrel {

struct ChatQuestion {
  std::string instructions;
  std::vector<ChatTurn> earlier = {};  // oldest first; the newest are sent as far as they fit
  std::string prompt;
  bool hasTools = false;  // those of assistantTools()
};

class ChatExchange {
 public:
  // A model that goes on calling tools is left alone after so many rounds.
  static constexpr int mostRounds = 6;
  // How much of the earlier conversation a request repeats: small models have little room.
  static constexpr std::size_t mostEarlierBytes = 16 << 10;

  ChatExchange(std::string model, ChatQuestion question);

  // The body of the next request.
  std::string request() const;
  // What has come of its answer.
  void add(std::string_view bytes);
  // What the model says so far.
  std::string text() const { return reply_.text(); }

  enum class Next {
    ask,       // again, with what the tools gave
    answered,  // `answer`
    failed,    // `problem`
  };
  // The answer to the request has come to its end, or the connection has. `perform` carries out a tool call.
  Next end(const std::function<std::string(const AssistantCall&)>& perform);
  const std::string& answer() const { return answer_; }
  const std::string& problem() const { return problem_; }

 private:
  struct Message {
    std::string role, text;
    std::vector<ChatToolCall> calls = {};
    std::string callID = {};
  };
  void carryOut(const std::function<std::string(const AssistantCall&)>& perform);

  std::string model_;
  std::vector<Message> messages_;
  bool hasTools_;
  int rounds_ = 0;
  ChatReply reply_;
  std::vector<std::string> performed_;  // what the tools of this question have said
  std::string answer_, problem_;
};

// The tool's call with arguments as a model wrote them. Without a tool of that name, or without its argument in them,
// absent; `mistake` is then what the model is told.
std::optional<AssistantCall> assistantCall(const ChatToolCall& call, std::string& mistake);

}  // namespace ambrel
