// Lines of any bytes for the replay of notices: each is refused or answered, and the answers keep what they promise.

#include <string_view>

#include "core/base/JSON.h"
#include "core/base/Text.h"
#include "core/buddy/BuddyBubbleQueue.h"
#include "core/buddy/BuddyInbox.h"
#include "core/buddy/NoticeReplay.h"
#include "fuzz/Require.h"

using namespace ambrel;

namespace {

void requireOrdered(const std::vector<BuddyNotice>& notices) {
  for (std::size_t i = 1; i < notices.size(); ++i) require(priority(notices[i - 1].rule) >= priority(notices[i].rule));
  for (const BuddyNotice& notice : notices) {
    require(!notice.id.empty() && notice.actions.size() <= BuddyNotice::mostActions);
    require(isValidUTF8(notice.title) && isValidUTF8(notice.detail));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Calendar calendar("Europe/Berlin", "de_DE");
  NoticeReplay replay(calendar);
  BuddyBubbleQueue queue;
  BuddyInbox inbox;
  for (const auto line : split({reinterpret_cast<const char*>(data), size}, '\n')) {
    NoticeReplay::Answer answer;
    try {
      answer = replay.play(line);
    } catch (const DecodingError&) {
      continue;
    }
    requireOrdered(answer.notices);
    require(!compactJSON(answer.notices).empty());
    for (const BuddyNotice& notice : answer.notices) queue.offer(notice);
    require(queue.pending.size() <= 5 && (queue.current || queue.pending.empty()));
    inbox.add(answer.notices, answer.notices.empty() ? Instant{} : answer.notices.front().date);
    require(inbox.recent.size() <= BuddyInbox::capacity);
    if (!answer.notices.empty()) queue.prune(answer.notices.front().date);
  }
  return 0;
}
