#include "core/web/Address.h"

#include <algorithm>

#include "core/base/Text.h"

namespace ambrel {
namespace {

using std::string_view;

struct Parts {
  std::string scheme;  // "http" or "https"
  std::string host;    // with its port
};

std::optional<Parts> partsOf(string_view address) {
  const auto colon = address.find("://");
  if (colon == string_view::npos) return std::nullopt;
  Parts parts{asciiLower(address.substr(0, colon)), {}};
  if (parts.scheme != "http" && parts.scheme != "https") return std::nullopt;
  string_view authority = address.substr(colon + 3);
  authority = authority.substr(0, authority.find_first_of("/?#\\"));
  if (const auto at = authority.rfind('@'); at != string_view::npos) authority.remove_prefix(at + 1);
  if (authority.empty() || authority.front() == ':') return std::nullopt;
  parts.host = asciiLower(authority);
  return parts;
}

string_view withoutWWW(string_view host) {
  if (host.starts_with("www.")) host.remove_prefix(4);
  return host;
}

bool isThisMachine(string_view host) {
  const string_view name = host.starts_with('[') ? host.substr(0, host.find(']') + 1) : host.substr(0, host.find(':'));
  return name == "localhost" || name == "127.0.0.1" || name == "[::1]";
}

// The value of an attribute of a tag; absent without it.
std::optional<std::string> attribute(string_view tag, string_view name) {
  const std::string lower = asciiLower(tag);
  for (std::size_t at = lower.find(name); at != std::string::npos; at = lower.find(name, at + 1)) {
    if (at == 0 || string_view(" \t\r\n\"'").find(lower[at - 1]) == string_view::npos) continue;
    std::size_t end = lower.find_first_not_of(" \t\r\n", at + name.size());
    if (end == std::string::npos || lower[end] != '=') continue;
    end = lower.find_first_not_of(" \t\r\n", end + 1);
    if (end == std::string::npos) return std::nullopt;
    const char quote = lower[end] == '"' || lower[end] == '\'' ? lower[end] : '\0';
    const std::size_t start = quote ? end + 1 : end;
    const std::size_t stop = quote ? lower.find(quote, start) : lower.find_first_of(" \t\r\n>", start);
    return std::string(tag.substr(start, stop == std::string::npos ? stop : stop - start));
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::string> pageAddress(string_view typed) {
  typed = trimmed(typed);
  if (typed.empty() || typed.find_first_of(" \t\r\n\"<>\\") != string_view::npos) return std::nullopt;
  if (!std::ranges::all_of(typed, [](unsigned char c) { return c > 32 && c != 127; })) return std::nullopt;
  std::string address(typed);
  if (typed.find("://") == string_view::npos) {
    // "localhost:8080" is a host; "mailto:somebody" is not.
    const auto colon = typed.find_first_of(":/?#");
    const bool isScheme = colon != string_view::npos && typed[colon] == ':' &&
                          (colon + 1 == typed.size() || typed[colon + 1] < '0' || typed[colon + 1] > '9');
    if (isScheme) return std::nullopt;
    address = (isThisMachine(typed) ? "http://" : "https://") + address;
  }
  const auto parts = partsOf(address);
  if (!parts) return std::nullopt;
  // A bare word is no site, unless it says so with a port or a scheme.
  const bool isName = parts->host.find_first_of(".:") != std::string::npos || isThisMachine(parts->host);
  return isName || typed.find("://") != string_view::npos ? std::optional(address) : std::nullopt;
}

std::string hostOf(string_view address) {
  const auto parts = partsOf(address);
  return parts ? parts->host : std::string();
}

std::string siteName(string_view address) { return std::string(withoutWWW(hostOf(address))); }

bool mayBeAsked(string_view address, bool allowsPlain) {
  const auto parts = partsOf(address);
  return parts && (parts->scheme == "https" || allowsPlain || isThisMachine(parts->host));
}

bool mayLeadTo(string_view from, string_view to, bool allowsPlain) {
  const auto start = partsOf(from), end = partsOf(to);
  if (!start || !mayBeAsked(to, allowsPlain)) return false;
  return (end->scheme == "https" || start->scheme == "http") &&
         (!isThisMachine(end->host) || isThisMachine(start->host));
}

std::optional<std::string> iconSite(string_view address) {
  if (!mayBeAsked(address)) return std::nullopt;
  const auto parts = partsOf(address);
  return parts->scheme + "://" + parts->host + "/";
}

bool isOfSite(string_view site, string_view address) {
  const auto home = partsOf(site), there = partsOf(address);
  return home && there && (there->scheme == "https" || home->scheme == "http") &&
         withoutWWW(home->host) == withoutWWW(there->host);
}

std::optional<std::string> iconLink(string_view html) {
  const std::string lower = asciiLower(html);
  for (std::size_t at = lower.find("<link"); at != std::string::npos; at = lower.find("<link", at + 1)) {
    const std::size_t end = lower.find('>', at);
    if (end == std::string::npos) return std::nullopt;
    const string_view tag = html.substr(at + 5, end - at - 5);
    const std::string relation = asciiLower(attribute(tag, "rel").value_or(""));
    for (const string_view word : split(relation, ' '))
      if (word == "icon")
        if (auto link = attribute(tag, "href"); link && !link->empty()) return link;
  }
  return std::nullopt;
}

}  // namespace ambrel
