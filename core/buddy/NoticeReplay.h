#pragma once
// The engine fed from lines of JSON, to try rules out and to keep them from changing unseen.
//
//   {"now":INSTANT,"signals":{...},"policy":{...}}          an evaluation
//   {"now":INSTANT,"snooze":{"id":NOTICE-ID,"minutes":15}}  the user snoozes the notice last returned under that id
//
// Keys are the fields' names, cases go by name; what is left out of the signals is absent, empty, zero or false, and of
// the policy: everything allowed, no quiet hours.

#include <map>
#include <nlohmann/json_fwd.hpp>
#include <string_view>

#include "core/buddy/BuddyNoticeEngine.h"

namespace ambrel {

void to_json(nlohmann::json& json, const BuddyNotice& notice);

class NoticeReplay {
 public:
  explicit NoticeReplay(Calendar calendar) : calendar_(std::move(calendar)) {}

  struct Answer {
    std::vector<BuddyNotice> notices;
    std::vector<std::string> remarks;  // what was passed over: fields of unknown names, a snooze of no notice
  };
  // Throws DecodingError, and then nothing has changed.
  Answer play(std::string_view line);

 private:
  Calendar calendar_;
  BuddyNoticeEngine engine_;
  std::map<std::string, BuddyNotice> returned_;
};

}  // namespace ambrel
