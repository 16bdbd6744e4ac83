#include "core/licence/Licence.h"

#include <memory>
#include <openssl/evp.h>

#include "core/base/Files.h"
#include "core/base/JSON.h"
#include "core/base/LocalText.h"
#include "core/base/PlatformWords.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

constexpr std::string_view product = "tilebay";
constexpr std::uint64_t largestFile = 64 * 1024;

const unsigned char* bytes(std::string_view text) { return reinterpret_cast<const unsigned char*>(text.data()); }

bool isSigned(std::string_view text, std::string_view signature, std::string_view key) {
  const std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)> publicKey(
      EVP_PKEY_new_raw_public_key(EVP_PKEY_ED25519, nullptr, bytes(key), key.size()), &EVP_PKEY_free);
  const std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context(EVP_MD_CTX_new(), &EVP_MD_CTX_free);
  return publicKey && context && EVP_DigestVerifyInit(context.get(), nullptr, nullptr, nullptr, publicKey.get()) == 1 &&
         EVP_DigestVerify(context.get(), bytes(signature), signature.size(), bytes(text), text.size()) == 1;
}

std::optional<std::string> decodedField(const JSON& object, std::string_view name) {
  const auto text = stringField(object, name);
  return text ? base64Decoded(*text) : std::nullopt;
}

}  // namespace

std::string_view licenceKey() { return AMBREL_LICENCE_KEY; }

std::filesystem::path licenceFile(const std::filesystem::path& dataFolder) { return dataFolder / "licence.json"; }

CheckedLicence readLicence(const std::filesystem::path& file, std::string_view key, Instant now) {
  if (key.empty()) return {};
  std::error_code error;
  if (!std::filesystem::exists(file, error)) return {LicenceState::missing};
  return checkLicence(readFile(file, largestFile).value_or(""), key, now);
}

CheckedLicence checkLicence(const std::optional<std::string>& text, std::string_view key, Instant now) {
  if (key.empty()) return {};
  if (!text) return {LicenceState::missing};
  const auto file = parseJSON(*text);
  if (!file || !file->is_object()) return {LicenceState::unreadable};
  const auto signedText = decodedField(*file, "licence"), signature = decodedField(*file, "signature");
  if (!signedText || !signature) return {LicenceState::unreadable};
  if (stringField(*file, "key") != key) return {LicenceState::foreign};
  if (!isSigned(*signedText, *signature, base64Decoded(key).value_or(""))) return {LicenceState::tampered};
  const auto content = parseJSON(*signedText);
  if (!content || !content->is_object()) return {LicenceState::unreadable};
  if (stringField(*content, "product") != product) return {LicenceState::foreign};
  Licence licence{.holder = stringField(*content, "holder").value_or(""),
                  .number = stringField(*content, "number").value_or(""),
                  .expires = std::nullopt};
  if (content->contains("expires")) {
    licence.expires = parseISO8601(stringField(*content, "expires").value_or(""));
    // An end that cannot be read is no reason to go on for ever.
    if (!licence.expires) return {LicenceState::unreadable};
  }
  const bool hasEnded = licence.expires && now >= *licence.expires;
  return {hasEnded ? LicenceState::expired : LicenceState::valid, std::move(licence)};
}

std::string sentence(const CheckedLicence& checked, const Calendar& calendar) {
  const auto end = [&] { return formattedDate(calendar, *checked.licence->expires, "yMMMd"); };
  switch (checked.state) {
    case LicenceState::notNeeded:
      return "This build needs no licence: every feature is yours";
    case LicenceState::missing:
      return "There is no licence yet";
    case LicenceState::unreadable:
      return "The file is no licence, or it is damaged";
    case LicenceState::foreign:
      return "The licence is for another product";
    case LicenceState::tampered:
      return "The licence was changed after it was signed";
    case LicenceState::expired:
      return "The licence of " + checked.licence->holder + " ended on " + end();
    case LicenceState::valid:
      return "Licensed to " + checked.licence->holder + (checked.licence->expires ? " until " + end() : "");
  }
  return {};
}

std::string_view advice(LicenceState state) {
  switch (state) {
    case LicenceState::notNeeded:
    case LicenceState::valid:
      return {};
    case LicenceState::missing:
      return "Choose the file that you got when you bought it.";
    case LicenceState::unreadable:
    case LicenceState::tampered:
      return "Choose the file as it was sent to you.";
    case LicenceState::foreign:
      return "Choose the one that is for Tilebay.";
    case LicenceState::expired:
      return "A new one takes its place. If that day is still to come, the clock of this {machine} is wrong."_local;
  }
  return {};
}

}  // namespace ambrel
