#include "formula_bar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

#include "platform/error_report.h"
#include "platform/qt/qt_text.h"
#include "platform/workbook/address_writer.h"

namespace kxc::workbench {

FormulaBar::FormulaBar(std::shared_ptr<workbook::InMemoryApplication> app, QWidget* parent)
    : QWidget(parent),
      app_(std::move(app)),
      nameBox_(new QLineEdit(this)),
      formulaBox_(new QLineEdit(this)) {
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(4, 2, 4, 2);
  nameBox_->setObjectName("nameBox");
  formulaBox_->setObjectName("formulaBox");
  nameBox_->setFixedWidth(nameBox_->fontMetrics().horizontalAdvance("$XFD$1048576:$XFD$1") / 2 +
                          24);
  auto* fx = new QLabel(QStringLiteral("fx"), this);
  fx->setStyleSheet("font-style: italic; padding: 0 4px;");
  layout->addWidget(nameBox_);
  layout->addWidget(fx);
  layout->addWidget(formulaBox_, 1);
  nameBox_->installEventFilter(this);
  formulaBox_->installEventFilter(this);
  connect(formulaBox_, &QLineEdit::returnPressed, this, &FormulaBar::commitFormula);
  connect(nameBox_, &QLineEdit::returnPressed, this, &FormulaBar::commitName);
}

void FormulaBar::refresh() {
  std::string address;
  std::string formula;
  ignoringErrors([&] {
    address = app_->selectionAddress();
    host::RangeRef cell = app_->activeCell();
    if (cell) formula = cell->formula();
  });
  // A box the user is typing into keeps what was typed; otherwise it follows the selection.
  if (!nameBox_->hasFocus() || !nameBox_->isModified()) {
    nameBox_->setText(qt::toQString(address));
    nameBox_->setModified(false);
  }
  if (!formulaBox_->hasFocus() || !formulaBox_->isModified()) {
    formulaBox_->setText(qt::toQString(formula));
    formulaBox_->setModified(false);
  }
}

void FormulaBar::commitFormula() {
  const std::string text = qt::fromQString(formulaBox_->text());
  reportingErrors("Workbench FormulaBar", [&] {
    host::RangeRef cell = app_->activeCell();
    if (!cell) return;
    const std::string sheet = app_->activeSheetName();
    app_->typeInto(workbook::sheetQualifier(sheet) + cell->address(), text);
  });
  formulaBox_->setModified(false);
  emit committed();
  refresh();
}

void FormulaBar::commitName() {
  const std::string reference = qt::fromQString(nameBox_->text()).c_str();
  if (!reference.empty()) {
    reportingErrors("Workbench NameBox", [&] { app_->select(reference); });
  }
  nameBox_->clearFocus();
  emit committed();
  refresh();
}

bool FormulaBar::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    formulaBox_->setModified(false);
    nameBox_->clearFocus();
    formulaBox_->clearFocus();
    refresh();
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace kxc::workbench
