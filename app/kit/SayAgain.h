#pragma once
// Screen readers say a message when it comes. One whose words change while it is there has to be said again.

#include <QAccessible>

namespace ambrel {

inline void sayAgain(QObject* message) {
  QAccessibleEvent event(message, QAccessible::ObjectShow);
  QAccessible::updateAccessibility(&event);
}

}  // namespace ambrel
