// The arcs of a plan in their order, looked for by several threads ahead of who writes them.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "base/Equipe.h"
#include "base/SansCopie.h"
#include "run/ArcNC.h"

namespace ovelin {

// An arc takes rows as long as they fit, so that where the next one may begin is only known behind it. But none
// goes on over a row of another height or another speed: there a plan is cut, and each piece has the arcs that it
// has in the whole.
class ArcsDuPlan : base::SansCopie {
 public:
  static constexpr std::size_t RangsParMorceau = 8192;

  // `lignes`, which stay the caller's, from row 1 of the plan on. A piece holds that many rows, or more where none
  // differs.
  ArcsDuPlan(std::span<const Deplacement> lignes, const ToleranceArc& tolerance, unsigned fils,
             std::size_t rangsParMorceau = RangsParMorceau);

  // The arc that begins with a row. Asked for row after row, in rising order, but for those that an arc has taken.
  std::optional<ArcNC> Depuis(std::size_t rang);

 private:
  struct Trouve {
    std::size_t rang = 0;
    ArcNC arc;
  };
  struct Morceau {
    std::size_t debut = 0, fin = 0;
    std::vector<Trouve> arcs;
    std::size_t donnes = 0;
  };

  void Cherche(Morceau& morceau) const;

  std::span<const Deplacement> lignes_;
  ToleranceArc tolerance_;
  std::vector<Morceau> morceaux_;  // empty: rows are looked at as they are asked for
  std::size_t ici_ = 0;
  std::unique_ptr<base::Equipe> equipe_;  // last: its threads see all of the above
};

}  // namespace ovelin
