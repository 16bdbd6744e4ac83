#pragma once
// The list of findings in the window: which rows are open, which items are chosen, and their sum.

#include <QtQml/qqmlregistration.h>
#include <functional>
#include <string>
#include <vector>

#include "app/base/Face.h"
#include "app/base/GadgetListModel.h"
#include "app/disk/FindingRow.h"

namespace ambrel {

// The summary of the chosen items.
struct FindingChoice {
  Q_GADGET
  QML_VALUE_TYPE(findingChoice)
 public:
  FACE_FIELDS(bool, hasFindings, hasSafeItems, hasChosen);
  FACE_FIELDS(QString, title);      // "5 of 31 chosen"
  FACE_FIELDS(QString, moveTitle);  // the text of the button that moves them
  friend bool operator==(const FindingChoice&, const FindingChoice&) = default;
};

FindingChoice findingChoice(const FindingSelection& selection, const Calendar& calendar);

class FindingListModel : public GadgetListModel<FindingRow> {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::FindingChoice choice READ choice NOTIFY choiceChanged FINAL)

 public:
  FindingListModel(std::string home, Calendar calendar, std::function<Instant()> now, QObject* parent = nullptr);

  const FindingChoice& choice() const { return choice_; }
  const FindingSelection& selection() const { return selection_; }
  const std::vector<DiskFinding>& findings() const { return selection_.findings(); }
  // Clears the choice and closes all rules.
  void setFindings(std::vector<DiskFinding> findings);
  void takeReport(const DiskAdvice::TrashReport& report);
  // A longer explanation of a rule, shown under its reason.
  void setExplanation(FindingRule rule, const QString& text);
  bool isExplained(FindingRule rule) const { return state_.explanations.contains(rule); }

  // By the id of a row; a group or a rule means all its items. Rows that cannot be chosen are ignored.
  Q_INVOKABLE void setSelected(const QString& id, bool isSelected);
  Q_INVOKABLE void selectSafe();
  Q_INVOKABLE void selectNone();
  // Opens or closes a group or a rule.
  Q_INVOKABLE void toggleOpen(const QString& id);

 Q_SIGNALS:
  void choiceChanged();
  void ruleOpened(ambrel::FindingRule rule);

 private:
  void update();

  std::string home_;
  Calendar calendar_;
  std::function<Instant()> now_;
  FindingSelection selection_;
  FindingListState state_;
  FindingChoice choice_;
};

}  // namespace ambrel
