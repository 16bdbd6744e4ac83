#pragma once
// Moves what was confirmed to the Trash, one list at a time, and knows what could be freed.

#include <QObject>
#include <QtQml/qqmlregistration.h>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/base/Background.h"
#include "core/base/Calendar.h"
#include "core/disk.h"
#include "platform/Trash.h"

namespace ambrel {

class DiskCleaner : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  // "3.2 GB can go"; empty while nothing is known.
  Q_PROPERTY(QString freeableText READ freeableText NOTIFY freeableChanged FINAL)

 public:
  struct Seams {
    Trash& trash;
    Background background;
    std::function<Instant()> now;
    Calendar calendar;
  };
  // `home`: with its links resolved.
  DiskCleaner(Seams seams, std::string home, QObject* parent = nullptr);

  bool isTrashing() const { return isTrashing_; }
  std::optional<std::int64_t> freeableBytes() const { return freeableBytes_; }
  void setFreeableBytes(std::optional<std::int64_t> bytes);
  QString freeableText() const;

  // The copies that no move may take while their scan is the last one, whatever has moved since.
  void setKept(std::vector<KeptCopy> kept) { kept_ = std::move(kept); }

  // Where these items would go, each Trash once. `isWhole`: every one of them has a Trash to go to.
  struct Places {
    std::vector<TrashPlace> places;
    bool isWhole = true;
  };
  Places placesFor(const std::vector<CleanupItem>& items) const;

  // Moves exactly these items, each if it is still what was found. False, and nothing happens, while another list is
  // on its way. `done` is called on the main thread.
  bool trash(std::vector<CleanupItem> items, std::function<void(const DiskAdvice::TrashReport&)> done);

  // What a move came to, for a message, and whether anything moved.
  std::function<void(const QString& title, const QString& body)> onFinish;
  std::function<void(bool hasMoved)> onOutcome;

 Q_SIGNALS:
  void freeableChanged();

 private:
  Seams seams_;
  std::string home_;
  std::vector<KeptCopy> kept_;
  bool isTrashing_ = false;
  std::optional<std::int64_t> freeableBytes_;
};

}  // namespace ambrel
