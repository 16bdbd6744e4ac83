#pragma once
// The clipboard's part of the program. Its shelf is a separate window.

#include "app/base/Area.h"
#include "app/clipboard/ClipboardModel.h"

namespace ambrel {

class ClipboardArea : public Area {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::ClipboardModel* clipboard READ clipboard CONSTANT FINAL)

 public:
  ClipboardArea(AppSettings& settings, std::filesystem::path folder, Calendar calendar, ClipboardModel::Seams seams,
                QObject* parent = nullptr);

  ClipboardModel* clipboard() { return &clipboard_; }
  Q_INVOKABLE void toggleShelf() { Q_EMIT shelfAsked(); }
  QVariantMap sample(DockWidget /*widget*/) override {
    return {{QStringLiteral("face"), QVariant::fromValue(clipboard_.sampleFace())}};
  }
  bool carryOut(const Wish& wish) override;
  // Copies announce themselves; this is for the sweeps, and in case that one does not.
  void tick(Instant /*now*/) override { clipboard_.poll(); }
  std::vector<AreaKey> keys() override;

 Q_SIGNALS:
  // Open it, or close it.
  void shelfAsked();
  // 1 to 9
  void pinnedAsked(int number);

 private:
  ClipboardModel clipboard_;
};

}  // namespace ambrel
