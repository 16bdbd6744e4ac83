#include "core/calendar/MeetingLink.h"

#include <algorithm>
#include <array>

#include "core/base/Text.h"

namespace ambrel {
namespace {

constexpr std::size_t longestAddress = 2048;

bool endsAddress(char c) {
  constexpr std::string_view marks = "<>\"'`\\^{|}";
  const auto byte = static_cast<unsigned char>(c);
  return byte <= ' ' || byte == 0x7F || marks.find(c) != marks.npos;
}

std::string_view withoutPunctuation(std::string_view address) {
  constexpr std::string_view marks = ".,;:!?)]*_";
  while (!address.empty() && marks.find(address.back()) != marks.npos) address.remove_suffix(1);
  return address;
}

std::string withoutEntities(std::string_view address) {
  constexpr std::string_view entity = "&amp;";
  std::string text(address);
  for (std::size_t at = 0; (at = text.find(entity, at)) != text.npos; ++at) text.erase(at + 1, entity.size() - 1);
  return text;
}

// A name before the host would let "https://bank.example@elsewhere.example" pass for what it is not.
bool isHonest(std::string_view address) {
  const auto host = address.find("//") + 2;
  const std::string_view authority = address.substr(host, address.find_first_of("/?#", host) - host);
  return !authority.empty() && authority.find('@') == authority.npos;
}

// Words in the host or the path of services that hold meetings.
bool isOfMeetingService(const std::string& address) {
  constexpr std::array words{"zoom.us/",     "zoom.",      "meet.",        "/meet",     "teams.",  "webex.",
                             "whereby.com/", "jitsi",      "gotomeet",     "goto.com/", "bbb",     "/b/",
                             "chime.aws",    "conference", "videocall",    "/call/",    "/join/",  "talk.",
                             "bluejeans",    "around.co/", "discord.gg/",  "huddle",    "webinar", "/room/",
                             "callbridge",   "skype.com/", "riverside.fm/"};
  const std::string lower = asciiLower(address);
  return std::ranges::any_of(words, [&](const char* word) { return lower.find(word) != lower.npos; });
}

}  // namespace

std::vector<std::string> webAddresses(std::string_view text) {
  std::vector<std::string> addresses;
  const std::string lower = asciiLower(text);
  for (std::size_t at = 0; (at = lower.find("http", at)) != lower.npos;) {
    const std::string_view rest = std::string_view(lower).substr(at);
    if (!rest.starts_with("http://") && !rest.starts_with("https://")) {
      ++at;
      continue;
    }
    const auto end = static_cast<std::size_t>(
        std::find_if(text.begin() + static_cast<std::ptrdiff_t>(at), text.end(), endsAddress) - text.begin());
    const std::string address = withoutEntities(withoutPunctuation(text.substr(at, end - at)));
    if (address.size() <= longestAddress && isHonest(address)) addresses.push_back(address);
    at = end;
  }
  return addresses;
}

std::string meetingLink(const LinkSources& sources) {
  for (const std::string& conference : sources.conferences)
    if (const auto found = webAddresses(conference); !found.empty()) return found.front();
  const auto inLocation = webAddresses(sources.location), inURL = webAddresses(sources.url);
  for (const auto& addresses : {inLocation, inURL, webAddresses(sources.description)})
    if (const auto found = std::ranges::find_if(addresses, isOfMeetingService); found != addresses.end()) return *found;
  if (!inLocation.empty()) return inLocation.front();
  return inURL.empty() ? std::string() : inURL.front();
}

}  // namespace ambrel
