// SPDX-License-Identifier: GPL-2.0-or-later
#include "core/calculator/Calculation.h"

#include <cctype>
#include <libqalculate/BuiltinFunctions.h>
#include <libqalculate/qalculate.h>
#include <re2/re2.h>
#include <unicode/dcfmtsym.h>
#include <vector>

namespace ambrel {
namespace {

bool hasDecimalComma(const std::string& locale) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::DecimalFormatSymbols symbols(icu::Locale(locale.c_str()), status);
  return U_SUCCESS(status) &&
         symbols.getConstSymbol(icu::DecimalFormatSymbols::kDecimalSeparatorSymbol) == icu::UnicodeString(u',');
}

// With what people write and the library does not read: "1,234" where the comma groups, which is the mark between two
// arguments in the brackets of a function, and "10 % of 50".
std::string readable(std::string_view text, bool isDecimalComma) {
  static const RE2 percentOf(R"(%\s*of\b)");
  std::string read;
  std::vector<bool> holdArguments;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto isDigit = [&](std::size_t at) { return at < text.size() && text[at] >= '0' && text[at] <= '9'; };
    const char c = text[i];
    if (c == '(' || c == '[')
      holdArguments.push_back(c == '[' || (i > 0 && std::isalpha(static_cast<unsigned char>(text[i - 1]))));
    if ((c == ')' || c == ']') && !holdArguments.empty()) holdArguments.pop_back();
    const bool groups = c == ',' && !isDecimalComma && (holdArguments.empty() || !holdArguments.back()) && i > 0 &&
                        isDigit(i - 1) && isDigit(i + 1) && isDigit(i + 2) && isDigit(i + 3) && !isDigit(i + 4);
    if (!groups) read += c;
  }
  RE2::GlobalReplace(&read, percentOf, "% *");
  return read;
}

// The library keeps its state in one object of its own.
Calculator& loaded(bool isDecimalComma) {
  if (CALCULATOR) return *CALCULATOR;
  new Calculator(true);
  CALCULATOR->loadGlobalPrefixes();
  CALCULATOR->loadGlobalUnits();
  CALCULATOR->loadGlobalVariables();
  CALCULATOR->loadGlobalFunctions();
  for (const int id : {FUNCTION_ID_LOAD, FUNCTION_ID_EXPORT, FUNCTION_ID_SAVE, FUNCTION_ID_REGISTER, FUNCTION_ID_PLOT,
                       FUNCTION_ID_COMMAND})
    if (MathFunction* function = CALCULATOR->getFunctionById(id)) function->destroy();
  if (isDecimalComma)
    CALCULATOR->useDecimalComma();
  else
    CALCULATOR->useDecimalPoint();
  return *CALCULATOR;
}

EvaluationOptions evaluation(bool isDecimalComma) {
  EvaluationOptions options;
  options.parse_options.unknowns_enabled = false;
  // Otherwise a word that is mistyped becomes a product of units.
  options.parse_options.limit_implicit_multiplication = true;
  // Its constructor leaves this one undefined.
  options.parse_options.comma_as_separator = false;
  options.parse_options.dot_as_separator = isDecimalComma;
  options.mixed_units_conversion = MIXED_UNITS_CONVERSION_NONE;
  options.auto_post_conversion = POST_CONVERSION_OPTIMAL;
  options.structuring = STRUCTURING_SIMPLIFY;
  return options;
}

PrintOptions printing(bool isDecimalComma) {
  PrintOptions options;
  options.use_unicode_signs = true;
  options.lower_case_e = true;
  options.show_ending_zeroes = false;
  options.abbreviate_names = true;
  options.interval_display = INTERVAL_DISPLAY_SIGNIFICANT_DIGITS;
  options.number_fraction_format = FRACTION_DECIMAL;
  options.limit_implicit_multiplication = true;
  options.division_sign = DIVISION_SIGN_SLASH;
  constexpr int mostDigits = 21;
  options.min_exp = mostDigits;
  if (isDecimalComma) options.decimalpoint_sign = ",";
  return options;
}

// What the library could not read, without its full stop; empty where it read all.
std::string complaint(Calculator& calculator) {
  std::string text;
  for (CalculatorMessage* message = calculator.message(); message; message = calculator.nextMessage())
    if (text.empty() && (message->type() == MESSAGE_ERROR || message->stage() == MESSAGE_STAGE_PARSING))
      text = message->message();
  while (text.ends_with('.')) text.pop_back();
  return text;
}

}  // namespace

Calculation calculation(std::string_view expression, const std::string& locale, std::chrono::milliseconds limit) {
  // Matches valid UTF-8 alone.
  static const RE2 withoutBlankEnds(R"((?s)\s*(.*?)\s*)");
  std::string wanted;
  if (!RE2::FullMatch(re2::StringPiece(expression.data(), expression.size()), withoutBlankEnds, &wanted))
    return {{}, "It is no text"};
  if (wanted.empty()) return {};
  if (wanted.size() > longestExpression) return {{}, "It is too long to work out"};
  const bool isDecimalComma = hasDecimalComma(locale);
  Calculator& calculator = loaded(isDecimalComma);
  calculator.setPrecision(12);
  const EvaluationOptions options = evaluation(isDecimalComma);
  std::string understood;
  std::string result = calculator.calculateAndPrint(
      calculator.unlocalizeExpression(readable(wanted, isDecimalComma), options.parse_options),
      static_cast<int>(limit.count()), options, printing(isDecimalComma), AUTOMATIC_FRACTION_OFF,
      AUTOMATIC_APPROXIMATION_OFF, &understood);
  const bool isLate = calculator.aborted() || result == calculator.timedOutString();
  if (std::string fault = complaint(calculator); !fault.empty()) return {{}, std::move(fault)};
  if (isLate) return {{}, "It takes too long to work out"};
  // "1 / 0" stays what it is, and so does a function of something too large: "factorial(1000000000)".
  static const RE2 isNumber("[0-9.,]*"), call(R"(\pL\()"), division(R"(\s*[∕/]\s*)");
  std::string plain = result;
  for (std::string* each : {&plain, &understood}) RE2::GlobalReplace(each, division, "/");
  if ((plain == understood && !RE2::FullMatch(plain, isNumber)) || RE2::PartialMatch(plain, call))
    return {{}, "It has no value"};
  constexpr std::size_t longestResult = 20'000;
  if (result.size() > longestResult) return {{}, "The result is too long to show"};
  return {std::move(result), {}};
}

}  // namespace ambrel
