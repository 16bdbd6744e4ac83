#pragma once
// What a card shows of a clip: its beginning, drawn after its kind.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/clipboard.h"

namespace ambrel {

enum class ClipLook { text, code, link, color, image, files, secret };

struct ClipColor {
  std::uint8_t red = 0, green = 0, blue = 0, alpha = 255;
  friend bool operator==(const ClipColor&, const ClipColor&) = default;
};
// The colour that a `color` clip names, in its hexadecimal or functional notation; absent when its arguments make
// no colour.
std::optional<ClipColor> parseColor(std::string_view text);

// Whether a text reads as program code or shell input rather than prose. Looks at its first lines alone.
bool looksLikeCode(std::string_view text);

struct ClipPreview {
  ClipLook look = ClipLook::text;
  // Text and code: the first lines, without blank lines before them and without the indentation that they share.
  // Link: the host. Colour: the notation. Files: nothing. Secret: the first line, to be shown only on demand.
  std::string title;
  // Link: what follows the host. Colour: its components, "47 127 134". Image: the first line of the text beside it.
  std::string detail;
  std::optional<ClipColor> color;
  std::vector<std::string> fileNames;  // the first few
  std::size_t fileCount = 0;

  friend bool operator==(const ClipPreview&, const ClipPreview&) = default;
};
// `isSensitive` is SensitiveText's answer for the item.
ClipPreview previewOf(const ClipItem& item, bool isSensitive);

// A name for a clip in a sentence: its first words, or "Image".
std::string clipName(const ClipItem& item);

}  // namespace ambrel
