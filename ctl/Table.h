#pragma once
// Aligned columns for people.

#include <string>
#include <string_view>
#include <vector>

#include "ctl/Context.h"

namespace ambrel {

struct Cell {
  std::string text;
  std::string style = {};
};

// Rows of equal length. Each column is as wide as its widest cell, and a column of empty cells is left out; on a
// terminal that is too narrow the column `flexible` gives way, down to 12 columns. Other tools' texts cannot move the
// cursor: control characters print as blanks.
std::string table(const std::vector<std::vector<Cell>>& rows, std::size_t flexible, const Context& context);

// Columns that a text takes on a terminal.
std::size_t displayWidth(std::string_view text);
// At most so many columns, the last of them "…" where text was left out.
std::string elided(std::string_view text, std::size_t columns);
// Control characters replaced by blanks.
std::string printable(std::string_view text);

}  // namespace ambrel
