#include "ui/controls/qt_text.h"

namespace vistaplot {

QString SpokenText(std::string_view caption) {
  QString spoken;
  const QString text = QtText(caption).simplified();
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i] == u'&' && i + 1 < text.size()) ++i;
    spoken += text[i];
  }
  if (spoken.endsWith(u':')) spoken.chop(1);
  return spoken;
}

}  // namespace vistaplot
