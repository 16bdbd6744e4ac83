#pragma once
// Where a meeting is held, out of what its event says.

#include <string>
#include <string_view>
#include <vector>

namespace ambrel {

struct LinkSources {
  std::vector<std::string> conferences;  // properties that are made for it
  std::string url, location, description;
};

// An http or https address, or "". A conference property counts as it is, in the other texts an address of a meeting
// service first; else any address of the location, and then of the event. One of the description that is of no meeting
// service may be anything, from the agenda to an unsubscribe link, and does not count.
std::string meetingLink(const LinkSources& sources);

// The http and https addresses in plain text or HTML, in their order.
std::vector<std::string> webAddresses(std::string_view text);

}  // namespace ambrel
