#include "platform/qt/caption_text.h"

namespace kxc::qt {

QString mnemonicText(const QString& caption) {
  QString out;
  out.reserve(caption.size());
  for (qsizetype i = 0; i < caption.size(); ++i) {
    if (caption[i] != u'&') {
      out += caption[i];
    } else if (i + 1 < caption.size()) {
      out += u'&';
      out += caption[++i];
    }
  }
  return out;
}

QString plainCaptionText(const QString& caption) {
  QString out;
  out.reserve(caption.size());
  for (qsizetype i = 0; i < caption.size(); ++i) {
    if (caption[i] != u'&') {
      out += caption[i];
    } else if (i + 1 < caption.size() && caption[i + 1] == u'&') {
      out += u'&';
      ++i;
    }
  }
  return out;
}

QString windowTitleText(const QString& caption) {
  // "(X)" or "(&X)" at the very end, X one ASCII letter or digit.
  qsizetype open = caption.size() - 3;
  if (open >= 1 && caption[open] == u'&') --open;
  if (open < 1 || !caption.endsWith(u')') || caption[open] != u'(') return caption;
  const QChar key = caption[caption.size() - 2];
  if (key.unicode() > 0x7F || !key.isLetterOrNumber()) return caption;
  if (caption[open + 1] == u'&' && open + 3 != caption.size() - 1) return caption;
  return caption.left(open).trimmed();
}

}  // namespace kxc::qt
