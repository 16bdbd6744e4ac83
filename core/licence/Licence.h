#pragma once
// A licence: a small signed file that is checked here, without asking anybody.
//
//   {"key": KEY, "licence": TEXT, "signature": SIGNATURE}, all in Base64
//
// KEY is the public half of the Ed25519 key that it was signed with, TEXT the signed bytes:
// {"product": "tilebay", "holder": "Ada", "number": "17", "expires": "2027-01-01T00:00:00Z"}, the last one only for a
// licence that ends. script/sign-licence writes such files.

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "core/base/Calendar.h"
#include "core/base/EnumText.h"

namespace ambrel {

enum class LicenceState {
  notNeeded,   // this build allows everything
  missing,     // there is no file
  unreadable,  // it is no licence at all
  foreign,     // signed with another key, or for another product
  tampered,    // somebody has changed it after it was signed
  expired,
  valid
};

struct Licence {
  std::string holder, number;
  std::optional<Instant> expires;  // absent: never
  friend bool operator==(const Licence&, const Licence&) = default;
};

struct CheckedLicence {
  LicenceState state = LicenceState::notNeeded;
  std::optional<Licence> licence = {};  // of a valid one and of an expired one

  bool allowsEverything() const { return state == LicenceState::notNeeded || state == LicenceState::valid; }
  friend bool operator==(const CheckedLicence&, const CheckedLicence&) = default;
};

// The key that this build asks for, in Base64; empty: none (the build option AMBREL_LICENCE_KEY).
std::string_view licenceKey();

// `text`: the file, absent where there is none. `key`: as of `licenceKey`.
CheckedLicence checkLicence(const std::optional<std::string>& text, std::string_view key, Instant now);
// The file "licence.json" in the program's own folder.
std::filesystem::path licenceFile(const std::filesystem::path& dataFolder);
CheckedLicence readLicence(const std::filesystem::path& file, std::string_view key, Instant now);

// "Licensed to Ada until Jan 1, 2027", "The licence was changed after it was signed": one line without a full stop.
std::string sentence(const CheckedLicence& checked, const Calendar& calendar);
// What the user can do about it, in whole sentences; empty when there is nothing to do.
std::string_view advice(LicenceState state);

}  // namespace ambrel
