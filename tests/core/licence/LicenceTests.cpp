#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <openssl/evp.h>

#include "core/base/JSON.h"
#include "core/base/Text.h"
#include "core/licence/Licence.h"

namespace ambrel {
namespace {

const Instant now = parseISO8601("2026-11-22T12:00:00Z").value();

class Key {
 public:
  Key() {
    EVP_PKEY* made = nullptr;
    const std::unique_ptr<EVP_PKEY_CTX, decltype(&EVP_PKEY_CTX_free)> context(
        EVP_PKEY_CTX_new_id(EVP_PKEY_ED25519, nullptr), &EVP_PKEY_CTX_free);
    EVP_PKEY_keygen_init(context.get());
    EVP_PKEY_keygen(context.get(), &made);
    key_.reset(made);
  }
  std::string publicHalf() const {
    std::string raw(32, '\0');
    std::size_t size = raw.size();
    EVP_PKEY_get_raw_public_key(key_.get(), reinterpret_cast<unsigned char*>(raw.data()), &size);
    return base64Encoded(raw);
  }
  JSON licence(const JSON& content) const {
    const std::string text = compactJSON(content);
    std::string signature(64, '\0');
    std::size_t size = signature.size();
    const std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context(EVP_MD_CTX_new(), &EVP_MD_CTX_free);
    EVP_DigestSignInit(context.get(), nullptr, nullptr, nullptr, key_.get());
    EVP_DigestSign(context.get(), reinterpret_cast<unsigned char*>(signature.data()), &size,
                   reinterpret_cast<const unsigned char*>(text.data()), text.size());
    return {{"key", publicHalf()}, {"licence", base64Encoded(text)}, {"signature", base64Encoded(signature)}};
  }

 private:
  std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)> key_{nullptr, &EVP_PKEY_free};
};

TEST(Licence, TellsWhatIsWrongWithAFile) {
  const Key ours, theirs;
  const JSON content{{"product", "tilebay"}, {"holder", "Ada"}, {"number", "17"}, {"expires", "2027-01-01T00:00:00Z"}};
  const auto with = [](JSON json, const char* key, const JSON& value) {
    json[key] = value;
    return json;
  };
  const auto state = [&](const JSON& file, Instant at = now) {
    return checkLicence(compactJSON(file), ours.publicHalf(), at).state;
  };
  const JSON good = ours.licence(content);
  EXPECT_EQ(state(good), LicenceState::valid);
  EXPECT_EQ(state(good, parseISO8601("2027-01-01T00:00:00Z").value()), LicenceState::expired);
  EXPECT_EQ(state(with(good, "licence", base64Encoded(compactJSON(with(content, "expires", "2099-01-01T00:00:00Z"))))),
            LicenceState::tampered);
  EXPECT_EQ(state(with(good, "signature", base64Encoded("x"))), LicenceState::tampered);
  EXPECT_EQ(state(theirs.licence(content)), LicenceState::foreign);
  EXPECT_EQ(state(with(theirs.licence(content), "key", ours.publicHalf())), LicenceState::tampered);
  EXPECT_EQ(state(ours.licence(with(content, "product", "other"))), LicenceState::foreign);
  EXPECT_EQ(state(ours.licence(with(content, "expires", "soon"))), LicenceState::unreadable);
  EXPECT_EQ(state(with(good, "licence", "!")), LicenceState::unreadable);
  EXPECT_EQ(checkLicence("{", ours.publicHalf(), now).state, LicenceState::unreadable);
  EXPECT_EQ(checkLicence(std::nullopt, ours.publicHalf(), now).state, LicenceState::missing);
  EXPECT_EQ(checkLicence(std::nullopt, "", now).state, LicenceState::notNeeded);
}

TEST(Licence, SaysWhoseItIsAndUntilWhen) {
  const Key key;
  const auto said = [&](const JSON& content) {
    return sentence(checkLicence(compactJSON(key.licence(content)), key.publicHalf(), now), Calendar("UTC", "en_US"));
  };
  EXPECT_EQ(said({{"product", "tilebay"}, {"holder", "Ada"}}), "Licensed to Ada");
  EXPECT_EQ(said({{"product", "tilebay"}, {"holder", "Ada"}, {"expires", "2026-01-02T00:00:00Z"}}),
            "The licence of Ada ended on Jan 2, 2026");
}

}  // namespace
}  // namespace ambrel
