// Nearest points of a path whose points stand in several runs, while its start is moved again and again.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "base/ArbreBoites.h"
#include "toolpath/chemins/Etendues.h"

namespace ovelin {

// A tree of boxes over the distinct places of the points. The start of the first run, where that is closed, is only
// counted until `Applique`; indices are those that the points would have by then. So a path of k runs costs k
// searches and one pass, not k passes.
class PointsProches {
 public:
  // The runs of one code, in the order of the drawing `points`.
  PointsProches(std::span<const PointTrace> points, std::span<const Etendue> etendues);

  // The point nearest to a position.
  struct Choix {
    std::size_t index = 0;
    PointTrace place;  // X and Y alone
  };
  // Of equals the first of the array. Nothing when none can be reached.
  [[nodiscard]] std::optional<Choix> Cherche(const PointTrace& position) const;
  // Makes that point the first of the first run. False when the run is open, or the point is its first one or not
  // in it.
  bool Tourne(std::size_t index);
  // The start as it has come out, into the drawing.
  void Applique(std::vector<PointTrace>& points) const;

 private:
  struct Lieu {
    PointTrace place;
    std::optional<std::size_t> autre;  // first index in a later run
    std::size_t debut = 0, fin = 0;    // in `rangs_`
  };
  [[nodiscard]] std::size_t Index(const Lieu& lieu) const;

  Etendue premiere_;
  bool fermee_ = false;
  bool tournee_ = false;
  std::size_t tour_ = 0;            // places by which the start has moved on
  std::size_t modulo_ = 0;          // points of the first run, without the closing one
  std::vector<std::size_t> rangs_;  // of the first run, from its old start, ascending within a place
  std::vector<Lieu> lieux_;
  base::ArbreBoites<float, 8> arbre_;
};

}  // namespace ovelin
