#pragma once
// The calculator: an expression, its value, and the earlier results of this run of the program.

#include "app/base/GadgetListModel.h"
#include "app/tools/CalculatedModel.h"

namespace ambrel {

struct CalculatorRow {
  Q_GADGET
  QML_VALUE_TYPE(calculatorRow)
 public:
  FACE_FIELDS(int, number);  // in the order in which they came
  FACE_FIELDS(QString, expression, result);
  bool operator==(const CalculatorRow&) const = default;
};

class CalculatorModel : public ambrel::CalculatedModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  // Rows are CalculatorRow, newest first.
  Q_PROPERTY(ambrel::RowList* history READ history CONSTANT FINAL)

 public:
  // The seams outlive it.
  explicit CalculatorModel(const ToolSeams& seams, QObject* parent = nullptr);
  RowList* history() { return &history_; }

 protected:
  std::string expression(std::string_view input) const override { return std::string(input); }
  QString detail(const QString& input) const override { return input.isEmpty() ? tr("Click to type") : input; }
  void accepted() override;

 private:
  std::vector<CalculatorRow> rows_;
  GadgetListModel<CalculatorRow, &CalculatorRow::number> history_;
  int count_ = 0;
};

}  // namespace ambrel
