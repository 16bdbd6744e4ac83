#include "app/buddy/BuddyInboxModel.h"

#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"

namespace ambrel {

BuddyInboxModel::BuddyInboxModel(PresentCalendar calendar, QObject* parent)
    : RecordListModel(parent), calendar_(std::move(calendar)) {}

void BuddyInboxModel::show(const BuddyInbox& inbox, const std::vector<BuddyNotice>& arrived, Instant now) {
  for (const BuddyNotice& notice : arrived) read_.erase(toQString(inboxKey(notice)));
  inbox_ = inbox;
  update(now);
}

void BuddyInboxModel::update(Instant now) {
  std::vector<InboxRecord> records;
  std::set<QString> stillRead;
  int newCount = 0;
  for (const BuddyNotice& notice : inbox_.recent) {
    const QString key = toQString(inboxKey(notice));
    const bool isRead = read_.contains(key);
    if (isRead)
      stillRead.insert(key);
    else
      ++newCount;
    records.push_back({notice, key, noticeText(notice, calendar_, now), !isRead});
  }
  read_ = std::move(stillRead);
  const int before = count();
  setRows(records);
  if (before == count() && newCount == newCount_) return;
  newCount_ = newCount;
  Q_EMIT countsChanged();
}

void BuddyInboxModel::markRead(Instant now) {
  for (const InboxRecord& record : rows()) read_.insert(record.key);
  update(now);
}

void BuddyInboxModel::showDigest(const std::vector<AgentWatch::DigestEntry>& digest, std::optional<Instant> since) {
  digest_.clear();
  for (const AgentWatch::DigestEntry& entry : digest) {
    const QString kind = toQString(displayName(entry.kind));
    QStringList lines;
    for (const std::string& line : entry.lines) lines << toQString(line);
    digest_ << QVariantMap{
        {QStringLiteral("title"), entry.project ? tr("%1 in %2").arg(kind, toQString(*entry.project)) : kind},
        {QStringLiteral("text"), lines.join(u'\n')}};
  }
  digestSince_ = since && !digest.empty() ? toQString(shortTime(calendar_, *since)) : QString();
  Q_EMIT digestChanged();
}

QString BuddyInboxModel::keyToShow() const {
  for (const InboxRecord& record : rows())
    if (record.isNew && !record.notice.actions.empty()) return record.key;
  return {};
}

const BuddyNotice* BuddyInboxModel::noticeOf(const QString& key) const {
  for (const InboxRecord& record : rows())
    if (record.key == key) return &record.notice;
  return nullptr;
}

QVariant BuddyInboxModel::data(const QModelIndex& index, int role) const {
  const InboxRecord* record = row(index);
  if (!record) return {};
  const BuddyNoticeText& text = record->text;
  switch (role) {
    case KeyRole:
      return record->key;
    case Qt::DisplayRole:
    case TitleRole:
      return text.title;
    case DetailRole:
      return text.detail;
    case AgeRole:
      return text.age;
    case SymbolRole:
      return text.symbol;
    case ToneRole:
      return text.tone;
    case ActionsRole:
      return text.actions;
    case WhyRole:
      return text.why;
    case SettingRole:
      return text.setting;
    case SpokenRole:
      return text.spoken;
    case SectionRole:
      return record->isNew ? tr("New") : tr("Earlier");
    default:
      return {};
  }
}

QHash<int, QByteArray> BuddyInboxModel::roleNames() const {
  return {{KeyRole, "key"},         {TitleRole, "title"},   {DetailRole, "detail"},   {AgeRole, "age"},
          {SymbolRole, "symbol"},   {ToneRole, "tone"},     {ActionsRole, "actions"}, {WhyRole, "why"},
          {SettingRole, "setting"}, {SpokenRole, "spoken"}, {SectionRole, "section"}};
}

}  // namespace ambrel
