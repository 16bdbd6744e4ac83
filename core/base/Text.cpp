#include "core/base/Text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace ambrel {
namespace {

bool isSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// The length of the valid UTF-8 sequence at the start of `text`, or 0.
std::size_t sequenceLength(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const auto continues = [&](std::size_t i) { return i < text.size() && (byte(i) & 0xC0) == 0x80; };
  const unsigned char first = byte(0);
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first <= 0xDF) return continues(1) ? 2 : 0;
  if (first >= 0xE0 && first <= 0xEF) {
    if (!continues(1) || !continues(2)) return 0;
    if (first == 0xE0 && byte(1) < 0xA0) return 0;   // overlong
    if (first == 0xED && byte(1) >= 0xA0) return 0;  // surrogates
    return 3;
  }
  if (first >= 0xF0 && first <= 0xF4) {
    if (!continues(1) || !continues(2) || !continues(3)) return 0;
    if (first == 0xF0 && byte(1) < 0x90) return 0;
    if (first == 0xF4 && byte(1) >= 0x90) return 0;  // beyond U+10FFFF
    return 4;
  }
  return 0;
}

int hexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

constexpr std::string_view base64Alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

}  // namespace

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && isSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && isSpace(text.back())) text.remove_suffix(1);
  return text;
}

std::vector<std::string_view> split(std::string_view text, char separator) {
  std::vector<std::string_view> pieces;
  for (;;) {
    const std::size_t at = text.find(separator);
    pieces.push_back(text.substr(0, at));
    if (at == std::string_view::npos) return pieces;
    text.remove_prefix(at + 1);
  }
}

std::string asciiLower(std::string_view text) {
  std::string out(text);
  for (char& c : out)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return out;
}

bool isValidUTF8(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = sequenceLength(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

std::string repairedUTF8(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = sequenceLength(text);
    if (length == 0) {
      out += "\xEF\xBF\xBD";
      text.remove_prefix(1);
    } else {
      out += text.substr(0, length);
      text.remove_prefix(length);
    }
  }
  return out;
}

std::string percentEncodedPath(std::string_view path) {
  constexpr std::string_view hex = "0123456789ABCDEF";
  std::string out;
  for (const char c : path) {
    const bool isPlain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
                         c == '.' || c == '_' || c == '~' || c == '/';
    const auto byte = static_cast<unsigned char>(c);
    if (isPlain)
      out += c;
    else
      out += {'%', hex[byte >> 4], hex[byte & 15]};
  }
  return out;
}

std::optional<std::string> percentDecoded(std::string_view text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '%') {
      out += text[i];
      continue;
    }
    if (i + 2 >= text.size()) return std::nullopt;
    const int high = hexValue(text[i + 1]), low = hexValue(text[i + 2]);
    if (high < 0 || low < 0) return std::nullopt;
    out += static_cast<char>(high * 16 + low);
    i += 2;
  }
  return out;
}

std::string shortestDecimal(double value) {
  std::array<char, 32> buffer;
  const double size = std::abs(value);
  // Left alone, to_chars takes whichever notation is shorter: 100000 would read "1e+05".
  const bool isPlain = size == 0 || (size >= 1e-4 && size < 1e16);
  const auto format = isPlain ? std::chars_format::fixed : std::chars_format::scientific;
  const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format);
  std::string text(buffer.data(), end);
  if (std::isfinite(value) && text.find_first_of(".e") == std::string::npos) text += ".0";
  return text;
}

std::string base64Encoded(std::string_view bytes) {
  std::string out;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::size_t count = std::min<std::size_t>(3, bytes.size() - i);
    std::uint32_t group = 0;
    for (std::size_t k = 0; k < 3; ++k)
      group = group << 8 | (k < count ? static_cast<unsigned char>(bytes[i + k]) : 0u);
    for (std::size_t k = 0; k < 4; ++k) out += k <= count ? base64Alphabet[group >> (18 - 6 * k) & 63] : '=';
  }
  return out;
}

std::optional<std::string> base64Decoded(std::string_view text) {
  if (text.size() % 4 != 0) return std::nullopt;
  std::string out;
  for (std::size_t i = 0; i < text.size(); i += 4) {
    const bool isLast = i + 4 == text.size();
    const std::size_t padding = isLast ? (text[i + 3] == '=') + (text[i + 3] == '=' && text[i + 2] == '=') : 0;
    std::uint32_t group = 0;
    for (std::size_t k = 0; k < 4; ++k) {
      const std::size_t value = k < 4 - padding ? base64Alphabet.find(text[i + k]) : 0;
      if (value == std::string_view::npos) return std::nullopt;
      group = group << 6 | static_cast<std::uint32_t>(value);
    }
    // Bits that belong to no byte: the same bytes would have two texts.
    if ((group & ((1u << 8 * padding) - 1)) != 0) return std::nullopt;
    for (std::size_t k = 0; k < 3 - padding; ++k) out += static_cast<char>(group >> (16 - 8 * k) & 255);
  }
  return out;
}

std::string shellQuoted(std::string_view text) {
  std::string out = "'";
  for (const char c : text) {
    if (c == '\'')
      out += "'\\''";
    else
      out += c;
  }
  return out + "'";
}

}  // namespace ambrel
