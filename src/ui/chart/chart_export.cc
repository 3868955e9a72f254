#include "ui/chart/chart_export.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <filesystem>

#include "base/files.h"
#include "charts/layout/layout.h"
#include "ui/chart/chart_canvas.h"

namespace vistaplot {
namespace {

constexpr int kPixelsPerInch = 96;
constexpr int kPageDotsPerInch = 1200;
constexpr int kPngQuality =
    80;  // packs fast: a third less time than the default, a sixth more bytes
constexpr double kPageDetail = 4.0;  // curves on a page keep what four columns a pixel can show

struct PictureJob {
  const ChartView& view;
  int width;
  int height;
};

void PaintJob(QPainter& painter, const PictureJob& job, double detail) {
  const PictureTexts texts;
  const PictureSize size{static_cast<double>(job.width), static_cast<double>(job.height)};
  const ChartPicture picture =
      LayoutChart(job.view, size, texts, {.dark = false, .detail = detail});
  PaintPicture(painter, picture, texts);
}

bool WritePng(const PictureJob& job, QBuffer& target) {
  QImage image(job.width, job.height, QImage::Format_RGB32);
  if (image.isNull()) return false;
  QPainter painter(&image);
  PaintJob(painter, job, 1.0);
  painter.end();
  return image.save(&target, "PNG", kPngQuality);
}

bool WriteSvg(const PictureJob& job, QBuffer& target) {
  QSvgGenerator page;
  page.setOutputDevice(&target);
  page.setResolution(kPixelsPerInch);
  page.setSize(QSize(job.width, job.height));
  page.setViewBox(QRect(0, 0, job.width, job.height));
  // Written as it stands: "Point & Figure" would make a file that no reader opens.
  page.setTitle(QString::fromStdString(job.view.TitleText).toHtmlEscaped());
  QPainter painter;
  if (!painter.begin(&page)) return false;
  PaintJob(painter, job, kPageDetail);
  return painter.end();
}

bool WritePdf(const PictureJob& job, QBuffer& target) {
  QPdfWriter page(&target);
  const double inches = 1.0 / kPixelsPerInch;
  page.setResolution(kPageDotsPerInch);
  page.setPageSize(
      QPageSize(QSizeF(job.width * inches, job.height * inches), QPageSize::Inch, QString()));
  page.setPageMargins(QMarginsF());
  page.setTitle(QString::fromStdString(job.view.TitleText));
  QPainter painter;
  if (!painter.begin(&page)) return false;
  painter.scale(kPageDotsPerInch * inches, kPageDotsPerInch * inches);
  PaintJob(painter, job, kPageDetail);
  return painter.end();
}

using Writer = bool (*)(const PictureJob&, QBuffer&);

Writer WriterFor(const std::string& extension) {
  const QString known = QString::fromStdString(extension).toLower();
  if (known == QLatin1String(".png")) return WritePng;
  if (known == QLatin1String(".svg")) return WriteSvg;
  if (known == QLatin1String(".pdf")) return WritePdf;
  return nullptr;
}

RuntimeError Refusal(std::string why, const std::string& path) {
  return {.number = kErrorPathFileAccess, .description = std::move(why), .subject = path};
}

bool InRange(int side) {
  return side >= kSmallestPicture && side <= kLargestPicture;
}

std::string SizeRefusal(int width, int height) {
  return "A picture of " + std::to_string(width) + " by " + std::to_string(height) +
         " pixels is not possible: its sides can be " + std::to_string(kSmallestPicture) + " to " +
         std::to_string(kLargestPicture);
}

}  // namespace

Status ExportChart(const ChartView& view, const std::string& path, int width, int height) {
  const std::filesystem::path target(path);
  const Writer write = WriterFor(target.extension().string());
  if (write == nullptr) {
    return Refusal("The file name must end in .png, .svg or .pdf", path);
  }
  if (!InRange(width) || !InRange(height)) {
    return Refusal(SizeRefusal(width, height), path);
  }
  const std::filesystem::path folder = target.parent_path();
  if (!folder.empty() && !FolderExists(folder.string())) {
    return MakeError(kErrorPathNotFound, path);
  }
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  if (!write({view, width, height}, buffer)) {
    return Refusal("Not enough memory for this picture", path);
  }
  const QByteArray& bytes = buffer.data();
  return WriteFileAtomically(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

}  // namespace vistaplot
