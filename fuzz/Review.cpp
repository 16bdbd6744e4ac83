// A review of any bytes: it is refused, or its Markdown has a line for each heading and each note.

#include "core/review.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/base/JSON.h"

using namespace ambrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  TitledReview document;
  try {
    document = decodedReview(std::string_view(reinterpret_cast<const char*>(data), size));
  } catch (const DecodingError&) {
    return 0;
  }
  const ScreenReview& review = document.review;
  const std::string text = review.markdown("title");
  std::size_t lines = review.pages.size() + review.noteCount();
  for (const ReviewPage& page : review.pages) lines += page.pins.empty() ? 1 : 0;
  if (static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) != lines) __builtin_trap();
  return 0;
}
