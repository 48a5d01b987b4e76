// The process's one transactions form, and the drill-down's view of it.
#pragma once

#include <memory>

#include "dialogs/frm_transactions.h"
#include "dialogs/transactions_view.h"

namespace kxc {

// The form, created on first use and translated through gLanguage.
FrmTransactions& frmTransactions();
// Destroys the form; the next use creates a fresh one. For program end and tests.
void releaseFrmTransactions();

// The drill-down's view of frmTransactions(): its grid, its column sizing and a modeless show.
// This is what the drill-down uses while no other provider is installed.
std::shared_ptr<TransactionsView> frmTransactionsView();

}  // namespace kxc
