#include "ui/controls/access_keys.h"

#include <QKeySequence>
#include <QString>
#include <algorithm>

namespace vistaplot {

namespace {

bool BeginsWord(const QString& text, qsizetype at) {
  return at == 0 || !text[at - 1].isLetter();
}

/// Where the free letter of `text` stands; 0 when there is none.
qsizetype PlaceOfKey(const QString& text, const QString& taken) {
  qsizetype any = -1;
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (!text[i].isLetter() || taken.contains(text[i], Qt::CaseInsensitive)) continue;
    if (BeginsWord(text, i)) return i;
    if (any < 0) any = i;
  }
  return std::max<qsizetype>(any, 0);
}

QString KeyOf(const QString& text) {
  return QKeySequence::mnemonic(text).toString().right(1);
}

}  // namespace

void GiveAccessKeys(const QList<QAction*>& actions) {
  QString taken;
  for (const QAction* action : actions) taken += KeyOf(action->text());
  for (QAction* action : actions) {
    QString text = action->text();
    if (text.isEmpty() || !KeyOf(text).isEmpty()) continue;
    text.insert(PlaceOfKey(text, taken), u'&');
    taken += KeyOf(text);
    action->setText(text);
  }
}

}  // namespace vistaplot
