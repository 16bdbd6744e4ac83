#pragma once
// Keys of the window in front, whatever the layout of the keyboard.

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "core/settings/KeyCombination.h"

namespace ambrel {

class KeyPlaces : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

 public:
  using QObject::QObject;

  // The letter or the digit that a key event stands for, by its `key` and its `nativeScanCode`; else its key.
  Q_INVOKABLE int usual(int key, int place) const {
    return static_cast<int>(usualKey(static_cast<std::uint32_t>(key), static_cast<std::uint32_t>(place)));
  }
};

}  // namespace ambrel
