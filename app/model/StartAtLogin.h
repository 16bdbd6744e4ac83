#pragma once
// Whether the desktop starts the program with the session. The entry's file is the truth: other programs change it,
// too.

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "app/base/FollowedFile.h"

namespace ambrel {

class StartAtLogin : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(bool isOn READ isOn WRITE setOn NOTIFY changed FINAL)
  // Why the last change was not made; empty when it was.
  Q_PROPERTY(QString problem READ problem NOTIFY changed FINAL)

 public:
  // `config`: the user's folder of configurations. `installed`: the entry that a package may have brought, and that the
  // user's own overrules. `program`: what the session starts.
  StartAtLogin(const std::filesystem::path& config, std::filesystem::path installed, std::filesystem::path program,
               QObject* parent = nullptr);

  bool isOn() const { return isOn_; }
  void setOn(bool isOn);
  const QString& problem() const { return problem_; }

 Q_SIGNALS:
  void changed();

 private:
  void look();

  bool isInstalledOn() const;

  std::filesystem::path file_, installed_, program_;
  FollowedFile watcher_;
  bool isOn_ = false;
  QString problem_;
};

}  // namespace ambrel
