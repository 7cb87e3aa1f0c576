// Curves of DXF as chords: arcs of circles and ellipses under any map.
#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <limits>
#include <vector>

#include "base/SansCopie.h"
#include "closed/pathwerk/lecture/dxf/Espace.h"

namespace pathwerk::lecture::dxf {

// What the drawers of one drawing may take together. They take it from several threads.
class Caisse : base::SansCopie {
 public:
  explicit Caisse(std::size_t limite) : reste_(limite) {}
  bool Prend(std::size_t n) {
    std::size_t reste = reste_;
    while (n <= reste) {
      if (reste_.compare_exchange_weak(reste, reste - n)) return true;
    }
    return false;
  }
  void Rend(std::size_t n) { reste_ += n; }

 private:
  std::atomic<std::size_t> reste_;
};

// Counts what the chords of a drawing take, so that a few bytes can't ask for gigabytes.
class Budget : base::SansCopie {
 public:
  explicit Budget(std::size_t limite) : reste_(limite) {}
  // One drawer's share of what all have, taken in pieces, so that they seldom meet. What is left goes back.
  explicit Budget(Caisse& caisse) : caisse_(&caisse) {}
  ~Budget() {
    if (caisse_ != nullptr) caisse_->Rend(reste_);
  }
  // Takes the room of `n` bytes; false when there is none left.
  bool Prend(std::size_t n) {
    if (n > reste_ && !Complete(n - reste_)) {
      epuise_ = true;
      return false;
    }
    reste_ -= n;
    return true;
  }
  bool Points(std::size_t n) {
    constexpr std::size_t Max = std::numeric_limits<std::size_t>::max();
    return Prend(n <= Max / sizeof(Vec2) ? n * sizeof(Vec2) : Max);
  }
  [[nodiscard]] bool Epuise() const { return epuise_; }

 private:
  static constexpr std::size_t Part = 1U << 18;

  bool Complete(std::size_t manque) {
    if (caisse_ == nullptr) return false;
    const std::size_t large = std::max(manque, Part);
    if (caisse_->Prend(large)) {
      reste_ += large;
      return true;
    }
    if (!caisse_->Prend(manque)) return false;
    reste_ += manque;
    return true;
  }

  Caisse* caisse_ = nullptr;
  std::size_t reste_ = 0;
  bool epuise_ = false;
};

// Arc of an ellipse, given by its centre and two conjugate half axes: c + u cos t + v sin t. The image of any arc
// under any affine map is one of these.
struct ArcConique {
  Vec2 u;
  Vec2 v;
  double debut = 0;     // parameter at the start, radians
  double balayage = 0;  // signed
};

// Sweep of an arc from one angle to another, counter-clockwise: above 0, a whole turn (exactly 2 pi) when they are
// the same.
double BalayageArc(double debut, double fin);
// Number of chords that keep the arc within `fleche`; from 1 to a bounded number.
std::size_t NombreCordes(const ArcConique& arc, double fleche);
// Appends the points between the ends of the arc, without them. `depart` is the point at its start.
bool AjouteConique(std::vector<Vec2>& points, Vec2 depart, const ArcConique& arc, double fleche, Budget& budget);

// The arc over a segment of a polyline: `bulge` is the tangent of a quarter of its angle, positive when it bends to
// the right of the chord, so that it turns counter-clockwise. In the polyline's own plane; the map comes after.
ArcConique ArcDeBulge(Vec2 a, Vec2 b, double bulge);

}  // namespace pathwerk::lecture::dxf
