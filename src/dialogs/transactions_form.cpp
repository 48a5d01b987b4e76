#include "dialogs/transactions_form.h"

#include "state/add_in_context.h"
#include "state/translation.h"

namespace kxc {

namespace {

class FrmTransactionsView : public TransactionsView {
 public:
  ObjectRef vasTrans() override { return frmTransactions().vasTransObject(); }
  void sizeColumns() override { frmTransactions().sizeColumns(); }
  // Modeless: the user keeps working in the workbook while the transactions are on show.
  void show() override { frmTransactions().form().show(0); }
};

}  // namespace

FrmTransactions& frmTransactions() {
  return *AddInContext::current().single<FrmTransactions>(
      [] { return std::make_shared<FrmTransactions>(languageFormTranslator()); });
}

std::shared_ptr<TransactionsView> frmTransactionsView() {
  return std::make_shared<FrmTransactionsView>();
}

}  // namespace kxc
