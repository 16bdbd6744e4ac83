// Base64, digests and counts.

#include <array>
#include <fmt/format.h>
#include <memory>
#include <openssl/evp.h>
#include <unicode/ubrk.h>
#include <unicode/utext.h>

#include "core/base/LocalText.h"
#include "core/base/Text.h"
#include "core/tools/Tools.h"

namespace ambrel::tools {
namespace {

// In the usual alphabet, with its padding, without white space.
std::string plainBase64(std::string_view text) {
  std::string plain;
  plain.reserve(text.size() + 3);
  for (const char c : text) {
    if (c == ' ' || (c >= '\t' && c <= '\r')) continue;
    plain += c == '-' ? '+' : c == '_' ? '/' : c;
  }
  if (plain.find('=') == std::string::npos) plain.append((4 - plain.size() % 4) % 4, '=');
  return plain;
}

std::size_t foreignToBase64(std::string_view text) {
  return text.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/-_= \t\n\v\f\r");
}

// How many pieces ICU finds that `counts` admits by their kind.
std::int64_t pieces(const ToolCall& call, UBreakIteratorType type, bool (*counts)(int kind)) {
  UErrorCode error = U_ZERO_ERROR;
  const std::unique_ptr<UText, decltype(&utext_close)> text(
      utext_openUTF8(nullptr, call.input.data(), static_cast<std::int64_t>(call.input.size()), &error), utext_close);
  const std::unique_ptr<UBreakIterator, decltype(&ubrk_close)> breaks(
      ubrk_open(type, call.source.calendar.locale().c_str(), nullptr, 0, &error), ubrk_close);
  if (U_FAILURE(error)) return 0;
  ubrk_setUText(breaks.get(), text.get(), &error);
  if (U_FAILURE(error)) return 0;
  std::int64_t count = 0;
  while (ubrk_next(breaks.get()) != UBRK_DONE) count += counts(ubrk_getRuleStatus(breaks.get()));
  return count;
}

std::int64_t characters(const ToolCall& call) {
  return pieces(call, UBRK_CHARACTER, [](int) { return true; });
}
// Letters, figures and ideographs; white space and punctuation are none.
std::int64_t words(const ToolCall& call) {
  return pieces(call, UBRK_WORD, [](int kind) { return kind >= UBRK_WORD_NONE_LIMIT; });
}
std::int64_t sentences(const ToolCall& call) {
  return pieces(call, UBRK_SENTENCE, [](int) { return true; });
}
// A newline ends a line: what follows the last one is a line if there is anything.
std::int64_t lines(const ToolCall& call) {
  std::int64_t count = 0;
  for (std::size_t i = 0; i < call.input.size(); ++i)
    count +=
        call.input[i] == '\n' || (call.input[i] == '\r' && (i + 1 == call.input.size() || call.input[i + 1] != '\n'));
  const bool isOpen = !call.input.empty() && call.input.back() != '\n' && call.input.back() != '\r';
  return count + isOpen;
}
std::int64_t bytes(const ToolCall& call) { return static_cast<std::int64_t>(call.input.size()); }

struct Count {
  std::string_view id, title;
  std::int64_t (*of)(const ToolCall& call);
};
constexpr Count allCounts[]{{"characters", "Characters", characters},
                            {"words", "Words", words},
                            {"sentences", "Sentences", sentences},
                            {"lines", "Lines", lines},
                            {"bytes", "Bytes", bytes}};

}  // namespace

ToolOutcome base64(const ToolCall& call) {
  if (call.choice == "encode") return {base64Encoded(call.input), {}};
  if (call.choice == "url") {
    std::string text = base64Encoded(call.input);
    for (char& c : text) c = c == '+' ? '-' : c == '/' ? '_' : c;
    text.resize(std::min(text.size(), text.find('=')));
    return {std::move(text), {}};
  }
  if (const std::size_t at = foreignToBase64(call.input); at != std::string_view::npos)
    return {{}, fmt::format("Not Base64: byte {} is not one of its characters", at + 1)};
  auto decoded = base64Decoded(plainBase64(call.input));
  if (!decoded) return {{}, "Incomplete Base64: characters at the end are missing or wrong"};
  return {std::move(*decoded), {}};
}

ToolOutcome digest(const ToolCall& call) {
  std::array<unsigned char, EVP_MAX_MD_SIZE> bytes{};
  unsigned int length = 0;
  const EVP_MD* kind = EVP_get_digestbyname(std::string(call.choice).c_str());
  if (!kind || EVP_Digest(call.input.data(), call.input.size(), bytes.data(), &length, kind, nullptr) != 1)
    return {{}, "The system's OpenSSL does not offer this digest"};
  std::string text;
  for (const unsigned char byte : std::span(bytes).first(length)) text += fmt::format("{:02x}", byte);
  return {std::move(text), {}};
}

ToolOutcome counts(const ToolCall& call) {
  std::string text;
  for (const Count& count : allCounts) {
    if (call.choice == count.id) return {std::to_string(count.of(call)), {}};
    text += fmt::format("{}{:<12}{:>12}", text.empty() ? "" : "\n", count.title, figure(call, count.of(call)));
  }
  return {std::move(text), {}};
}

ToolGlance base64Glance(const ToolCall& call, const ToolOutcome&) {
  const bool isBase64 = call.input.size() >= 8 && foreignToBase64(call.input) == std::string_view::npos &&
                        base64Decoded(plainBase64(call.input)).has_value();
  return {isBase64 ? "Base64" : "Plain", fileSize(call.source.calendar, bytes(call)), {}};
}

ToolGlance digestGlance(const ToolCall& call, const ToolOutcome& outcome) {
  return {outcome.output.substr(0, 8), std::string(textTool(DockWidget::hash)->choice(call.choice)->title), {}};
}

ToolGlance countsGlance(const ToolCall& call, const ToolOutcome&) {
  return {figure(call, characters(call)),
          counted(call, words(call), "word", "words") + ", " + counted(call, lines(call), "line", "lines"),
          {}};
}

}  // namespace ambrel::tools
