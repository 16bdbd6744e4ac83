#include "app/tools/CalculatorModel.h"

#include "app/base/QmlObjects.h"

namespace ambrel {

CalculatorModel::CalculatorModel(const ToolSeams& seams, QObject* parent)
    : CalculatedModel(seams, "calculatorExpression", "", parent) {
  keep({&history_});
  reload();
}

void CalculatorModel::accepted() {
  constexpr std::size_t most = 20;
  std::erase_if(rows_, [this](const CalculatorRow& row) { return row.expression == face().input; });
  rows_.insert(rows_.begin(), {.number = ++count_, .expression = face().input, .result = face().result});
  if (rows_.size() > most) rows_.pop_back();
  history_.setRows(rows_);
}

}  // namespace ambrel
