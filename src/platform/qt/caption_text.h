// How captions with access keys ("&OK", "R&&D") become the texts Qt widgets show.
#pragma once

#include <QString>

namespace kxc::qt {

// For buttons, frames and menu items, which underline their access key: Qt reads "&" and "&&"
// the same way captions write them, so the text passes unchanged except that a "&" with
// nothing after it is dropped.
QString mnemonicText(const QString& caption);

// For labels, which show their caption without an access key: "&&" becomes "&" and every
// other "&" is removed, so "Sales && &Costs" shows "Sales & Costs".
QString plainCaptionText(const QString& caption);

// For window titles, which have no access key: the caption as it stands, except that an access
// key written after the text in parentheses, as East Asian and some other captions do ("数式(F)",
// "Формула (F)", "数式(&F)"), is left out with the blank before it.
QString windowTitleText(const QString& caption);

}  // namespace kxc::qt
