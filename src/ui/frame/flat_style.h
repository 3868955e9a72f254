// The toolkit's own style with the parts flat that it shades: one look for all scroll bars, icons
// of dialogs and child windows in the palette's colours, so that they are seen on dark desktops
// too, as are the outlines of check boxes and options.
#pragma once

#include <QProxyStyle>

namespace vistaplot {

class FlatStyle : public QProxyStyle {
  Q_OBJECT

 public:
  FlatStyle();

  void drawComplexControl(ComplexControl control,
                          const QStyleOptionComplex* option,
                          QPainter* painter,
                          const QWidget* widget) const override;
  void drawPrimitive(PrimitiveElement element,
                     const QStyleOption* option,
                     QPainter* painter,
                     const QWidget* widget) const override;
  int styleHint(StyleHint hint,
                const QStyleOption* option,
                const QWidget* widget,
                QStyleHintReturn* data) const override;
  QIcon standardIcon(StandardPixmap icon,
                     const QStyleOption* option,
                     const QWidget* widget) const override;
};

/// Makes it the program's style where the desktop has none of its own; a desktop's style stays.
void UseFlatStyle();

}  // namespace vistaplot
