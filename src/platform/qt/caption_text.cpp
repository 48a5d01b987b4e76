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

}  // namespace kxc::qt
