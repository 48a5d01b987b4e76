#include "formula/formula_builder_port.h"

#include <utility>

namespace kxc {

namespace {

std::shared_ptr<FormulaBuilderPort>& installed() {
  static std::shared_ptr<FormulaBuilderPort> builder;
  return builder;
}

}  // namespace

const std::shared_ptr<FormulaBuilderPort>& formulaBuilder() { return installed(); }

void setFormulaBuilder(std::shared_ptr<FormulaBuilderPort> builder) {
  installed() = std::move(builder);
}

}  // namespace kxc
