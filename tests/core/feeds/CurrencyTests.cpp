#include <gtest/gtest.h>

#include "core/base/JSON.h"
#include "core/feeds/Currency.h"

namespace ambrel {
namespace {

constexpr std::string_view list = R"(<?xml version="1.0" encoding="UTF-8"?>
<gesmes:Envelope xmlns:gesmes="http://www.gesmes.org/xml/2002-08-01" xmlns="http://www.ecb.int/vocabulary/2002-08-01/eurofxref">
  <gesmes:subject>Reference rates</gesmes:subject>
  <Cube><Cube time='2026-11-20'>
    <Cube currency='USD' rate='1.25'/><Cube currency='JPY' rate='160'/>
    <Cube currency='usd' rate='3'/><Cube currency='GBP' rate='-1'/><Cube currency='CHF' rate='0,95'/><Cube currency='SEK'/>
  </Cube></Cube>
</gesmes:Envelope>)";

TEST(Currency, ConvertsByTheListWhateverElseIsInIt) {
  const auto rates = decodeRates(list);
  ASSERT_TRUE(rates);
  EXPECT_EQ(rates->day, "2026-11-20");
  EXPECT_EQ(rates->rates.size(), 3u);
  EXPECT_DOUBLE_EQ(*converted(*rates, 10, "USD", "JPY"), 1280);
  EXPECT_DOUBLE_EQ(*converted(*rates, 10, "EUR", "USD"), 12.5);
  EXPECT_FALSE(converted(*rates, 10, "USD", "GBP"));
  EXPECT_EQ(JSON(*rates).get<CurrencyRates>(), *rates);
  for (const char* none : {"", "<html></html>", "<a><Cube><Cube time='2026-11-20'/></Cube></a>",
                           "<a><Cube><Cube time='today'><Cube currency='USD' rate='1'/></Cube></Cube></a>"})
    EXPECT_FALSE(decodeRates(none)) << none;
}

TEST(Currency, TakesAnAmountAsItIsTyped) {
  const Calendar us("UTC", "en_US"), german("UTC", "de_DE");
  const auto in = [](const Calendar& calendar, const char* text) { return typedAmount(calendar, text).value_or(-1); };
  EXPECT_EQ(in(us, " 1,234.50 "), 1234.5);
  EXPECT_EQ(in(us, "1,5"), 1.5);
  EXPECT_EQ(in(german, "1.234,50"), 1234.5);
  EXPECT_EQ(in(german, "1,5"), 1.5);
  for (const char* none : {"", "-1", "12x", "nan", "inf", "1e999", "1 2 3 4 5 6 7 8 9 0 1 2 3"})
    EXPECT_EQ(in(us, none), -1) << none;
}

TEST(Currency, IsWrittenInTheFormOfTheLocale) {
  const Calendar us("UTC", "en_US");
  EXPECT_EQ(moneyText(us, 92.346, "USD"), "$92.35");
  EXPECT_EQ(moneyText(us, 14213, "JPY"), "¥14,213");
  EXPECT_EQ(moneyText(us, 0.00678, "USD"), "$0.0068");
  EXPECT_EQ(rateText(us, 0.9156671, "EUR"), "€0.91567");
  EXPECT_EQ(currencyName(us, "CHF"), "Swiss Franc");
  EXPECT_EQ(currencyName(us, "QQQ"), "QQQ");
}

}  // namespace
}  // namespace ambrel
