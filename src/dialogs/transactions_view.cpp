#include "dialogs/transactions_view.h"

#include <utility>

#include "dialogs/transactions_form.h"
#include "platform/runtime_error.h"

namespace kxc {

namespace {

TransactionsViewProvider& installed() {
  static TransactionsViewProvider provider;
  return provider;
}

}  // namespace

void setTransactionsViewProvider(TransactionsViewProvider provider) {
  installed() = std::move(provider);
}

std::shared_ptr<TransactionsView> transactionsView() {
  std::shared_ptr<TransactionsView> view = installed() ? installed()() : frmTransactionsView();
  if (!view) throw RuntimeError(err::kObjectNotSet);
  return view;
}

}  // namespace kxc
