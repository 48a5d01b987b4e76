// TransactionsView: what the drill-down needs of the transactions form.
#pragma once

#include <memory>

#include "platform/dispatch.h"

namespace kxc {

// The transactions form as the drill-down uses it. The add-in context's TransactionsView is
// frmTransactions unless the program or a test gives the context another one
// (AddInContext::provide<TransactionsView>).
class TransactionsView {
 public:
  virtual ~TransactionsView() = default;
  // The grid vasTrans as a dispatch object: the engine fills it by member name.
  virtual ObjectRef vasTrans() = 0;
  // Sizes the grid's columns, from column 1 to the grid's column count, to their contents.
  virtual void sizeColumns() = 0;
  // Shows the form.
  virtual void show() = 0;
};

// The add-in context's view, made on first use. A maker that yields nothing raises 91
// "Object variable or With block variable not set".
TransactionsView& transactionsView();

}  // namespace kxc
