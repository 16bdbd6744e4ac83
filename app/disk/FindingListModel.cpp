#include "app/disk/FindingListModel.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <unordered_set>

#include "app/disk/DiskTexts.h"

namespace ambrel {
namespace {

using Kind = FindingRow::Kind;

// Rules that belong to no group are shown under one of their own.
constexpr std::string_view ungrouped = "ungrouped";
constexpr std::string_view groupPrefix = "group:", rulePrefix = "rule:", reasonPrefix = "reason:";
constexpr std::size_t namedItems = 4;

QString text(std::string_view utf8) { return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())); }

std::string groupID(std::optional<FindingGroup> group) {
  return std::string(groupPrefix).append(group ? nameOf(*group) : ungrouped);
}
std::string ruleID(FindingRule rule) { return std::string(rulePrefix).append(nameOf(rule)); }

QString kindName(Kind kind) {
  switch (kind) {
    case Kind::group:
      return QStringLiteral("group");
    case Kind::finding:
      return QStringLiteral("finding");
    case Kind::reason:
      return QStringLiteral("reason");
    case Kind::item:
      return QStringLiteral("item");
  }
  return {};
}

// What a screen reader says to a row.
QString labelOf(const FindingRow& row) {
  QStringList words{row.title};
  for (const QString& word : {row.detail, row.note, row.risk ? text(label(*row.risk)) : QString(), row.size})
    if (!word.isEmpty()) words << word;
  return words.join(QStringLiteral(", "));
}

bool isSafe(const CleanupItem& item, FindingRule rule) {
  return isMovable(rule) && riskOf(item, rule) == CleanupRisk::safe;
}

// Why it stayed comes first: it is what happened last.
QString noteOf(const CleanupItem& item) {
  QStringList sentences;
  if (item.stayed) sentences << text(explanation(*item.stayed)) + u'.';
  if (!item.detail.empty()) sentences << text(item.detail);
  return sentences.join(u' ');
}

struct GroupedFindings {
  std::optional<FindingGroup> group;
  std::vector<const DiskFinding*> findings;
};

// In the order of the groups and, within one, of the rules.
std::vector<GroupedFindings> grouped(const std::vector<DiskFinding>& findings) {
  std::vector<GroupedFindings> groups;
  std::vector<std::optional<FindingGroup>> order;
  for (const auto& [group, name] : EnumText<FindingGroup>::table) order.emplace_back(group);
  order.emplace_back();
  for (const auto& group : order) {
    GroupedFindings entry{.group = group, .findings = {}};
    for (const DiskFinding& finding : findings)
      if (ambrel::group(finding.rule) == group) entry.findings.push_back(&finding);
    std::stable_sort(entry.findings.begin(), entry.findings.end(),
                     [](const DiskFinding* a, const DiskFinding* b) { return a->rule < b->rule; });
    if (!entry.findings.empty()) groups.push_back(std::move(entry));
  }
  return groups;
}

std::int64_t bytesOf(const std::vector<const DiskFinding*>& findings) {
  std::int64_t sum = 0;
  for (const DiskFinding* finding : findings) sum += finding->bytes();
  return sum;
}

}  // namespace

FindingListModel::FindingListModel(std::string home, Calendar calendar, std::function<Instant()> now, QObject* parent)
    : RecordListModel(parent), home_(std::move(home)), calendar_(std::move(calendar)), now_(std::move(now)) {}

void FindingListModel::setFindings(std::vector<DiskFinding> findings) {
  findings_ = std::move(findings);
  selection_.clear();
  openRules_.clear();
  explanations_.clear();
  update();
  Q_EMIT findingsChanged();
  Q_EMIT selectionChanged();
}

void FindingListModel::takeReport(const DiskAdvice::TrashReport& report) {
  std::unordered_map<std::string, const CleanupItem*> left;
  std::unordered_set<std::string> gone;
  for (const CleanupItem& item : report.moved) gone.insert(item.url);
  for (const CleanupItem& item : report.failed) {
    if (item.bytes > 0)
      left[item.url] = &item;
    else
      gone.insert(item.url);
  }
  for (DiskFinding& finding : findings_) {
    std::erase_if(finding.items, [&](const CleanupItem& item) { return gone.contains(item.url); });
    for (CleanupItem& item : finding.items)
      if (const auto entry = left.find(item.url); entry != left.end()) item = *entry->second;
    std::stable_sort(finding.items.begin(), finding.items.end(),
                     [](const CleanupItem& a, const CleanupItem& b) { return a.bytes > b.bytes; });
  }
  std::erase_if(findings_, [](const DiskFinding& finding) { return finding.items.empty(); });
  std::erase_if(selection_, [&](const std::string& path) { return gone.contains(path) || left.contains(path); });
  update();
  Q_EMIT findingsChanged();
  Q_EMIT selectionChanged();
}

void FindingListModel::setExplanation(FindingRule rule, const QString& text) {
  explanations_[rule] = text;
  update();
}

std::vector<CleanupItem> FindingListModel::selectedItems() const {
  std::vector<CleanupItem> items;
  for (const DiskFinding& finding : findings_)
    for (const CleanupItem& item : finding.items)
      if (isMovable(finding.rule) && selection_.contains(item.url)) items.push_back(item);
  return items;
}

bool FindingListModel::hasSafeItems() const {
  return std::any_of(findings_.begin(), findings_.end(), [](const DiskFinding& finding) {
    return std::any_of(finding.items.begin(), finding.items.end(),
                       [&](const CleanupItem& item) { return isSafe(item, finding.rule); });
  });
}

QString FindingListModel::selectionTitle() const {
  if (selection_.empty()) return tr("Nothing chosen yet");
  std::size_t all = 0;
  for (const DiskFinding& finding : findings_)
    if (isMovable(finding.rule)) all += finding.items.size();
  return tr("%1 of %2 chosen")
      .arg(shownCount(calendar_, selectedCount()), shownCount(calendar_, static_cast<std::int64_t>(all)));
}

QString FindingListModel::moveTitle() const {
  if (selection_.empty()) return tr("Move to the Trash");
  std::int64_t bytes = 0;
  for (const CleanupItem& item : selectedItems()) bytes += item.bytes;
  return tr("Move %1 to the Trash").arg(shownSize(calendar_, bytes));
}

void FindingListModel::select(const DiskFinding& finding, bool isSelected) {
  if (!isMovable(finding.rule)) return;
  for (const CleanupItem& item : finding.items) {
    if (isSelected)
      selection_.insert(item.url);
    else
      selection_.erase(item.url);
  }
}

void FindingListModel::setSelected(const QString& id, bool isSelected) {
  const std::string wanted = pathOf(id);
  const auto before = selection_;
  for (const DiskFinding& finding : findings_) {
    if (wanted == groupID(ambrel::group(finding.rule)) || wanted == ruleID(finding.rule)) select(finding, isSelected);
    if (!isMovable(finding.rule)) continue;
    for (const CleanupItem& item : finding.items) {
      if (item.url != wanted) continue;
      if (isSelected)
        selection_.insert(wanted);
      else
        selection_.erase(wanted);
    }
  }
  if (selection_ == before) return;
  update();
  Q_EMIT selectionChanged();
}

void FindingListModel::selectSafe() {
  for (const DiskFinding& finding : findings_)
    for (const CleanupItem& item : finding.items)
      if (isSafe(item, finding.rule)) selection_.insert(item.url);
  update();
  Q_EMIT selectionChanged();
}

void FindingListModel::selectNone() {
  selection_.clear();
  update();
  Q_EMIT selectionChanged();
}

void FindingListModel::toggleOpen(const QString& id) {
  const std::string wanted = pathOf(id);
  auto& set = wanted.starts_with(groupPrefix) ? closedGroups_ : openRules_;
  const bool isAdded = set.erase(wanted) == 0 && set.insert(wanted).second;
  update();
  if (!isAdded || &set != &openRules_ || !onOpened) return;
  for (const DiskFinding& finding : findings_)
    if (ruleID(finding.rule) == wanted) return onOpened(finding.rule);
}

Qt::CheckState FindingListModel::checkState(const std::vector<const DiskFinding*>& findings) const {
  bool hasChosen = false, hasOther = false;
  for (const DiskFinding* finding : findings) {
    if (!isMovable(finding->rule)) continue;
    for (const CleanupItem& item : finding->items) (selection_.contains(item.url) ? hasChosen : hasOther) = true;
  }
  return !hasChosen ? Qt::Unchecked : hasOther ? Qt::PartiallyChecked : Qt::Checked;
}

void FindingListModel::addFinding(const DiskFinding& finding, Instant now, std::vector<FindingRow>& rows) const {
  const std::string id = ruleID(finding.rule);
  const bool isOpen = openRules_.contains(id);
  QStringList names;
  for (std::size_t i = 0; i < finding.items.size() && i < namedItems; ++i) names << shownName(finding.items[i].title);
  const QString count =
      finding.items.size() == 1 ? tr("1 item") : tr("%1 items").arg(static_cast<int>(finding.items.size()));
  rows.push_back({.id = id,
                  .kind = Kind::finding,
                  .title = text(title(finding.rule)),
                  .detail = tr("%1: %2").arg(count, names.join(QStringLiteral(", "))),
                  .size = shownSize(calendar_, finding.bytes()),
                  .symbol = text(symbol(finding.rule)),
                  .note = {},
                  .risk = finding.risk(),
                  .checkState = checkState({&finding}),
                  .isSelectable = isMovable(finding.rule),
                  .isOpen = isOpen});
  if (!isOpen) return;
  const auto explanation = explanations_.find(finding.rule);
  rows.push_back({.id = std::string(reasonPrefix).append(nameOf(finding.rule)),
                  .kind = Kind::reason,
                  .title = text(finding.reason),
                  .detail = explanation == explanations_.end() ? QString() : explanation->second,
                  .size = {},
                  .symbol = {},
                  .note = {},
                  .risk = {}});
  for (const CleanupItem& item : finding.items) {
    const auto slash = item.url.rfind('/');
    QString place =
        shownPath(item.contentsOnly || slash == item.url.npos ? item.url : item.url.substr(0, slash), home_);
    if (item.modified) place = tr("%1 · %2").arg(shownAge(calendar_, *item.modified, now), place);
    rows.push_back({.id = item.url,
                    .kind = Kind::item,
                    .title = shownName(item.title),
                    .detail = place,
                    .size = shownSize(calendar_, item.bytes),
                    .symbol = {},
                    .note = noteOf(item),
                    .risk = item.ownRisk,
                    .checkState = selection_.contains(item.url) ? Qt::Checked : Qt::Unchecked,
                    .isSelectable = isMovable(finding.rule),
                    .hasStayed = item.stayed.has_value()});
  }
}

void FindingListModel::update() {
  std::vector<FindingRow> rows;
  const Instant now = now_();
  for (const GroupedFindings& entry : grouped(findings_)) {
    const std::string id = groupID(entry.group);
    const bool isOpen = !closedGroups_.contains(id);
    const bool isSelectable = std::any_of(entry.findings.begin(), entry.findings.end(),
                                          [](const DiskFinding* finding) { return isMovable(finding->rule); });
    rows.push_back({.id = id,
                    .kind = Kind::group,
                    .title = entry.group ? text(ambrel::title(*entry.group)) : tr("Only shown"),
                    .detail = {},
                    .size = shownSize(calendar_, bytesOf(entry.findings)),
                    .symbol = {},
                    .note = {},
                    .risk = {},
                    .checkState = checkState(entry.findings),
                    .isSelectable = isSelectable,
                    .isOpen = isOpen});
    if (!isOpen) continue;
    for (const DiskFinding* finding : entry.findings) addFinding(*finding, now, rows);
  }
  setRows(rows);
}

QVariant FindingListModel::data(const QModelIndex& index, int role) const {
  const FindingRow* entry = row(index);
  if (!entry) return {};
  switch (role) {
    case IdRole:
      return pathID(entry->id);
    case KindRole:
      return kindName(entry->kind);
    case TitleRole:
      return entry->title;
    case DetailRole:
      return entry->detail;
    case SizeRole:
      return entry->size;
    case SymbolRole:
      return entry->symbol;
    case RiskRole:
      return entry->risk ? text(label(*entry->risk)) : QString();
    case RiskNameRole:
      return entry->risk ? text(nameOf(*entry->risk)) : QString();
    case CheckStateRole:
      return static_cast<int>(entry->checkState);
    case IsSelectableRole:
      return entry->isSelectable;
    case IsOpenRole:
      return entry->isOpen;
    case NoteRole:
      return entry->note;
    case HasStayedRole:
      return entry->hasStayed;
    case LabelRole:
      return labelOf(*entry);
    default:
      return {};
  }
}

QHash<int, QByteArray> FindingListModel::roleNames() const {
  return {{IdRole, "rowId"},
          {KindRole, "kind"},
          {TitleRole, "title"},
          {DetailRole, "detail"},
          {SizeRole, "size"},
          {SymbolRole, "symbol"},
          {RiskRole, "risk"},
          {RiskNameRole, "riskName"},
          {CheckStateRole, "checkState"},
          {IsSelectableRole, "isSelectable"},
          {IsOpenRole, "isOpen"},
          {NoteRole, "note"},
          {HasStayedRole, "hasStayed"},
          {LabelRole, "label"}};
}

}  // namespace ambrel
