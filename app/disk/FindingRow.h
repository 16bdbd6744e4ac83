#pragma once
// The findings as rows of one list: groups, their rules, and the reason and items of open rules.

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
  QML_VALUE_TYPE(findingRow)
  Q_PROPERTY(QString rowId MEMBER id FINAL)
  Q_PROPERTY(QString kind READ kindName FINAL)
  Q_PROPERTY(QString risk READ riskText FINAL)
  Q_PROPERTY(QString riskName READ riskName FINAL)
  // For screen readers.
  Q_PROPERTY(QString label READ label FINAL)

 public:
  enum class Kind { group, finding, reason, item };

  QString id;  // for an item pathID of its path
  Kind kind = Kind::group;
  FACE_FIELDS(QString, title, detail, size, symbol);
  // Of an item: why it stayed, what it is, or why it has a higher risk than its rule.
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

// Which rows are open, by their ids, and the explanations by the language model.
struct FindingListState {
  std::set<std::string> closedGroups = {}, openRules = {};
  std::map<FindingRule, QString> explanations = {};
};

std::vector<FindingRow> findingRows(const FindingSelection& selection, const FindingListState& state,
                                    const std::string& home, Instant now, const Calendar& calendar);

}  // namespace ambrel
