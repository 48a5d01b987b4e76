#include "language_dialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "language/language.h"
#include "platform/error_report.h"
#include "platform/qt/caption_text.h"
#include "platform/qt/qt_text.h"
#include "state/tm_globals.h"
#include "translated_text.h"

namespace kxc::workbench {

std::vector<LanguageChoice> languageChoices(const std::vector<std::string>& names) {
  std::vector<LanguageChoice> choices;
  for (size_t i = 0; i < names.size(); ++i) {
    if (names[i].empty() || names[i] == "not found") continue;
    choices.push_back({static_cast<int16_t>(i), names[i]});
  }
  return choices;
}

LanguageDialog::LanguageDialog(const std::vector<LanguageChoice>& choices, int16_t current,
                               QWidget* parent)
    : QDialog(parent), list_(new QListWidget(this)), choices_(choices) {
  setObjectName("languageDialog");
  setWindowTitle(qt::windowTitleText(qt::plainCaptionText(textOf("@WB_CHOOSE_LANGUAGE"))));
  auto* prompt = new QLabel(textOf("@WB_LANGUAGE_PROMPT"), this);
  prompt->setWordWrap(true);
  for (const LanguageChoice& choice : choices_) {
    list_->addItem(qt::toQString(choice.name));
    if (choice.number == current) list_->setCurrentRow(list_->count() - 1);
  }
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  buttons->button(QDialogButtonBox::Ok)->setText(qt::mnemonicText(textOf("@OK&")));
  buttons->button(QDialogButtonBox::Cancel)->setText(qt::mnemonicText(textOf("@CANCEL&")));
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(list_, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(prompt);
  layout->addWidget(list_, 1);
  layout->addWidget(buttons);
  resize(340, 420);
}

int16_t LanguageDialog::chosen() const {
  if (result() != QDialog::Accepted) return -1;
  const int row = list_->currentRow();
  if (row < 0 || row >= static_cast<int>(choices_.size())) return -1;
  return choices_[static_cast<size_t>(row)].number;
}

}  // namespace kxc::workbench
