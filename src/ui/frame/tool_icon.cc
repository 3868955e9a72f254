#include "ui/frame/tool_icon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

// Resources of a static library are registered on demand; the macro must stand outside namespaces.
static void RegisterIcons() {
  Q_INIT_RESOURCE(icons);
}

namespace vistaplot {

namespace {

/// The colour in the drawings that stands for the palette's text colour.
constexpr const char* kInk = "#101010";

QByteArray ReadResource(const QString& name) {
  RegisterIcons();
  QFile file(QStringLiteral(":/icons/") + name);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class PaletteIconEngine : public QIconEngine {
 public:
  explicit PaletteIconEngine(QByteArray drawing) : drawing_(std::move(drawing)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    const QColor ink = QGuiApplication::palette().color(group, QPalette::ButtonText);
    QByteArray drawing = drawing_;
    drawing.replace(kInk, ink.name().toLatin1());
    QSvgRenderer renderer(drawing);
    painter->save();
    if (mode == QIcon::Disabled) painter->setOpacity(painter->opacity() * kFaint);
    renderer.render(painter, rect);
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }

  QIconEngine* clone() const override { return new PaletteIconEngine(*this); }

 private:
  static constexpr double kFaint = 0.5;

  QByteArray drawing_;
};

QIcon IconFrom(const QString& name) {
  QByteArray drawing = ReadResource(name);
  return drawing.isEmpty() ? QIcon() : QIcon(new PaletteIconEngine(std::move(drawing)));
}

}  // namespace

QIcon ToolIcon(const QString& name) {
  return IconFrom(name);
}

QIcon ProgramIcon() {
  return IconFrom(QStringLiteral("vistaplot"));
}

}  // namespace vistaplot
