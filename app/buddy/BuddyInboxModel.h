#pragma once
// The notices of this session of the program, newest first, and what happened while the user was away.

#include <QVariantList>
#include <QtQml/qqmlregistration.h>
#include <set>

#include "app/base/RecordListModel.h"
#include "app/buddy/BuddyNoticeText.h"
#include "core/base/PresentCalendar.h"
#include "core/buddy/AgentWatch.h"
#include "core/buddy/BuddyInbox.h"

namespace ambrel {

struct InboxRecord {
  BuddyNotice notice;
  QString key;
  BuddyNoticeText text;
  bool isNew = false;
  friend bool operator==(const InboxRecord&, const InboxRecord&) = default;
};

class BuddyInboxModel : public RecordListModel<InboxRecord, QString> {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("belongs to the notice centre")
  Q_PROPERTY(int count READ count NOTIFY countsChanged FINAL)
  Q_PROPERTY(int newCount READ newCount NOTIFY countsChanged FINAL)
  // What happened out of view: {"title": "Codex in web-shop", "text": "Finished after 12 min"}, in order.
  Q_PROPERTY(QVariantList digest READ digest NOTIFY digestChanged FINAL)
  // "14:30"; empty without a digest.
  Q_PROPERTY(QString digestSince READ digestSince NOTIFY digestChanged FINAL)

 public:
  enum Role {
    KeyRole = Qt::UserRole,
    TitleRole,
    DetailRole,
    AgeRole,
    SymbolRole,
    ToneRole,
    ActionsRole,
    WhyRole,
    SettingRole,
    SpokenRole,
    SectionRole  // "New" or "Earlier"
  };
  Q_ENUM(Role)

  explicit BuddyInboxModel(PresentCalendar calendar, QObject* parent = nullptr);

  // `arrived` of its notices have come, or come back; they are new again.
  void show(const BuddyInbox& inbox, const std::vector<BuddyNotice>& arrived, Instant now);
  // Brings the texts of what is shown up to date.
  void update(Instant now);
  // Brings the ages up to date.
  void refresh(Instant now) { update(now); }
  void markRead(Instant now);
  void showDigest(const std::vector<AgentWatch::DigestEntry>& digest, std::optional<Instant> since);

  int count() const { return static_cast<int>(rows().size()); }
  int newCount() const { return newCount_; }
  QVariantList digest() const { return digest_; }
  QString digestSince() const { return digestSince_; }
  // Of the newest notice that is new and offers something; empty when there is none.
  Q_INVOKABLE QString keyToShow() const;
  // Null when it is there no more.
  const BuddyNotice* noticeOf(const QString& key) const;

  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

 Q_SIGNALS:
  void countsChanged();
  void digestChanged();

 protected:
  QString keyOf(const InboxRecord& record) const override { return record.key; }

 private:
  PresentCalendar calendar_;
  BuddyInbox inbox_;
  std::set<QString> read_;
  int newCount_ = 0;
  QVariantList digest_;
  QString digestSince_;
};

}  // namespace ambrel
