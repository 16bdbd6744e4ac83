#pragma once
// Publishing a value only when it differs.

#include <type_traits>
#include <utility>

namespace ambrel {

// Takes `next` over if it differs, and says whether it did: `if (replaced(face_, waterFace(...))) Q_EMIT
// faceChanged();`
template <typename T>
bool replaced(T& held, std::type_identity_t<T> next) {
  if (next == held) return false;
  held = std::move(next);
  return true;
}

}  // namespace ambrel
