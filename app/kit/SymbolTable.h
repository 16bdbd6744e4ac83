#pragma once
// Symbol names, as the catalogue and the notices use them, and the glyphs of the packaged icon font that show them.

#include <optional>
#include <span>
#include <string_view>

namespace ambrel {

struct SymbolGlyph {
  std::string_view name;
  char32_t glyph;
};

// The family of the icon font.
inline constexpr const char* symbolFontFamily = "Material Icons";

// Sorted by name, each name once.
std::span<const SymbolGlyph> symbolTable();
// Absent for a name that the font has no glyph for: see SymbolDrawing.h for those that are drawn.
std::optional<char32_t> glyphOf(std::string_view name);

}  // namespace ambrel
