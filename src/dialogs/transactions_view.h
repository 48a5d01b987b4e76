// TransactionsView: what the drill-down needs of the transactions form.
#pragma once

#include <functional>
#include <memory>

#include "platform/dispatch.h"

namespace kxc {

// The one transactions form of the process, as the drill-down uses it: by default
// frmTransactions (transactions_form.h); tests and other front ends install their own.
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

using TransactionsViewProvider = std::function<std::shared_ptr<TransactionsView>()>;

// The provider yields the form, creating it on first use; null restores the default. A
// provider that yields nothing makes the drill-down raise 91 "Object variable or With block
// variable not set".
void setTransactionsViewProvider(TransactionsViewProvider provider);
std::shared_ptr<TransactionsView> transactionsView();

}  // namespace kxc
