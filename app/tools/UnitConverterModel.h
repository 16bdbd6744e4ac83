#pragma once
// The unit converter: an amount, its unit, and the unit to convert to.

#include <QStringList>

#include "app/tools/CalculatedModel.h"
#include "core/tools/Units.h"

namespace ambrel {

// What is chosen, as indexes.
struct UnitChoice {
  Q_GADGET
  QML_VALUE_TYPE(unitChoice)
 public:
  FACE_FIELDS(int, category, from, to);
  FACE_FIELDS(QStringList, units);  // of the category
  bool operator==(const UnitChoice&) const = default;
};

class UnitConverterModel : public ambrel::CalculatedModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::UnitChoice choice READ choice NOTIFY choiceChanged FINAL)
  Q_PROPERTY(QStringList categories READ categories CONSTANT FINAL)

 public:
  // The seams outlive it. What is chosen is in the defaults unitCategory, unitFrom and unitTo.
  explicit UnitConverterModel(const ToolSeams& seams, QObject* parent = nullptr);

  UnitChoice choice() const;
  static QStringList categories();
  void reload() override;

  Q_INVOKABLE void setCategory(int index);
  // Choosing the unit of the other side swaps the two.
  Q_INVOKABLE void setFrom(int index);
  Q_INVOKABLE void setTo(int index);
  Q_INVOKABLE void swap() { choose(*category_, *to_, *from_); }

 Q_SIGNALS:
  void choiceChanged();

 protected:
  std::string expression(std::string_view input) const override { return conversion(input, *from_, *to_); }
  QString detail(const QString& input) const override;

 private:
  void choose(const UnitCategory& category, const Unit& from, const Unit& to);

  const UnitCategory* category_ = nullptr;
  const Unit* from_ = nullptr;
  const Unit* to_ = nullptr;
};

}  // namespace ambrel
