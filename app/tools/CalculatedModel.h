#pragma once
// Calculates a result from a text while it is being typed. The text is kept under a key of the defaults.

#include <stop_token>

#include "app/base/Face.h"
#include "app/base/SeenModel.h"
#include "app/tools/ToolSeams.h"

namespace ambrel {

struct CalculatedFace {
  Q_GADGET
  QML_VALUE_TYPE(calculatedFace)
 public:
  FACE_FIELDS(QString, input, result, fault);
  FACE_FIELDS(QString, value, detail);  // of the tile
  FACE_FIELDS(bool, isWorking);
  bool operator==(const CalculatedFace&) const = default;
};

class CalculatedModel : public ambrel::SeenModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("of several kinds")
  Q_PROPERTY(ambrel::CalculatedFace face READ face NOTIFY faceChanged FINAL)

 public:
  ~CalculatedModel() override { run_.request_stop(); }

  const CalculatedFace& face() const { return face_; }
  // The stored text may have changed.
  virtual void reload();

  // Calculates once the text has not changed for a moment and the tile or the panel can be seen.
  Q_INVOKABLE void setInput(const QString& input);
  // Puts the result on the clipboard, as soon as it is there.
  Q_INVOKABLE void accept();

 Q_SIGNALS:
  void faceChanged();

 protected:
  CalculatedModel(const ToolSeams& seams, const char* key, const char* standard, QObject* parent)
      : SeenModel(parent), seams_(seams), key_(key), standard_(standard) {}

  // What the calculator is asked for an input that is not blank.
  virtual std::string expression(std::string_view input) const = 0;
  // The tile's line below the result; also asked with an empty input.
  virtual QString detail(const QString& input) const = 0;
  virtual void accepted() {}
  // Something that the expression is made of has changed.
  void renew();
  void closed() override;
  void neededChanged() override;

  const ToolSeams& seams_;

 private:
  void workOut();
  void publish();

  const char* key_;
  const char* standard_;
  std::string input_, expression_;
  ToolOutcome outcome_;
  CalculatedFace face_;
  bool isStale_ = false;  // the outcome is of an older expression, and no calculation runs
  bool isRunning_ = false, isAccepted_ = false;
  int generation_ = 0;
  std::stop_source run_;
};

}  // namespace ambrel
