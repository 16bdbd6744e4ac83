#include <algorithm>
#include <fmt/format.h>

#include "core/base/Overloaded.h"
#include "core/base/Text.h"
#include "core/buddy.h"

namespace ambrel {

BuddyNotice::BuddyNotice(std::string id_, BuddyRule rule_, std::string title_, std::string detail_, Instant date_,
                         std::vector<BuddyAction> actions_, std::optional<std::string> sessionID_,
                         std::optional<Instant> expiresAt_)
    : id(std::move(id_)),
      rule(rule_),
      title(std::move(title_)),
      detail(std::move(detail_)),
      actions(std::move(actions_)),
      sessionID(std::move(sessionID_)),
      date(date_),
      expiresAt(expiresAt_) {
  if (actions.size() > mostActions) actions.erase(actions.begin() + mostActions, actions.end());
}

std::string buttonText(const BuddyAction& action) {
  return std::visit(
      Overloaded{[](const BuddyActions::Join&) -> std::string { return "Join"; },
                 [](const BuddyActions::OpenAgent&) -> std::string { return "Show"; },
                 [](const BuddyActions::Snooze& snooze) { return fmt::format("Snooze {} min", snooze.minutes); },
                 [](const BuddyActions::OpenDiskCleanup&) -> std::string { return "Clean Up"; },
                 [](const BuddyActions::OpenInbox&) -> std::string { return "Open"; }},
      action);
}

bool isOpenableLink(std::string_view url) {
  const auto mark = url.find("://");
  if (mark == std::string_view::npos) return false;
  const std::string scheme = asciiLower(url.substr(0, mark));
  if (scheme != "http" && scheme != "https") return false;
  const std::string_view rest = url.substr(mark + 3);
  std::string_view host = rest.substr(0, rest.find_first_of("/?#\\"));
  if (const auto user = host.rfind('@'); user != std::string_view::npos) host.remove_prefix(user + 1);
  if (host.empty() || host.front() == ':') return false;
  return std::none_of(url.begin(), url.end(), [](char c) { return static_cast<unsigned char>(c) <= ' ' || c == 0x7f; });
}

}  // namespace ambrel
