#include "app/disk/FindingRow.h"

#include <QCoreApplication>

#include "app/base/StoredValue.h"
#include "app/disk/DiskTexts.h"

namespace ambrel {
namespace {

constexpr std::size_t namedItems = 4;

QString words(const char* text) { return QCoreApplication::translate("ambrel::FindingRow", text); }

// The latest event comes first.
QString noteOf(const CleanupItem& item) {
  QStringList sentences;
  if (item.stayed) sentences << toQString(explanation(*item.stayed)) + u'.';
  if (!item.detail.empty()) sentences << toQString(item.detail);
  return sentences.join(u' ');
}

class Rows {
 public:
  Rows(const FindingSelection& selection, const FindingListState& state, const std::string& home, Instant now,
       const Calendar& calendar)
      : selection_(selection), state_(state), home_(home), now_(now), calendar_(calendar) {}

  std::vector<FindingRow> all() {
    for (const GroupedFindings& entry : grouped(selection_.findings())) {
      const std::string id = groupID(entry.group);
      const bool isOpen = !state_.closedGroups.contains(id);
      rows_.push_back({.id = toQString(id),
                       .kind = FindingRow::Kind::group,
                       .title = entry.group ? toQString(title(*entry.group)) : words("Only shown"),
                       .size = shownSize(calendar_, entry.bytes()),
                       .checkState = checkState(entry.findings),
                       .isSelectable = entry.hasMovable(),
                       .isOpen = isOpen});
      if (!isOpen) continue;
      for (const DiskFinding* finding : entry.findings) add(*finding);
    }
    return std::move(rows_);
  }

 private:
  void add(const DiskFinding& finding) {
    const std::string id = ruleID(finding.rule);
    const bool isOpen = state_.openRules.contains(id);
    QStringList names;
    for (std::size_t i = 0; i < finding.items.size() && i < namedItems; ++i) names << shownName(finding.items[i].title);
    const QString count =
        finding.items.size() == 1 ? words("1 item") : words("%1 items").arg(static_cast<int>(finding.items.size()));
    rows_.push_back({.id = toQString(id),
                     .kind = FindingRow::Kind::finding,
                     .title = toQString(title(finding.rule)),
                     .detail = words("%1: %2").arg(count, names.join(QStringLiteral(", "))),
                     .size = shownSize(calendar_, finding.bytes()),
                     .symbol = toQString(symbol(finding.rule)),
                     .ownRisk = finding.risk(),
                     .checkState = checkState({&finding}),
                     .isSelectable = isMovable(finding.rule),
                     .isOpen = isOpen});
    if (!isOpen) return;
    const auto explanation = state_.explanations.find(finding.rule);
    rows_.push_back({.id = QStringLiteral("reason:") + toQString(nameOf(finding.rule)),
                     .kind = FindingRow::Kind::reason,
                     .title = toQString(finding.reason),
                     .detail = explanation == state_.explanations.end() ? QString() : explanation->second});
    for (const CleanupItem& item : finding.items) add(item, isMovable(finding.rule));
  }

  void add(const CleanupItem& item, bool isMovable) {
    const auto slash = item.url.rfind('/');
    QString place =
        shownPath(item.contentsOnly || slash == item.url.npos ? item.url : item.url.substr(0, slash), home_);
    if (item.modified) place = words("%1 · %2").arg(shownAge(calendar_, *item.modified, now_), place);
    rows_.push_back({.id = pathID(item.url),
                     .kind = FindingRow::Kind::item,
                     .title = shownName(item.title),
                     .detail = place,
                     .size = shownSize(calendar_, item.bytes),
                     .note = noteOf(item),
                     .ownRisk = item.ownRisk,
                     .checkState = selection_.contains(item) ? Qt::Checked : Qt::Unchecked,
                     .isSelectable = isMovable,
                     .hasStayed = item.stayed.has_value()});
  }

  int checkState(const std::vector<const DiskFinding*>& findings) const {
    switch (selection_.extent(findings)) {
      case FindingSelection::Extent::none:
        return Qt::Unchecked;
      case FindingSelection::Extent::some:
        return Qt::PartiallyChecked;
      case FindingSelection::Extent::all:
        return Qt::Checked;
    }
    return Qt::Unchecked;
  }

  const FindingSelection& selection_;
  const FindingListState& state_;
  const std::string& home_;
  Instant now_;
  const Calendar& calendar_;
  std::vector<FindingRow> rows_;
};

}  // namespace

QString FindingRow::kindName() const { return toQString(nameOf(kind)); }
QString FindingRow::riskText() const { return ownRisk ? toQString(ambrel::label(*ownRisk)) : QString(); }
QString FindingRow::riskName() const { return ownRisk ? toQString(nameOf(*ownRisk)) : QString(); }

QString FindingRow::label() const { return spokenWords({title, detail, note, riskText(), size}); }

std::vector<FindingRow> findingRows(const FindingSelection& selection, const FindingListState& state,
                                    const std::string& home, Instant now, const Calendar& calendar) {
  return Rows(selection, state, home, now, calendar).all();
}

}  // namespace ambrel
