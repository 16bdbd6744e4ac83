#include "app/disk/FindingListModel.h"

#include "app/base/Replaced.h"
#include "app/disk/DiskTexts.h"

namespace ambrel {

FindingChoice findingChoice(const FindingSelection& selection, const Calendar& calendar) {
  FindingChoice choice{.hasFindings = !selection.findings().empty(),
                       .hasSafeItems = selection.hasSafeItems(),
                       .hasChosen = !selection.paths().empty(),
                       .title = FindingListModel::tr("Nothing chosen yet"),
                       .moveTitle = FindingListModel::tr("Move to the Trash")};
  if (!choice.hasChosen) return choice;
  const auto counted = [&](std::size_t count) { return shownCount(calendar, static_cast<std::int64_t>(count)); };
  choice.title =
      FindingListModel::tr("%1 of %2 chosen").arg(counted(selection.paths().size()), counted(selection.movableCount()));
  choice.moveTitle = FindingListModel::tr("Move %1 to the Trash").arg(shownSize(calendar, selection.bytes()));
  return choice;
}

FindingListModel::FindingListModel(std::string home, Calendar calendar, std::function<Instant()> now, QObject* parent)
    : GadgetListModel(parent), home_(std::move(home)), calendar_(std::move(calendar)), now_(std::move(now)) {
  update();
}

void FindingListModel::setFindings(std::vector<DiskFinding> findings) {
  selection_.setFindings(std::move(findings));
  state_.openRules.clear();
  state_.explanations.clear();
  update();
}

void FindingListModel::takeReport(const DiskAdvice::TrashReport& report) {
  selection_.takeReport(report);
  update();
}

void FindingListModel::setExplanation(FindingRule rule, const QString& text) {
  state_.explanations[rule] = text;
  update();
}

void FindingListModel::setSelected(const QString& id, bool isSelected) {
  if (selection_.select(pathOf(id), isSelected)) update();
}

void FindingListModel::selectSafe() {
  selection_.selectSafe();
  update();
}

void FindingListModel::selectNone() {
  selection_.clear();
  update();
}

void FindingListModel::toggleOpen(const QString& id) {
  const std::string wanted = pathOf(id);
  for (const DiskFinding& finding : findings()) {
    const bool isRule = wanted == ruleID(finding.rule);
    if (!isRule && wanted != groupID(group(finding.rule))) continue;
    auto& set = isRule ? state_.openRules : state_.closedGroups;
    const bool isAdded = set.erase(wanted) == 0 && set.insert(wanted).second;
    update();
    if (isRule && isAdded) Q_EMIT ruleOpened(finding.rule);
    return;
  }
}

void FindingListModel::update() {
  setRows(findingRows(selection_, state_, home_, now_(), calendar_));
  if (replaced(choice_, findingChoice(selection_, calendar_))) Q_EMIT choiceChanged();
}

}  // namespace ambrel
