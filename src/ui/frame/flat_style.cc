#include "ui/frame/flat_style.h"

#include <QApplication>
#include <QStyleOptionButton>
#include <QStyleOptionSlider>

#include "ui/controls/widgets.h"
#include "ui/frame/frame_tools.h"

namespace vistaplot {

namespace {

constexpr QLatin1String kToolkitStyle("fusion");

/// The drawing that stands for a standard icon; null where the toolkit's own will do.
const char* DrawingOf(QStyle::StandardPixmap icon) {
  switch (icon) {
    case QStyle::SP_ArrowBack:
    case QStyle::SP_ArrowLeft:
      return "back";
    case QStyle::SP_ArrowForward:
    case QStyle::SP_ArrowRight:
      return "forward";
    case QStyle::SP_FileDialogToParent:
      return "folder_above";
    case QStyle::SP_FileDialogNewFolder:
      return "new_folder";
    case QStyle::SP_FileDialogListView:
      return "list_view";
    case QStyle::SP_FileDialogDetailedView:
      return "detail_view";
    case QStyle::SP_DirIcon:
    case QStyle::SP_DirOpenIcon:
    case QStyle::SP_DirClosedIcon:
      return "folder";
    case QStyle::SP_DirHomeIcon:
      return "home";
    case QStyle::SP_FileIcon:
      return "file";
    case QStyle::SP_DriveHDIcon:
      return "drive";
    case QStyle::SP_ComputerIcon:
      return "computer";
    case QStyle::SP_MessageBoxQuestion:
      return "question";
    case QStyle::SP_MessageBoxWarning:
      return "warning";
    case QStyle::SP_TitleBarMinButton:
      return "window_least";
    case QStyle::SP_TitleBarNormalButton:
      return "window_restore";
    case QStyle::SP_TitleBarMaxButton:
      return "window_most";
    case QStyle::SP_TitleBarCloseButton:
      return "window_close";
    default:
      return nullptr;
  }
}

/// The toolkit makes an outline by darkening the ground, which on a dark one leaves nothing to see:
/// there, a ground most of the way to the text gives an outline with more than 3:1.
QPalette WithOutlines(QPalette palette) {
  const QColor ground = palette.color(QPalette::Window);
  const QColor text = palette.color(QPalette::WindowText);
  if (ground.lightness() >= text.lightness()) return palette;
  palette.setColor(QPalette::Window,
                   QColor((ground.red() + 4 * text.red()) / 5,
                          (ground.green() + 4 * text.green()) / 5,
                          (ground.blue() + 4 * text.blue()) / 5));
  return palette;
}

}  // namespace

FlatStyle::FlatStyle() : QProxyStyle(QString(kToolkitStyle)) {}

void FlatStyle::drawComplexControl(ComplexControl control,
                                   const QStyleOptionComplex* option,
                                   QPainter* painter,
                                   const QWidget* widget) const {
  const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
  if (control == CC_ScrollBar && bar != nullptr) {
    PaintScrollBar(*painter, *bar, *this, widget);
  } else {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
  }
}

void FlatStyle::drawPrimitive(PrimitiveElement element,
                              const QStyleOption* option,
                              QPainter* painter,
                              const QWidget* widget) const {
  const bool has_outline = element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton;
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
  if (has_outline && button != nullptr) {
    QStyleOptionButton seen = *button;
    seen.palette = WithOutlines(seen.palette);
    QProxyStyle::drawPrimitive(element, &seen, painter, widget);
  } else {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
}

int FlatStyle::styleHint(StyleHint hint,
                         const QStyleOption* option,
                         const QWidget* widget,
                         QStyleHintReturn* data) const {
  if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
  return QProxyStyle::styleHint(hint, option, widget, data);
}

QIcon FlatStyle::standardIcon(StandardPixmap icon,
                              const QStyleOption* option,
                              const QWidget* widget) const {
  const char* drawing = DrawingOf(icon);
  return drawing == nullptr ? QProxyStyle::standardIcon(icon, option, widget)
                            : ToolIcon(QString::fromLatin1(drawing));
}

void UseFlatStyle() {
  if (QApplication::style()->name() == kToolkitStyle) QApplication::setStyle(new FlatStyle);
}

}  // namespace vistaplot
