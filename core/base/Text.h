#pragma once
// Small text operations that several areas share. Texts are UTF-8 unless a function says otherwise.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ambrel {

// Without leading and trailing ASCII white space.
std::string_view trimmed(std::string_view text);
// The pieces between separators; keeps empty pieces, so that "" gives one.
std::vector<std::string_view> split(std::string_view text, char separator);
// ASCII letters in lower case; other bytes as they are.
std::string asciiLower(std::string_view text);

bool isValidUTF8(std::string_view text);
// Each byte that is no part of valid UTF-8 replaced by U+FFFD.
std::string repairedUTF8(std::string_view text);

// The path of a URI: every byte but letters, digits and "-._~/" as %XX.
std::string percentEncodedPath(std::string_view path);
// Absent when a '%' is not followed by two hexadecimal digits.
std::optional<std::string> percentDecoded(std::string_view text);

// The shortest decimal that reads back to the same number; ".0" is added to a whole one ("12.0", "0.1"). With an
// exponent only below 0.0001 and from 1e16 on ("1e+300").
std::string shortestDecimal(double value);

// Decoding forgives nothing: absent for anything that encoding would not have written.
std::string base64Encoded(std::string_view bytes);
std::optional<std::string> base64Decoded(std::string_view text);

// Inside single quotes for sh; a single quote in the text becomes '\''.
std::string shellQuoted(std::string_view text);

}  // namespace ambrel
