#include "app/digit_shapes.h"

#include <algorithm>

namespace orvane {
namespace {

/// Draws in a box, with the height of the upper half chosen for the digit.
class Pen {
 public:
  explicit Pen(const QRectF& box)
      : left_(box.left()), right_(box.right()), top_(box.top()), bottom_(box.bottom()) {
    middle_ = (top_ + bottom_) / 2;
    center_ = (left_ + right_) / 2;
    rx_ = (right_ - left_) / 2;
  }

  /// A closed loop with straight sides between two heights.
  void loop(double top, double bottom) {
    const double ry = std::min(rx_, (bottom - top) / 2);
    path_.moveTo(left_, top + ry);
    path_.arcTo(QRectF(left_, top, 2 * rx_, 2 * ry), 180, -180);
    path_.lineTo(right_, bottom - ry);
    path_.arcTo(QRectF(left_, bottom - 2 * ry, 2 * rx_, 2 * ry), 0, -180);
    path_.closeSubpath();
  }

  void zero() { loop(top_, bottom_); }

  void one() {
    path_.moveTo(left_, top_ + 1.1 * (right_ - left_));
    path_.lineTo(right_, top_);
    path_.lineTo(right_, bottom_);
  }

  void two() {
    const double ry = std::min(rx_, (middle_ - top_));
    path_.moveTo(left_, top_ + ry);
    path_.arcTo(QRectF(left_, top_, 2 * rx_, 2 * ry), 180, -215);
    path_.lineTo(left_, bottom_);
    path_.lineTo(right_, bottom_);
  }

  void three() {
    const double ry = (middle_ - top_) / 2;
    path_.arcMoveTo(QRectF(left_, top_, 2 * rx_, 2 * ry), 160);
    path_.arcTo(QRectF(left_, top_, 2 * rx_, 2 * ry), 160, -250);
    path_.arcTo(QRectF(left_, middle_, 2 * rx_, 2 * ry), 90, -250);
  }

  void four() {
    const double bar = top_ + (bottom_ - top_) * 0.68;
    const double stem = left_ + 2 * rx_ * 0.75;
    path_.moveTo(right_, bar);
    path_.lineTo(left_, bar);
    path_.lineTo(stem, top_);
    path_.lineTo(stem, bottom_);
  }

  void five() {
    const double shoulder = top_ + (bottom_ - top_) * 0.42;
    const double ry = (bottom_ - shoulder) / 2;
    path_.moveTo(right_, top_);
    path_.lineTo(left_, top_);
    path_.lineTo(left_, shoulder);
    path_.lineTo(center_, shoulder);
    path_.arcTo(QRectF(left_, shoulder, 2 * rx_, 2 * ry), 90, -250);
  }

  void six() {
    const double waist = top_ + (bottom_ - top_) * 0.42;
    loop(waist, bottom_);
    path_.moveTo(left_, (waist + bottom_) / 2);
    path_.lineTo(left_, top_ + rx_);
    path_.arcTo(QRectF(left_, top_, 2 * rx_, 2 * rx_), 180, -150);
  }

  void seven() {
    path_.moveTo(left_, top_);
    path_.lineTo(right_, top_);
    path_.lineTo(left_ + 2 * rx_ * 0.3, bottom_);
  }

  void eight() {
    loop(top_, middle_);
    loop(middle_, bottom_);
  }

  void nine() {
    const double waist = bottom_ - (bottom_ - top_) * 0.42;
    loop(top_, waist);
    path_.moveTo(right_, (waist + top_) / 2);
    path_.lineTo(right_, bottom_ - rx_);
    path_.arcTo(QRectF(left_, bottom_ - 2 * rx_, 2 * rx_, 2 * rx_), 0, -150);
  }

  [[nodiscard]] const QPainterPath& path() const { return path_; }

 private:
  double left_, right_, top_, bottom_;
  double middle_ = 0, center_ = 0, rx_ = 0;
  QPainterPath path_;
};

}  // namespace

QPainterPath digitShape(int digit, const QRectF& box) {
  using Draw = void (Pen::*)();
  static constexpr Draw draw[] = {&Pen::zero, &Pen::one, &Pen::two,   &Pen::three, &Pen::four,
                                  &Pen::five, &Pen::six, &Pen::seven, &Pen::eight, &Pen::nine};
  Pen pen(box);
  (pen.*draw[std::clamp(digit, 0, 9)])();
  return pen.path();
}

}  // namespace orvane
