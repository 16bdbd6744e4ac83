#pragma once
// Keeps a document and its file in step: writes what the user changes, takes over what others write, and says when one
// of them fails.

#include <QObject>
#include <QTimer>

#include "app/base/Area.h"
#include "app/base/FollowedFile.h"
#include "app/base/PatientWrite.h"
#include "core/stores/SharedFile.h"

namespace ambrel {

class DocumentKeeper : public QObject {
  Q_OBJECT

 public:
  // A kill loses at most what was typed in so long.
  static constexpr std::chrono::milliseconds typingPause{400};

  // `name` begins sentences: "The quick note". File and shell outlive it.
  DocumentKeeper(SharedFile& file, QString name, Shell& shell, QObject* parent = nullptr);
  // Writes what is not written yet.
  ~DocumentKeeper() override;

  // Reads the file and follows it from the first call on.
  void open();
  void save();
  void saveSoon();

  // Why the last write failed; empty when all is written.
  const QString& problem() const { return write_.problem(); }

 Q_SIGNALS:
  // Others have changed the value.
  void takenOver();
  void problemChanged();

 private:
  void refresh();
  void write();

  SharedFile& file_;
  QString name_;
  Shell& shell_;
  FollowedFile followed_;
  PatientWrite write_;
  QTimer pause_;
  bool isOpen_ = false;
};

}  // namespace ambrel
