// The add-in context's one transactions form, and the drill-down's view of it.
#pragma once

#include <memory>

#include "dialogs/frm_transactions.h"
#include "dialogs/transactions_view.h"

namespace kxc {

// The form, created on first use and translated through gLanguage.
FrmTransactions& frmTransactions();

// A drill-down view of frmTransactions(): its grid, its column sizing and a modeless show.
// This is the view the add-in context makes unless it was given another.
std::shared_ptr<TransactionsView> frmTransactionsView();

}  // namespace kxc
