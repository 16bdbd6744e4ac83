#pragma once
// The findings as rows of one list: groups, the rules in them, and of an opened rule its reason and its items.

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "app/base/Face.h"
#include "core/base/Calendar.h"
#include "core/disk/FindingSelection.h"

namespace ambrel {

struct FindingRow {
  Q_GADGET
  Q_PROPERTY(QString rowId MEMBER id FINAL)
  Q_PROPERTY(QString kind READ kindName FINAL)
  Q_PROPERTY(QString risk READ riskText FINAL)
  Q_PROPERTY(QString riskName READ riskName FINAL)
  // What a screen reader says to it.
  Q_PROPERTY(QString label READ label FINAL)

 public:
  enum class Kind { group, finding, reason, item };

  QString id;  // of an item the id of its path
  Kind kind = Kind::group;
  FACE_FIELDS(QString, title, detail, size, symbol);
  // Of an item: why it stayed, what it is, or why it needs more care than its rule says.
  FACE_FIELDS(QString, note);
  std::optional<CleanupRisk> ownRisk = {};
  FACE_FIELD(int, checkState, Qt::Unchecked);
  FACE_FIELDS(bool, isSelectable, isOpen, hasStayed);

  QString kindName() const;
  QString riskText() const;
  QString riskName() const;
  QString label() const;
  friend bool operator==(const FindingRow&, const FindingRow&) = default;
};

// What of the list is open, by the ids of its rows, and what the model has written.
struct FindingListState {
  std::set<std::string> closedGroups = {}, openRules = {};
  std::map<FindingRule, QString> explanations = {};
};

std::vector<FindingRow> findingRows(const FindingSelection& selection, const FindingListState& state,
                                    const std::string& home, Instant now, const Calendar& calendar);

}  // namespace ambrel
