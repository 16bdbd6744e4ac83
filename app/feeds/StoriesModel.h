#pragma once
// The top stories of Hacker News.

#include "app/base/GadgetListModel.h"
#include "app/feeds/Feed.h"
#include "app/feeds/FeedFaces.h"

namespace ambrel {

class StoriesModel : public ambrel::Feed {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::StoriesFace face READ face NOTIFY changed FINAL)
  Q_PROPERTY(ambrel::RowList* rows READ rows CONSTANT FINAL)

 public:
  static constexpr std::size_t mostStories = 12;
  static constexpr const char* file = "hacker-news.json";

  explicit StoriesModel(FeedSeams seams, QObject* parent = nullptr);

  const StoriesFace& face() const { return face_; }
  RowList* rows() { return &rows_; }
  // Says whether there is a story to open.
  Q_INVOKABLE bool openTop();
  Q_INVOKABLE void open(const QString& storyId);
  Q_INVOKABLE void openDiscussion(const QString& storyId);

 protected:
  std::optional<Instant> load() override;
  void ask() override;
  void show(Instant now) override;

 private:
  struct Round;
  QUrl address(std::string_view path) const;
  void take(const std::shared_ptr<Round>& round);
  void openPage(const QString& storyId, std::string (*addressOfStory)(const Story&));

  StoryList list_;
  StoriesFace face_;
  GadgetListModel<StoryRow> rows_;
};

}  // namespace ambrel
