#include "charts/kinds/facet_raster.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

#include "charts/view/palette.h"

namespace vistaplot {
namespace {

constexpr int kSamples = 2;  // of a pixel, across and down

std::uint32_t Opaque(PictureColor color) {
  return 0xFF000000U | (static_cast<std::uint32_t>(color.red) << 16U) |
         (static_cast<std::uint32_t>(color.green) << 8U) | color.blue;
}

// The samples that the facets cover, with their colour; 0 where none does.
class SampleGrid {
 public:
  SampleGrid(int width, int height)
      : width_(width),
        height_(height),
        samples_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}

  // Samples whose middle lies inside; those on a shared edge belong to one of its triangles.
  void FillTriangle(std::array<PicturePoint, 3> p, std::uint32_t color) {
    if (p[1].y < p[0].y) std::swap(p[0], p[1]);
    if (p[2].y < p[1].y) std::swap(p[1], p[2]);
    if (p[1].y < p[0].y) std::swap(p[0], p[1]);
    FillRows(p[0], p[2], p[0], p[1], color);
    FillRows(p[0], p[2], p[1], p[2], color);
  }

  // A line one sample wide.
  void DrawLine(PicturePoint from, PicturePoint to, std::uint32_t color) {
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const int steps = static_cast<int>(std::ceil(std::max(std::abs(dx), std::abs(dy))));
    for (int i = 0; i <= steps; ++i) {
      const double part = steps == 0 ? 0.0 : static_cast<double>(i) / steps;
      Put(static_cast<int>(std::floor(from.x + part * dx)),
          static_cast<int>(std::floor(from.y + part * dy)),
          color);
    }
  }

  // The mean of the samples of each pixel, colour by colour: two of the four in each half of a sum.
  std::vector<std::uint32_t> Pixels() const {
    constexpr std::uint32_t kTwo = 0x00FF00FFU;
    const auto width = static_cast<std::size_t>(width_ / kSamples);
    const auto height = static_cast<std::size_t>(height_ / kSamples);
    std::vector<std::uint32_t> pixels(width * height);
    for (std::size_t y = 0; y < height; ++y) {
      const std::uint32_t* upper = samples_.data() + kSamples * y * kSamples * width;
      const std::uint32_t* lower = upper + kSamples * width;
      std::uint32_t* out = pixels.data() + y * width;
      for (std::size_t x = 0; x < width; ++x) {
        const std::uint32_t a = upper[2 * x];
        const std::uint32_t b = upper[2 * x + 1];
        const std::uint32_t c = lower[2 * x];
        const std::uint32_t d = lower[2 * x + 1];
        const std::uint32_t even = (a & kTwo) + (b & kTwo) + (c & kTwo) + (d & kTwo);
        const std::uint32_t odd =
            ((a >> 8U) & kTwo) + ((b >> 8U) & kTwo) + ((c >> 8U) & kTwo) + ((d >> 8U) & kTwo);
        out[x] = ((even >> 2U) & kTwo) | (((odd >> 2U) & kTwo) << 8U);
      }
    }
    return pixels;
  }

 private:
  static double Slope(const PicturePoint& from, const PicturePoint& to) {
    return to.y > from.y ? (to.x - from.x) / (to.y - from.y) : 0.0;
  }

  // The first sample whose middle lies at or behind `place`, within 0 to `most`.
  static int First(double place, int most) {
    if (!(place > 0.0)) return 0;
    return place < most ? static_cast<int>(place + 0.5) : most;
  }

  // The rows from `top` to `bottom` between that side and the side from `a` to `b`, which pass all
  // of them.
  void FillRows(const PicturePoint& a,
                const PicturePoint& b,
                const PicturePoint& top,
                const PicturePoint& bottom,
                std::uint32_t color) {
    const int first = First(top.y, height_);
    const int last = First(bottom.y, height_);
    const double long_step = Slope(a, b);
    const double short_step = Slope(top, bottom);
    double x = a.x + (first + 0.5 - a.y) * long_step;
    double other = top.x + (first + 0.5 - top.y) * short_step;
    for (int row = first; row < last; ++row, x += long_step, other += short_step) {
      const int from = First(std::min(x, other), width_);
      const int to = First(std::max(x, other), width_);
      std::uint32_t* samples = samples_.data() + At(0, row);
      for (int column = from; column < to; ++column) samples[column] = color;
    }
  }

  void Put(int column, int row, std::uint32_t color) {
    if (column < 0 || row < 0 || column >= width_ || row >= height_) return;
    samples_[At(column, row)] = color;
  }
  std::size_t At(int column, int row) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(width_) +
           static_cast<std::size_t>(column);
  }

  int width_;
  int height_;
  std::vector<std::uint32_t> samples_;
};

PictureBox BoundsOf(const FillFacets& facets, const PictureBox& clip) {
  PictureBox bounds{clip.right, clip.bottom, clip.left, clip.top};
  for (const PictureFacet& facet : facets.facets) {
    for (const PicturePoint& p : facet.corners) {
      bounds.left = std::min(bounds.left, p.x);
      bounds.right = std::max(bounds.right, p.x);
      bounds.top = std::min(bounds.top, p.y);
      bounds.bottom = std::max(bounds.bottom, p.y);
    }
  }
  return {std::max(bounds.left, clip.left),
          std::max(bounds.top, clip.top),
          std::min(bounds.right, clip.right),
          std::min(bounds.bottom, clip.bottom)};
}

}  // namespace

PixelBlock RasterOf(const FillFacets& facets, const PictureBox& clip, double ratio) {
  const PictureBox bounds = BoundsOf(facets, clip);
  PixelBlock block;
  if (bounds.right <= bounds.left || bounds.bottom <= bounds.top) return block;
  block.left = static_cast<int>(std::floor(bounds.left * ratio));
  block.top = static_cast<int>(std::floor(bounds.top * ratio));
  block.width = static_cast<int>(std::ceil(bounds.right * ratio)) + 1 - block.left;
  block.height = static_cast<int>(std::ceil(bounds.bottom * ratio)) + 1 - block.top;

  SampleGrid grid(block.width * kSamples, block.height * kSamples);
  const auto sample = [&](const PicturePoint& p) -> PicturePoint {
    return {(p.x * ratio - block.left) * kSamples, (p.y * ratio - block.top) * kSamples};
  };
  const bool outlined = facets.outline < 1.0;
  for (const PictureFacet& facet : facets.facets) {
    std::array<PicturePoint, 4> p;
    std::transform(facet.corners.begin(), facet.corners.end(), p.begin(), sample);
    const std::uint32_t color = Opaque(facet.color);
    grid.FillTriangle({p[0], p[1], p[2]}, color);
    grid.FillTriangle({p[0], p[2], p[3]}, color);
    if (!outlined) continue;
    const std::uint32_t edge = Opaque(Shaded(facet.color, facets.outline));
    grid.DrawLine(p[0], p[1], edge);
    grid.DrawLine(p[0], p[3], edge);
  }
  block.pixels = grid.Pixels();
  return block;
}

}  // namespace vistaplot
