// FormulaBar: the name box with the selection's address and the active cell's formula.
#pragma once

#include <QWidget>
#include <memory>

#include "platform/workbook/in_memory_application.h"

class QLineEdit;

namespace kxc::workbench {

// Enter in the formula box types its text into the active cell; Enter in the name box selects
// the reference typed there; Escape puts back the cell's formula. refresh() re-reads both from
// the application unless the user is typing in them. User-interface thread only.
class FormulaBar : public QWidget {
  Q_OBJECT

 public:
  explicit FormulaBar(std::shared_ptr<workbook::InMemoryApplication> app,
                      QWidget* parent = nullptr);

  void refresh();
  QLineEdit& nameBox() const { return *nameBox_; }
  QLineEdit& formulaBox() const { return *formulaBox_; }

 signals:
  // After the formula box typed into the cell or the name box selected.
  void committed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void commitFormula();
  void commitName();

  std::shared_ptr<workbook::InMemoryApplication> app_;
  QLineEdit* nameBox_;
  QLineEdit* formulaBox_;
};

}  // namespace kxc::workbench
