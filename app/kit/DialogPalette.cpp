#include "app/kit/DialogPalette.h"

namespace ambrel {

QPalette dialogPalette(const Palette& colors) {
  QPalette palette(colors.card, colors.panel);
  palette.setColor(QPalette::Base, colors.field);
  palette.setColor(QPalette::AlternateBase, colors.card);
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
    palette.setColor(role, colors.ink);
    palette.setColor(QPalette::Disabled, role, colors.ink3);
  }
  palette.setColor(QPalette::PlaceholderText, colors.ink3);
  palette.setColor(QPalette::Highlight, colors.accent);
  palette.setColor(QPalette::HighlightedText, colors.onAccent);
  return palette;
}

}  // namespace ambrel
