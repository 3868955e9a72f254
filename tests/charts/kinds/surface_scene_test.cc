#include "charts/kinds/surface_scene.h"

#include <gtest/gtest.h>

#include "charts/kinds/facet_raster.h"
#include "support/cell_views.h"

namespace vistaplot {
namespace {

constexpr PictureBox kRoom{0, 0, 400, 300};

struct World {
  explicit World(std::string_view lines, SurfaceTurn turn = {})
      : grid((FillCellView(lines, view), view)),
        scene(grid, BandsOf(grid.Lowest(), grid.Highest()), turn, kRoom) {}
  ChartView view;
  CellGrid grid;
  SurfaceScene scene;
};

TEST(SurfaceScene, TheBoxStaysInItsRoomFromEverySide) {
  for (double azimuth = 0.0; azimuth < 360.0; azimuth += 15.0) {
    for (const double elevation : {5.0, 30.0, 90.0}) {
      const World world("1 2\n3 4", {azimuth, elevation});
      for (const double x : {-1.0, 1.0}) {
        for (const double y : {-1.0, 1.0}) {
          for (const double z : {0.0, 1.0}) {
            const PicturePoint at = world.scene.Project({x, y, z});
            EXPECT_GE(at.x, kRoom.left - 1e-6);
            EXPECT_LE(at.x, kRoom.right + 1e-6);
            EXPECT_GE(at.y, kRoom.top - 1e-6);
            EXPECT_LE(at.y, kRoom.bottom + 1e-6);
          }
        }
      }
    }
  }
}

TEST(SurfaceScene, AtFirstTheSmallestParametersAreNearest) {
  const World world("1 2\n3 4");
  EXPECT_EQ(world.scene.NearestCorner().x, -1.0);
  EXPECT_EQ(world.scene.NearestCorner().y, -1.0);
  const PicturePoint near = world.scene.Project({-1, -1, 0});
  EXPECT_GT(near.y, world.scene.Project({1, 1, 0}).y) << "what is near stands low";
  EXPECT_LT(world.scene.Project({-1, -1, 1}).y, near.y) << "what is high stands high";
  EXPECT_GT(world.scene.Project({1, -1, 0}).x, near.x) << "X grows to the right";
}

TEST(SurfaceScene, FacesComeFromBehindAndEmptyCornersHaveNone) {
  for (const double azimuth : {20.0, 110.0, 225.0, 300.0}) {
    const World world("1 1 1 1\n1 1 1 1\n1 1 1 -", {azimuth, 30.0});
    const FillFacets drawn = world.scene.Facets(1, false);
    EXPECT_EQ(drawn.facets.size(), 5U);
    EXPECT_GT(drawn.facets.back().corners[0].y, drawn.facets.front().corners[0].y);
  }
}

TEST(SurfaceScene, StridesKeepTheLastRowAndColumn) {
  const World world("1 1 1 1\n1 1 1 1\n1 1 1 1\n1 1 1 1");
  const FillFacets drawn = world.scene.Facets(2, false);
  EXPECT_EQ(drawn.facets.size(), 4U);
  const PicturePoint far = world.scene.Project(world.scene.PointAt(1, 4, 1));
  const auto touches = [&](const PictureFacet& facet) {
    return std::any_of(facet.corners.begin(), facet.corners.end(), [&](const PicturePoint& p) {
      return std::abs(p.x - far.x) < 1e-6 && std::abs(p.y - far.y) < 1e-6;
    });
  };
  EXPECT_TRUE(std::any_of(drawn.facets.begin(), drawn.facets.end(), touches));
}

TEST(SurfaceScene, TheLeftSideOfARidgeIsLit) {
  const World world("0 5 0\n0 5 0", {270.0, 30.0});
  const FillFacets drawn = world.scene.Facets(1, false);
  ASSERT_EQ(drawn.facets.size(), 2U);
  const bool first_is_left = drawn.facets[0].corners[0].x < drawn.facets[1].corners[0].x;
  const PictureFacet& left = drawn.facets[first_is_left ? 0 : 1];
  const PictureFacet& right = drawn.facets[first_is_left ? 1 : 0];
  EXPECT_GT(left.color.green, right.color.green);
}

TEST(SurfaceTurn, GoesRoundAndStaysAboveTheBase) {
  EXPECT_EQ(TurnedBy({350.0, 30.0}, 20.0, 0.0), (SurfaceTurn{10.0, 30.0}));
  EXPECT_EQ(TurnedBy({10.0, 30.0}, -20.0, 500.0), (SurfaceTurn{350.0, 90.0}));
  EXPECT_EQ(TurnedBy({10.0, 30.0}, 0.0, -500.0), (SurfaceTurn{10.0, 5.0}));
}

TEST(FacetRaster, LaterFacetsHideEarlierOnesAndEdgesAreSmooth) {
  FillFacets facets;
  facets.facets = {{{{{0, 0}, {10, 0}, {10, 10}, {0, 10}}}, {200, 0, 0, 255}},
                   {{{{4, 0}, {20, 0}, {20, 10}, {4, 10}}}, {0, 0, 200, 255}}};
  const PixelBlock block = RasterOf(facets, {0, 0, 12.5, 10}, 1.0);
  const auto pixel = [&](int x, int y) {
    return block.pixels[static_cast<std::size_t>((y - block.top) * block.width + x - block.left)];
  };
  EXPECT_EQ(pixel(3, 5), 0xFFC80000U);
  EXPECT_EQ(pixel(4, 5), 0xFF0000C8U);
  facets.facets = {{{{{0, 0}, {5.5, 0}, {5.5, 5}, {0, 5}}}, {200, 100, 0, 255}}};
  const PixelBlock half = RasterOf(facets, {0, 0, 100, 100}, 1.0);
  EXPECT_EQ(half.pixels[5], 0x7F643200U) << "half covered, colours multiplied by alpha";
  EXPECT_EQ(RasterOf(facets, {50, 50, 60, 60}, 1.0).pixels.size(), 0U);
}

}  // namespace
}  // namespace vistaplot
