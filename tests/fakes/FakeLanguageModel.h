#pragma once
// A language model that answers when the test says so.

#include "platform/LanguageModel.h"

namespace ambrel {

class FakeLanguageModel : public LanguageModel {
 public:
  struct Asked {
    Request request;
    std::stop_token stop;
    std::function<void(const Answer&)> done;
  };
  std::optional<ModelAbsence> absence() const override { return missing; }
  void check(std::function<void()> known) override {
    if (looksLater)
      waiting.push_back(std::move(known));
    else
      known();
  }
  void respond(Request request, std::stop_token stop, std::function<void(const Answer&)> done) override {
    asked.push_back({std::move(request), std::move(stop), std::move(done)});
  }

  std::optional<ModelAbsence> missing;
  bool looksLater = false;  // those who want to know wait
  std::vector<std::function<void()>> waiting;
  std::vector<Asked> asked;
};

}  // namespace ambrel
