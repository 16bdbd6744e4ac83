#include "core/dock.h"

namespace ambrel {

std::optional<PresentationStep> PresentationState::show() {
  if (isShown) return std::nullopt;
  ++generation;
  isShown = isOnScreen = true;
  return PresentationStep{PresentationStep::Kind::showContent, contentDelay, generation};
}

std::optional<PresentationStep> PresentationState::hide() {
  if (!isShown) return std::nullopt;
  isShown = isContentShown = false;
  return PresentationStep{PresentationStep::Kind::leaveScreen, leaveDelay, generation};
}

void PresentationState::carryOut(const PresentationStep& step) {
  if (step.generation != generation) return;
  switch (step.kind) {
    case PresentationStep::Kind::showContent:
      // Hidden before its content came.
      if (isShown) isContentShown = true;
      return;
    case PresentationStep::Kind::leaveScreen:
      isOnScreen = false;
      return;
  }
}

}  // namespace ambrel
