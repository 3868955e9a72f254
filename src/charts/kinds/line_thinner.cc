#include "charts/kinds/line_thinner.h"

#include <utility>

namespace vistaplot {

void LineThinner::Add(PicturePoint point) {
  const int column = static_cast<int>(point.x * detail_);
  if (count_ == 0 || column != column_) {
    FlushColumn();
    column_ = column;
    first_ = low_ = high_ = {point, 0};
    count_ = 1;
    return;
  }
  last_ = {point, count_++};
  if (point.y > low_.point.y) low_ = last_;
  if (point.y < high_.point.y) high_ = last_;
}

void LineThinner::Break() {
  FlushColumn();
  if (piece_.size() == 1) alone_.push_back(piece_.front());
  if (piece_.size() > 1) pieces_.push_back(std::move(piece_));
  piece_.clear();
}

void LineThinner::FlushColumn() {
  if (count_ == 0) return;
  piece_.push_back(first_.point);
  if (count_ < 3) {
    if (count_ == 2) piece_.push_back(last_.point);
    count_ = 0;
    return;
  }
  Candidate early = low_;
  Candidate late = high_;
  if (late.order < early.order) std::swap(early, late);
  int order = first_.order;
  for (const Candidate& candidate : {early, late, last_}) {
    if (candidate.order <= order) continue;
    order = candidate.order;
    piece_.push_back(candidate.point);
  }
  count_ = 0;
}

}  // namespace vistaplot
