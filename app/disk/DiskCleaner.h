#pragma once
// Moves confirmed items to the Trash, one list at a time, and holds the figure of what could be freed.

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
  // "3.2 GB can go"; empty if unknown.
  Q_PROPERTY(QString freeableText READ freeableText NOTIFY freeableChanged FINAL)

 public:
  struct Seams {
    Trash& trash;
    Background background;
    std::function<Instant()> now;
    Calendar calendar;
  };
  // `home`: with symbolic links resolved.
  DiskCleaner(Seams seams, std::string home, QObject* parent = nullptr);

  bool isTrashing() const { return isTrashing_; }
  std::optional<std::int64_t> freeableBytes() const { return freeableBytes_; }
  void setFreeableBytes(std::optional<std::int64_t> bytes);
  QString freeableText() const;

  // The copies of duplicates that must stay. Valid until the next scan.
  void setKept(std::vector<KeptCopy> kept) { kept_ = std::move(kept); }

  // The Trash folders for these items, without repeats. `isWhole`: every item has one.
  struct Places {
    std::vector<TrashPlace> places;
    bool isWhole = true;
  };
  Places placesFor(const std::vector<CleanupItem>& items) const;

  // Moves exactly these items, except those that have changed since the scan. Returns false and does nothing while
  // another list is being moved. `done` is called on the main thread.
  bool trash(std::vector<CleanupItem> items, std::function<void(const DiskAdvice::TrashReport&)> done);

 Q_SIGNALS:
  void freeableChanged();
  // The result of a move as a message, and whether anything moved.
  void finished(const QString& title, const QString& body, bool hasMoved);

 private:
  Seams seams_;
  std::string home_;
  std::vector<KeptCopy> kept_;
  bool isTrashing_ = false;
  std::optional<std::int64_t> freeableBytes_;
};

}  // namespace ambrel
