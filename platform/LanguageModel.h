#pragma once
// A language model on this machine. Everything that asks one works without it as well.

#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

#include "core/assistant.h"

namespace ambrel {

class LanguageModel {
 public:
  struct Request {
    std::string instructions;  // who is to answer, and how
    std::string prompt;
    std::vector<ChatTurn> earlier = {};  // of the same conversation, oldest first
    // Carries out what the model asks for on its way to the answer, and gives the reply; on the main thread. Empty: it
    // has no tools.
    std::function<std::string(const AssistantCall&)> perform = {};
    // The answer so far, whenever it has grown.
    std::function<void(const std::string& text)> grown = {};
  };
  struct Answer {
    std::string text;          // empty when none came
    std::string problem = {};  // why none came: a sentence
  };

  virtual ~LanguageModel() = default;

  // Why it cannot be asked, as far as is known; absent when it can.
  virtual std::optional<ModelAbsence> absence() const = 0;
  bool isAvailable() const { return !absence(); }
  // Looks whether it is there. `known` is called on the main thread, within seconds; at once if that was seen just now.
  virtual void check(std::function<void()> known) = 0;
  // `done` is called once, later and on the main thread. Neither it nor the request's functions are called after `stop`
  // was requested.
  virtual void respond(Request request, std::stop_token stop, std::function<void(const Answer& answer)> done) = 0;
};

}  // namespace ambrel
