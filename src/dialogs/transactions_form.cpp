#include "dialogs/transactions_form.h"

#include "facade/language_translator.h"

namespace kxc {

namespace {

std::unique_ptr<FrmTransactions>& instance() {
  static std::unique_ptr<FrmTransactions> form;
  return form;
}

class FrmTransactionsView : public TransactionsView {
 public:
  ObjectRef vasTrans() override { return frmTransactions().vasTransObject(); }
  void sizeColumns() override { frmTransactions().sizeColumns(); }
  // Modeless: the user keeps working in the workbook while the transactions are on show.
  void show() override { frmTransactions().form().show(0); }
};

}  // namespace

FrmTransactions& frmTransactions() {
  if (!instance()) instance() = std::make_unique<FrmTransactions>(languageFormTranslator());
  return *instance();
}

void releaseFrmTransactions() { instance().reset(); }

std::shared_ptr<TransactionsView> frmTransactionsView() {
  return std::make_shared<FrmTransactionsView>();
}

}  // namespace kxc
