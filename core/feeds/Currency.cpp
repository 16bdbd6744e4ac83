#include "core/feeds/Currency.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <memory>
#include <pugixml.hpp>
#include <unicode/numberformatter.h>
#include <unicode/numfmt.h>
#include <unicode/ucurr.h>

#include "core/base/JSON.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

constexpr std::size_t longestAmount = 24;

bool isCode(std::string_view text) {
  return text.size() == 3 && std::ranges::all_of(text, [](char c) { return c >= 'A' && c <= 'Z'; });
}

bool isRate(double value) { return std::isfinite(value) && value > 0; }

std::optional<double> plainNumber(std::string_view text) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

// "2026-11-20"
std::optional<std::array<int, 3>> partsOfDay(std::string_view day) {
  const auto pieces = split(day, '-');
  if (day.size() != 10 || pieces.size() != 3 || pieces[0].size() != 4 || pieces[1].size() != 2) return std::nullopt;
  std::array<int, 3> parts{};
  for (std::size_t i = 0; i < 3; ++i) {
    const std::string_view piece = pieces[i];
    const auto [end, error] = std::from_chars(piece.data(), piece.data() + piece.size(), parts[i]);
    if (error != std::errc() || end != piece.data() + piece.size()) return std::nullopt;
  }
  const bool isDay = parts[1] >= 1 && parts[1] <= 12 && parts[2] >= 1 && parts[2] <= 31;
  return isDay ? std::optional(parts) : std::nullopt;
}

std::string utf8(const icu::UnicodeString& text) {
  std::string out;
  text.toUTF8String(out);
  return out;
}

// `digits`: at most so many that count; 0: as many as the currency has.
std::string formatted(const Calendar& calendar, double amount, const std::string& code, int digits) {
  UErrorCode error = U_ZERO_ERROR;
  const icu::CurrencyUnit unit(icu::UnicodeString::fromUTF8(code).getTerminatedBuffer(), error);
  auto format = icu::number::NumberFormatter::withLocale(icu::Locale(calendar.locale().c_str())).unit(unit);
  if (digits > 0) format = format.precision(icu::number::Precision::maxSignificantDigits(digits));
  const icu::UnicodeString text = format.formatDouble(amount, error).toString(error);
  return U_SUCCESS(error) ? utf8(text) : code;
}

}  // namespace

void to_json(JSON& json, const CurrencyRates& rates) {
  json = {{"fetchedAt", rates.fetchedAt}, {"day", rates.day}, {"rates", rates.rates}};
}

void from_json(const JSON& json, CurrencyRates& rates) {
  rates.fetchedAt = json.at("fetchedAt").get<Instant>();
  rates.day = json.at("day").get<std::string>();
  rates.rates.clear();
  for (const auto& [code, rate] : json.at("rates").items())
    if (isCode(code) && rate.is_number() && isRate(rate.get<double>())) rates.rates[code] = rate.get<double>();
}

std::optional<CurrencyRates> decodeRates(std::string_view xml) {
  pugi::xml_document document;
  if (!document.load_buffer(xml.data(), xml.size())) return std::nullopt;
  const pugi::xml_node outer = document.document_element().child("Cube");
  const pugi::xml_node day = outer.child("Cube");
  CurrencyRates rates{.fetchedAt = {}, .day = day.attribute("time").value(), .rates = {{"EUR", 1.0}}};
  for (const pugi::xml_node entry : day.children("Cube")) {
    const std::string code = entry.attribute("currency").value();
    const auto rate = plainNumber(entry.attribute("rate").value());
    if (isCode(code) && rate && isRate(*rate)) rates.rates[code] = *rate;
  }
  return partsOfDay(rates.day) && rates.rates.size() > 1 ? std::optional(std::move(rates)) : std::nullopt;
}

std::optional<double> converted(const CurrencyRates& rates, double amount, const std::string& from,
                                const std::string& to) {
  const auto start = rates.rates.find(from), end = rates.rates.find(to);
  if (start == rates.rates.end() || end == rates.rates.end()) return std::nullopt;
  return amount / start->second * end->second;
}

std::optional<double> typedAmount(const Calendar& calendar, std::string_view text) {
  text = trimmed(text);
  if (text.empty() || text.size() > longestAmount) return std::nullopt;
  std::optional<double> value;
  UErrorCode code = U_ZERO_ERROR;
  const std::unique_ptr<icu::NumberFormat> format(
      icu::NumberFormat::createInstance(icu::Locale(calendar.locale().c_str()), code));
  if (U_SUCCESS(code)) {
    // It is strict: "1,5" is not fifteen where the comma groups thousands.
    const auto typed =
        icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
    icu::ParsePosition position;
    icu::Formattable parsed;
    format->parse(typed, parsed, position);
    if (position.getIndex() == typed.length()) value = parsed.getDouble(code);
  }
  if (!value) {
    std::string plain(text);
    std::ranges::replace(plain, ',', '.');
    value = plainNumber(plain);
  }
  return value && std::isfinite(*value) && *value >= 0 ? value : std::nullopt;
}

std::string moneyText(const Calendar& calendar, double amount, const std::string& code) {
  return formatted(calendar, amount, code, amount > 0 && amount < 1 ? 2 : 0);
}

std::string rateText(const Calendar& calendar, double rate, const std::string& code) {
  return formatted(calendar, rate, code, 5);
}

std::string currencyName(const Calendar& calendar, const std::string& code) {
  UErrorCode error = U_ZERO_ERROR;
  UBool isChoice = 0;
  std::int32_t length = 0;
  icu::UnicodeString wide = icu::UnicodeString::fromUTF8(code);
  const char16_t* name =
      ucurr_getName(wide.getTerminatedBuffer(), calendar.locale().c_str(), UCURR_LONG_NAME, &isChoice, &length, &error);
  return U_SUCCESS(error) && name ? utf8(icu::UnicodeString(name, length)) : code;
}

std::optional<Instant> dayOf(const CurrencyRates& rates, const Calendar& calendar) {
  const auto parts = partsOfDay(rates.day);
  return parts ? std::optional(calendar.instant((*parts)[0], (*parts)[1], (*parts)[2], 12)) : std::nullopt;
}

}  // namespace ambrel
