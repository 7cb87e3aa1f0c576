// The way down along a closed path: the tool sinks at an angle while it cuts, and goes round once more at the depth
// that it has reached. Rows are added to a plan by the procedures of NoyauPlan.h, so that the step carry is kept.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "core/Cadence.h"
#include "run/NoyauPlan.h"
#include "toolpath/chemins/BoucleEntree.h"

namespace ovelin {

// What a path is cut with by ramps; nothing where the tool goes straight down: no angle, no depth, no loop.
std::optional<BoucleEntree> BoucleDeRampe(const ParametresPlan& p, std::span<const PointTrace> points,
                                          double profondeur);
// Rows at most that a pass of a path makes beside those of a pass without a ramp. `hauteurs`: rows in Z that the
// notches of the piece make.
std::int64_t LignesRampe(const ParametresPlan& p, const BoucleEntree& boucle, double profondeur,
                         std::int64_t hauteurs);

// The tool on its loop, at a height between two passes. One pass:
//
//   surface   \                                   the ramp, as long as it must be (round and round on a short loop)
//   pass       \________________________________  then one round at its depth, which takes away what stood under it
//
// The pass ends where its ramp has ended, and the next one begins there: the wedge is gone with the least way.
// Heights, mm: 0 the surface, negative downward.
class RampeEntree {
 public:
  // `points`: the loop, its last point on its first. `niveauEncoche`: no deeper inside a notch.
  RampeEntree(EtatPlan& plan, const ParametresPlan& p, std::span<const PointTrace> points, double longueur,
              float niveauEncoche);

  // The tool has come to the first point of the loop, at height `niveau`.
  void Commence(float niveau);
  // From where the tool is: down from `precedente` to `passe`, and round.
  void Passe(float precedente, float passe);
  // On to the end of the loop at the depth of the pass.
  void Ferme(float passe);

  [[nodiscard]] const PointTrace& Place() const { return pos_; }
  [[nodiscard]] float Niveau() const { return niveau_; }  // above the pass where a notch holds the tool

 private:
  void Descend(double precedente, double passe);
  void Tourne(double passe);
  void FinitSegment(double passe);
  void Avance(double jusque, double rampe);
  void PasseSommet(double rampe);
  void Coupe(const PointTrace& point, double niveau);
  void Monte(double niveau);
  [[nodiscard]] double Tenu(double rampe) const;
  [[nodiscard]] double Longueur() const { return longueurs_[rang_]; }

  EtatPlan& plan_;
  const ParametresPlan& p_;
  std::span<const PointTrace> points_;
  double tour_;                    // mm, once round
  double encoche_;                 // height of the bridge
  std::vector<double> longueurs_;  // mm, of the stretch that ends at each point
  std::vector<char> tenus_;        // 1 where this stretch lies in a notch
  Cadence cadence_;
  // Where the tool is: `fait_` mm along the stretch that ends at point `rang_`
  std::size_t rang_ = 1;
  double fait_ = 0;
  PointTrace pos_;
  float niveau_ = 0;
  double base_ = 0;  // height of the surface in the rows, but for what their sums have rounded
};

}  // namespace ovelin
