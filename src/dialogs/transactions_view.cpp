#include "dialogs/transactions_view.h"

#include "dialogs/transactions_form.h"
#include "state/add_in_context.h"

namespace kxc {

TransactionsView& transactionsView() {
  return *AddInContext::current().single<TransactionsView>(frmTransactionsView);
}

}  // namespace kxc
