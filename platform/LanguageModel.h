#pragma once
// A language model on this machine. Everything that asks one works without it as well.

#include <functional>
#include <optional>
#include <stop_token>
#include <string>

namespace ambrel {

class LanguageModel {
 public:
  struct Request {
    std::string instructions;  // who is to answer, and how
    std::string prompt;
  };

  virtual ~LanguageModel() = default;

  virtual bool isAvailable() const = 0;
  // `done` is called once, later and on the main thread, with the answer, or with nothing when none came. It is not
  // called when `stop` was requested before.
  virtual void respond(const Request& request, std::stop_token stop,
                       std::function<void(std::optional<std::string> answer)> done) = 0;
};

}  // namespace ambrel
