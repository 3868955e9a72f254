// Fills many small four-cornered facets, those behind first, into pixels: for windows and images,
// where painting them one by one as shapes would take longer than a turn of the surface may.
#pragma once

#include <cstdint>
#include <vector>

#include "charts/view/chart_picture.h"

namespace vistaplot {

/// Pixels row by row from the upper left: 0xAARRGGBB, colours multiplied by alpha.
struct PixelBlock {
  int left = 0;  ///< place of the block's first pixel, in device pixels
  int top = 0;
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> pixels;
};

/// The facets in device pixels of `ratio` to the unit, clipped to `clip` (units). A pixel is the
/// mean of four samples, so that outlines are smooth and what nothing covers stays clear. Each
/// facet is drawn as its two triangles, then its outline where they have one; later facets
/// hide earlier ones.
PixelBlock RasterOf(const FillFacets& facets, const PictureBox& clip, double ratio);

}  // namespace vistaplot
