#pragma once
// Addresses of pages and services, which of them may be asked, and where the icon of a site may come from.

#include <optional>
#include <string>
#include <string_view>

namespace ambrel {

// What somebody has typed as an address: "example.com/a" is "https://example.com/a". Absent for what is no address of a
// page: blanks, no host, and any scheme but http and https.
std::optional<std::string> pageAddress(std::string_view typed);

// In lower case, with a port if there is one: "example.com", "127.0.0.1:8080"; empty when it is no address of a page.
std::string hostOf(std::string_view address);
// What a bookmark is called until it is named: its host without "www.".
std::string siteName(std::string_view address);

// Whether a request may go there: over https, or to this machine itself. `allowsPlain`: over http to other machines,
// too, because the user has typed the address of a server of their own.
bool mayBeAsked(std::string_view address, bool allowsPlain = false);
// Whether an answer from the one address may lead to the other. Never to a less safe one, nor from elsewhere to this
// machine, whose servers take our word for the user's.
bool mayLeadTo(std::string_view from, std::string_view to, bool allowsPlain = false);

// The root of the site that may be asked for an icon: "https://example.com/". Over https alone, but for this machine
// itself. Absent for an address that is not asked for one.
std::optional<std::string> iconSite(std::string_view address);
// Whether an address belongs to that site, as a redirection may lead to: the same host, or with or without "www.", and
// no less safe.
bool isOfSite(std::string_view site, std::string_view address);

// The icon that a page names by <link rel="icon" href="...">, as it is written; the first of them.
std::optional<std::string> iconLink(std::string_view html);

}  // namespace ambrel
