// LanguageDialog: picking the add-in's language from the catalogue's list.
#pragma once

#include <QDialog>
#include <cstdint>
#include <string>
#include <vector>

class QListWidget;

namespace kxc::workbench {

// The entries of the language list worth offering: each language number with its name, leaving
// out languages the catalogue has no name for ("" or "not found").
struct LanguageChoice {
  int16_t number;
  std::string name;
};
std::vector<LanguageChoice> languageChoices(const std::vector<std::string>& names);

// Lists the choices with `current` selected; captions and prompt come from the catalogue in
// the current language. chosen() is the selected language after accept(), else -1.
class LanguageDialog : public QDialog {
  Q_OBJECT

 public:
  LanguageDialog(const std::vector<LanguageChoice>& choices, int16_t current,
                 QWidget* parent = nullptr);
  int16_t chosen() const;
  QListWidget& list() const { return *list_; }

 private:
  QListWidget* list_;
  std::vector<LanguageChoice> choices_;
};

}  // namespace kxc::workbench
