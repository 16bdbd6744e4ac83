#pragma once
// The findings as one list: groups, the rules in them, and of an opened rule its reason and its items. What is chosen
// is kept by path, so that no row that comes or goes can change it.

#include <QtQml/qqmlregistration.h>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "app/base/RecordListModel.h"
#include "core/base/Calendar.h"
#include "core/disk.h"

namespace ambrel {

struct FindingRow {
  enum class Kind { group, finding, reason, item };

  std::string id;  // of an item its path
  Kind kind = Kind::group;
  QString title, detail, size, symbol;
  // Of an item: why it stayed, what it is, or why it needs more care than its rule says.
  QString note;
  std::optional<CleanupRisk> risk;
  Qt::CheckState checkState = Qt::Unchecked;
  bool isSelectable = false;
  bool isOpen = false;
  bool hasStayed = false;
  friend bool operator==(const FindingRow&, const FindingRow&) = default;
};

class FindingListModel : public RecordListModel<FindingRow, std::string> {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(int selectedCount READ selectedCount NOTIFY selectionChanged)
  // "5 of 31 chosen", and what the button that moves them says.
  Q_PROPERTY(QString selectionTitle READ selectionTitle NOTIFY selectionChanged)
  Q_PROPERTY(QString moveTitle READ moveTitle NOTIFY selectionChanged)
  Q_PROPERTY(bool hasFindings READ hasFindings NOTIFY findingsChanged)
  Q_PROPERTY(bool hasSafeItems READ hasSafeItems NOTIFY findingsChanged)

 public:
  enum Role {
    IdRole = Qt::UserRole,
    KindRole,
    TitleRole,
    DetailRole,
    SizeRole,
    SymbolRole,
    RiskRole,
    RiskNameRole,
    CheckStateRole,
    IsSelectableRole,
    IsOpenRole,
    NoteRole,
    HasStayedRole,
    LabelRole
  };
  Q_ENUM(Role)

  FindingListModel(std::string home, Calendar calendar, std::function<Instant()> now, QObject* parent = nullptr);

  const std::vector<DiskFinding>& findings() const { return findings_; }
  // Nothing is chosen afterwards, and no rule is open.
  void setFindings(std::vector<DiskFinding> findings);
  // What went is no longer listed; what is left is, with its bytes and its reason, and is chosen no more. What else was
  // chosen stays so.
  void takeReport(const DiskAdvice::TrashReport& report);
  // A longer explanation of a rule, shown under its reason.
  void setExplanation(FindingRule rule, const QString& text);
  bool isExplained(FindingRule rule) const { return explanations_.contains(rule); }

  // The chosen items of movable rules, in the order of the findings.
  std::vector<CleanupItem> selectedItems() const;
  const std::set<std::string>& selection() const { return selection_; }
  int selectedCount() const { return static_cast<int>(selection_.size()); }
  QString selectionTitle() const;
  QString moveTitle() const;
  bool hasFindings() const { return !findings_.empty(); }
  bool hasSafeItems() const;

  // By the id of a row; a group or a rule means all its items. Rows that cannot be chosen stay as they are.
  Q_INVOKABLE void setSelected(const QString& id, bool isSelected);
  Q_INVOKABLE void selectSafe();
  Q_INVOKABLE void selectNone();
  // Opens or closes a group or a rule.
  Q_INVOKABLE void toggleOpen(const QString& id);
  // Calls back when a rule is opened.
  std::function<void(FindingRule)> onOpened;

  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

 Q_SIGNALS:
  void selectionChanged();
  void findingsChanged();

 protected:
  std::string keyOf(const FindingRow& row) const override { return row.id; }

 private:
  void update();
  void addFinding(const DiskFinding& finding, Instant now, std::vector<FindingRow>& rows) const;
  Qt::CheckState checkState(const std::vector<const DiskFinding*>& findings) const;
  void select(const DiskFinding& finding, bool isSelected);

  std::string home_;
  Calendar calendar_;
  std::function<Instant()> now_;
  std::vector<DiskFinding> findings_;
  std::set<std::string> selection_;
  std::set<std::string> closedGroups_, openRules_;
  std::map<FindingRule, QString> explanations_;
};

}  // namespace ambrel
