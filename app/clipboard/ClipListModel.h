#pragma once
// The clips that the shelf shows, a card each.

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "app/clipboard/ClipFileLookup.h"
#include "core/base/Calendar.h"
#include "core/clipboard/Capture.h"
#include "core/clipboard/ClipIndex.h"

namespace ambrel {

// What may change of a clip, and what tells one from another. The rest is in the index.
struct ClipRow {
  UUID id;
  ClipKind kind = ClipKind::text;
  Instant createdAt;
  std::string imageFileName = {};
  std::string source = {};  // the stored identifier of the program; empty when unknown
  bool isPinned = false;
  bool isKept = false;                // no sweep takes it
  bool isCurrent = false;             // on the pasteboard now
  int pinNumber = 0;                  // 0 without one
  std::optional<LostCopy> lost = {};  // no clip, but a copy that could not be taken over
  friend bool operator==(const ClipRow&, const ClipRow&) = default;
};

// Matches rows by id and announces the smallest change; never resets.
class ClipListModel : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("belongs to the clipboard's model")

 public:
  enum Role {
    IdRole = Qt::UserRole,
    LookRole,    // "text", "code", "link", "color", "image", "files", "secret"; "lost" for what is no clip
    KindRole,    // in words: "Text", "Files"
    TitleRole,   // ClipPreview::title
    DetailRole,  // ClipPreview::detail
    ColorRole,
    FilesRole,      // a list of {name, symbol}
    MoreFilesRole,  // "and 2 more"
    PictureRole,    // the name of the picture's file
    FootRole,       // where it comes from, or how large it is
    AgeRole,
    PinNumberRole,
    PinnedRole,
    CurrentRole,
    ForgettingRole,  // "forgotten in 42 min"; empty for what is kept
    SpokenRole,      // all of it in a sentence; a secret is not told
  };
  Q_ENUM(Role)

  struct Sources {
    const ClipIndex& index;
    Calendar calendar;
    std::function<QString(const std::string& bundleID)> programName;
    std::function<std::optional<PictureSize>(const std::string& imageFileName)> pictureSize;
    std::function<const ClipFiles*(const UUID&)> files;
    // How long a secret is kept; absent: for ever.
    std::function<std::optional<Seconds>()> sensitiveAge;
  };
  explicit ClipListModel(Sources sources, QObject* parent = nullptr);

  void show(std::vector<ClipRow> rows);
  // A single step of the same: the row comes first, and leaves its former place; these rows go.
  void put(ClipRow row);
  void drop(std::span<const UUID> ids);
  // Which clip is on the pasteboard now.
  void setCurrent(const std::optional<UUID>& id);
  // Ages are reckoned from here.
  void setNow(Instant now);
  // What the card says of the row besides its record has changed.
  void refresh(const UUID& id);
  void refreshAll();

  const std::vector<ClipRow>& rows() const { return rows_; }
  // -1 without such a row.
  Q_INVOKABLE int rowOf(const QString& id) const;
  // Empty beyond the rows.
  Q_INVOKABLE QString idAt(int row) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

 private:
  int positionOf(const UUID& id) const;
  QVariantList files(const ClipRow& row, const ClipFacts& facts) const;
  QString foot(const ClipRow& row, const ClipFacts& facts) const;
  QString forgetting(const ClipRow& row, const ClipFacts& facts) const;
  QString spoken(const ClipRow& row, const ClipFacts& facts) const;
  QVariant lostData(const ClipRow& row, int role) const;

  Sources sources_;
  std::vector<ClipRow> rows_;
  mutable std::unordered_map<UUID, int> positions_;  // of the rows; empty while they change
  Instant now_;
};

}  // namespace ambrel
