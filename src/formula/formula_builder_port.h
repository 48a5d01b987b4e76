// FormulaBuilderPort: what writing a formula needs of the formula builder dialog.
#pragma once

#include <memory>

namespace kxc {

// Implemented by the formula builder dialog, which installs its one instance at start-up.
class FormulaBuilderPort {
 public:
  virtual ~FormulaBuilderPort() = default;
  // True when the dialog was closed without confirming; false after OK.
  virtual bool Cancelled() const = 0;
  // Closes the dialog.
  virtual void Unload() = 0;
};

// The installed builder, or null when none is (then a formula is always written).
const std::shared_ptr<FormulaBuilderPort>& formulaBuilder();
void setFormulaBuilder(std::shared_ptr<FormulaBuilderPort> builder);

}  // namespace kxc
