// Text that fills a place: Latin-like words in no order that means anything, the same for the same index.

#include <array>

#include "core/base/Text.h"
#include "core/tools/Tools.h"

namespace ambrel::tools {
namespace {

constexpr std::array<std::string_view, 64> words{
    "lorem",  "ipsum",  "dolor", "sit",    "amet",   "ager",  "aqua",   "arbor",  "avis", "bene",   "caelum",
    "campus", "candor", "casa",  "clarus", "corona", "cum",   "dies",   "domus",  "et",   "fabula", "felix",
    "flumen", "folium", "forte", "gratia", "hortus", "ignis", "in",     "inter",  "iter", "labor",  "lapis",
    "lente",  "levis",  "liber", "litus",  "lumen",  "luna",  "magnus", "manet",  "mare", "mensa",  "mons",
    "nec",    "nubes",  "nunc",  "omnis",  "pagina", "pons",  "quies",  "ramus",  "rosa", "semper", "silva",
    "sol",    "stella", "sub",   "tempus", "terra",  "unda",  "ventus", "verbum", "via"};

// A good spread out of a counter.
class Draws {
 public:
  explicit Draws(std::uint64_t seed) : state_(seed * 0x9E3779B97F4A7C15u) {}
  std::size_t below(std::size_t count) {
    std::uint64_t value = state_ += 0x9E3779B97F4A7C15u;
    value = (value ^ value >> 30) * 0xBF58476D1CE4E5B9u;
    value = (value ^ value >> 27) * 0x94D049BB133111EBu;
    return static_cast<std::size_t>((value ^ value >> 31) % count);
  }

 private:
  std::uint64_t state_;
};

// The first text of all begins as such texts do.
std::string run(Draws& draws, std::size_t count, bool isFirst) {
  std::string text;
  std::size_t before = words.size();
  for (std::size_t i = 0; i < count; ++i) {
    std::size_t word = isFirst && i < 5 ? i : draws.below(words.size());
    if (word == before) word = (word + 1) % words.size();
    if (i > 0) text += isFirst && i == 5 ? ", " : " ";
    text += words[word];
    before = word;
  }
  return text;
}

std::string sentence(Draws& draws, bool isFirst) {
  std::string text = run(draws, 7 + draws.below(8), isFirst);
  text.front() = static_cast<char>(text.front() - 'a' + 'A');
  return text + '.';
}

}  // namespace

ToolOutcome placeholderText(const ToolCall& call) {
  const bool isFirst = call.source.loremIndex == 0;
  Draws draws(static_cast<std::uint64_t>(call.source.loremIndex));
  if (call.choice == "words") return {run(draws, 5, isFirst), {}};
  std::string text = sentence(draws, isFirst);
  if (call.choice == "sentence") return {std::move(text), {}};
  for (std::size_t more = 3 + draws.below(3); more > 0; --more) text += ' ' + sentence(draws, false);
  return {std::move(text), {}};
}

ToolGlance placeholderGlance(const ToolCall& call, const ToolOutcome& outcome) {
  const auto count = static_cast<std::int64_t>(split(outcome.output, ' ').size());
  return {"No. " + figure(call, call.source.loremIndex + 1), counted(call, count, "word", "words"), {}};
}

}  // namespace ambrel::tools
