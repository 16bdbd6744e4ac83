#pragma once
// One of the user's profiles, for menus and lists.

#include <QObject>
#include <QString>

#include "app/base/Face.h"

namespace ambrel {

struct ProfileRow {
  Q_GADGET
 public:
  FACE_FIELDS(QString, profile);  // the id
  FACE_FIELDS(QString, name);
  FACE_FIELDS(QString, trigger);  // "builtinOnly", "external", or "" for never
  FACE_FIELDS(int, tileCount);
  FACE_FIELDS(bool, isActive, isPinned);
  friend bool operator==(const ProfileRow&, const ProfileRow&) = default;
};

}  // namespace ambrel
