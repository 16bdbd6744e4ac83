#pragma once
// Rates of currencies, from the daily reference list of the European Central Bank, and what an amount is by them.

#include <map>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "core/base/Calendar.h"

namespace ambrel {

// The list is made once on working days, in the afternoon.
inline constexpr std::chrono::seconds ratesInterval{4 * 3600};

struct CurrencyRates {
  Instant fetchedAt{};
  std::string day;                      // of the list: "2026-11-20"
  std::map<std::string, double> rates;  // by code: how much of it one euro is; the euro itself is 1
  friend bool operator==(const CurrencyRates&, const CurrencyRates&) = default;
};
// "currency-rates.json". Throw DecodingError; a rate that is none is left out.
void to_json(nlohmann::json& json, const CurrencyRates& rates);
void from_json(const nlohmann::json& json, CurrencyRates& rates);

inline constexpr std::string_view ratesAddress = "https://www.ecb.europa.eu/stats/eurofxref/eurofxref-daily.xml";
// Absent for anything that is no such list; what is no rate in it is left out. Takes no time of its own.
std::optional<CurrencyRates> decodeRates(std::string_view xml);

// Absent when the list lacks one of the two.
std::optional<double> converted(const CurrencyRates& rates, double amount, const std::string& from,
                                const std::string& to);

// What somebody has typed, in the form of the locale or with a dot: "1,234.50", "1234,5". Not negative; absent for
// anything else.
std::optional<double> typedAmount(const Calendar& calendar, std::string_view text);
// "$92.35", "¥14,213"; below one with more digits: "$0.0068"
std::string moneyText(const Calendar& calendar, double amount, const std::string& code);
// The same in five digits, as rates are told: "€0.91567"
std::string rateText(const Calendar& calendar, double rate, const std::string& code);
// "US Dollar"; the code when it has no name.
std::string currencyName(const Calendar& calendar, const std::string& code);
// The noon of the list's day; absent for what is no day.
std::optional<Instant> dayOf(const CurrencyRates& rates, const Calendar& calendar);

}  // namespace ambrel
