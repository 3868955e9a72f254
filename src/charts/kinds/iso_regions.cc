#include "charts/kinds/iso_regions.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <utility>

namespace vistaplot {
namespace {

// Places where rings turn, as numbers: of each crossing of the grid the crossing itself, the place
// on the side to its right, and the place on the side below it.
enum class Place { kCorner = 0, kRight = 1, kBelow = 2 };
constexpr int kPlaces = 3;
using PlaceId = std::int64_t;

// A directed piece of a ring, the region on its right hand in screen directions.
struct Piece {
  PlaceId from = 0;
  PlaceId to = 0;
  bool border = false;  // along the edge of the filled squares
};

// Corners and sides of a square, clockwise from the upper left; side i leads from corner i.
constexpr int kSides = 4;
constexpr std::array<GridCell, kSides> kCorners = {{{0, 0}, {0, 1}, {1, 1}, {1, 0}}};
constexpr std::array<GridCell, kSides> kBeyondSide = {{{-1, 0}, {0, 1}, {1, 0}, {0, -1}}};

class Tracer {
 public:
  explicit Tracer(const CellGrid& grid) : grid_(grid) {}

  // Looks at each square once; each level that parts its corners, or that they reach at the edge
  // of the filled squares, gets its pieces.
  std::vector<std::vector<Piece>> PiecesOf(const std::vector<double>& levels) const {
    std::vector<std::vector<Piece>> pieces(levels.size());
    for (int row = 1; row < grid_.Rows(); ++row) {
      for (int column = 1; column < grid_.Columns(); ++column) {
        if (!grid_.SquareFilled(row, column)) continue;
        AddSquare(Square(*this, row, column), levels, pieces);
      }
    }
    return pieces;
  }

  PicturePoint PointOf(PlaceId id, double level) const {
    const auto place = static_cast<Place>(id % kPlaces);
    const PlaceId crossing = id / kPlaces;
    const int row = static_cast<int>(crossing / grid_.Columns()) + 1;
    const int column = static_cast<int>(crossing % grid_.Columns()) + 1;
    const double x = column;
    const double y = row;
    if (place == Place::kCorner) return {x, y};
    const bool right = place == Place::kRight;
    const double here = grid_.At(row, column);
    const double there = right ? grid_.At(row, column + 1) : grid_.At(row + 1, column);
    const double part = std::clamp((level - here) / (there - here), 0.0, 1.0);
    return right ? PicturePoint{x + part, y} : PicturePoint{x, y + part};
  }

 private:
  struct Square {
    Square(const Tracer& tracer, int at_row, int at_column) : row(at_row), column(at_column) {
      for (std::size_t i = 0; i < kSides; ++i) {
        value[i] = tracer.grid_.At(row + kCorners[i].row, column + kCorners[i].column);
        edge[i] =
            !tracer.grid_.SquareFilled(row + kBeyondSide[i].row, column + kBeyondSide[i].column);
        at_edge = at_edge || edge[i];
      }
    }
    int row;
    int column;
    std::array<double, kSides> value{};
    std::array<bool, kSides> edge{};  // no filled square beyond that side
    bool at_edge = false;
  };

  void AddSquare(const Square& square,
                 const std::vector<double>& levels,
                 std::vector<std::vector<Piece>>& pieces) const {
    const auto [low, high] = std::minmax_element(square.value.begin(), square.value.end());
    const auto above = std::upper_bound(levels.begin(), levels.end(), *high);
    auto level = square.at_edge ? levels.begin() : std::upper_bound(levels.begin(), above, *low);
    for (; level != above; ++level) {
      AddPieces(square, *level, pieces[static_cast<std::size_t>(level - levels.begin())]);
    }
  }

  void AddPieces(const Square& square, double level, std::vector<Piece>& pieces) const {
    std::array<bool, kSides> inside{};
    int reached = 0;
    for (std::size_t i = 0; i < kSides; ++i) {
      inside[i] = square.value[i] >= level;
      reached += inside[i] ? 1 : 0;
    }
    if (square.at_edge) AddEdges(square, inside, pieces);
    if (reached == 0 || reached == kSides) return;
    const double middle =
        (square.value[0] + square.value[1] + square.value[2] + square.value[3]) / 4.0;
    const bool saddle = reached == 2 && inside[0] == inside[2];
    // From where the ring leaves the region on its way around the square to where it comes back;
    // at a saddle that is parted, to where it came in.
    const std::size_t step = saddle && middle < level ? kSides - 1 : 1;
    for (std::size_t side = 0; side < kSides; ++side) {
      if (!inside[side] || inside[(side + 1) % kSides]) continue;
      std::size_t back = (side + step) % kSides;
      while (inside[back] || !inside[(back + 1) % kSides]) back = (back + step) % kSides;
      pieces.push_back({CutOf(square, side), CutOf(square, back), false});
    }
  }

  void AddEdges(const Square& square,
                const std::array<bool, kSides>& inside,
                std::vector<Piece>& pieces) const {
    for (std::size_t side = 0; side < kSides; ++side) {
      const std::size_t next = (side + 1) % kSides;
      if (!square.edge[side] || (!inside[side] && !inside[next])) continue;
      const PlaceId from = inside[side] ? CornerOf(square, side) : CutOf(square, side);
      const PlaceId to = inside[next] ? CornerOf(square, next) : CutOf(square, side);
      pieces.push_back({from, to, true});
    }
  }

  PlaceId Id(int row, int column, Place place) const {
    return (static_cast<PlaceId>(row - 1) * grid_.Columns() + (column - 1)) * kPlaces +
           static_cast<int>(place);
  }
  PlaceId CornerOf(const Square& square, std::size_t corner) const {
    return Id(
        square.row + kCorners[corner].row, square.column + kCorners[corner].column, Place::kCorner);
  }
  // The place on a side where the value is the level.
  PlaceId CutOf(const Square& square, std::size_t side) const {
    switch (side) {
      case 0:
        return Id(square.row, square.column, Place::kRight);
      case 1:
        return Id(square.row, square.column + 1, Place::kBelow);
      case 2:
        return Id(square.row + 1, square.column, Place::kRight);
      default:
        return Id(square.row, square.column, Place::kBelow);
    }
  }

  const CellGrid& grid_;
};

// Joins the pieces of one level end to end.
class Joiner {
 public:
  Joiner(const Tracer& tracer, std::vector<Piece> pieces, double level)
      : tracer_(tracer), pieces_(std::move(pieces)), level_(level), used_(pieces_.size()) {
    std::sort(pieces_.begin(), pieces_.end(), [](const Piece& a, const Piece& b) {
      return a.from < b.from;
    });
  }

  IsoRegion Join() {
    IsoRegion region;
    for (std::size_t first = 0; first < pieces_.size(); ++first) {
      if (!used_[first]) AddRing(first, region);
    }
    return region;
  }

 private:
  // Follows the ring that begins with piece `first` until no piece goes on.
  void AddRing(std::size_t first, IsoRegion& region) {
    std::vector<std::size_t> ring;
    for (std::size_t piece = first; piece < pieces_.size(); piece = NextOf(piece)) {
      used_[piece] = true;
      ring.push_back(piece);
    }
    GridLine points;
    points.reserve(ring.size());
    for (const std::size_t piece : ring) points.push_back(StartOf(piece));
    AddLines(ring, points, region.lines);
    region.rings.push_back(std::move(points));
  }

  // The runs of pieces that follow the level; a ring without an edge is one closed line.
  void AddLines(const std::vector<std::size_t>& ring,
                const GridLine& points,
                std::vector<GridLine>& lines) const {
    const std::size_t count = ring.size();
    const auto is_border = [&](std::size_t i) { return pieces_[ring[i % count]].border; };
    std::size_t start = 0;
    while (start < count && !is_border(start)) ++start;
    if (start == count) {
      lines.push_back(points);
      lines.back().push_back(points.front());
      return;
    }
    for (std::size_t i = start; i < start + count; ++i) {
      if (is_border(i)) continue;
      if (is_border(i + count - 1)) lines.push_back({points[i % count]});
      lines.back().push_back(points[(i + 1) % count]);
    }
  }

  PicturePoint StartOf(std::size_t piece) const {
    return tracer_.PointOf(pieces_[piece].from, level_);
  }

  // An unused piece that begins where `piece` ends; pieces_.size() without one.
  std::size_t NextOf(std::size_t piece) const {
    const PlaceId from = pieces_[piece].to;
    auto next =
        std::lower_bound(pieces_.begin(), pieces_.end(), from, [](const Piece& a, PlaceId id) {
          return a.from < id;
        });
    for (; next != pieces_.end() && next->from == from; ++next) {
      const auto index = static_cast<std::size_t>(next - pieces_.begin());
      if (!used_[index]) return index;
    }
    return pieces_.size();
  }

  const Tracer& tracer_;
  std::vector<Piece> pieces_;
  double level_;
  std::vector<bool> used_;
};

}  // namespace

std::vector<IsoRegion> TraceRegions(const CellGrid& grid, const std::vector<double>& levels) {
  const Tracer tracer(grid);
  std::vector<std::vector<Piece>> pieces = tracer.PiecesOf(levels);
  std::vector<IsoRegion> regions;
  regions.reserve(levels.size());
  for (std::size_t i = 0; i < levels.size(); ++i) {
    regions.push_back(Joiner(tracer, std::move(pieces[i]), levels[i]).Join());
  }
  return regions;
}

std::vector<GridLine> TraceFilledSquares(const CellGrid& grid) {
  return std::move(TraceRegions(grid, {std::numeric_limits<double>::lowest()}).front().rings);
}

}  // namespace vistaplot
