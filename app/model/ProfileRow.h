#pragma once
// One of the user's profiles, for menus and lists.

#include <QObject>
#include <QString>

namespace ambrel {

struct ProfileRow {
  Q_GADGET
  Q_PROPERTY(QString profile MEMBER profile FINAL)
  Q_PROPERTY(QString name MEMBER name FINAL)
  Q_PROPERTY(QString trigger MEMBER trigger FINAL)
  Q_PROPERTY(int tileCount MEMBER tileCount FINAL)
  Q_PROPERTY(bool isActive MEMBER isActive FINAL)
  Q_PROPERTY(bool isPinned MEMBER isPinned FINAL)

 public:
  QString profile;  // the id
  QString name;
  QString trigger;  // "builtinOnly", "external", or "" for never
  int tileCount = 0;
  bool isActive = false;
  bool isPinned = false;
  friend bool operator==(const ProfileRow&, const ProfileRow&) = default;
};

}  // namespace ambrel
