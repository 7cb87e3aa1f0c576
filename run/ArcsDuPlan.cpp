#include "run/ArcsDuPlan.h"

#include <algorithm>

namespace ovelin {

namespace {

constexpr std::size_t AvanceParFil = 4;  // pieces that are ready before their turn

// The first row from `i` on that no arc over the row before it takes; the end for none.
std::size_t Coupure(std::span<const Deplacement> lignes, std::size_t i) {
  for (; i < lignes.size(); ++i) {
    if (lignes[i].Z != lignes[i - 1].Z || lignes[i].Vitesse != lignes[i - 1].Vitesse) return i;
  }
  return lignes.size();
}

}  // namespace

ArcsDuPlan::ArcsDuPlan(std::span<const Deplacement> lignes, const ToleranceArc& tolerance, unsigned fils,
                       std::size_t rangsParMorceau)
    : lignes_(lignes), tolerance_(tolerance) {
  if (fils < 2 || lignes.size() < 2 * rangsParMorceau) return;
  for (std::size_t debut = 1; debut < lignes.size();) {
    Morceau& m = morceaux_.emplace_back();
    m.debut = debut;
    m.fin = debut = Coupure(lignes, std::min(debut + rangsParMorceau, lignes.size()));
  }
  equipe_ = std::make_unique<base::Equipe>(
      fils, morceaux_.size(), [this](std::size_t i) { Cherche(morceaux_[i]); }, std::size_t{AvanceParFil} * fils);
  equipe_->Attend(0);
}

void ArcsDuPlan::Cherche(Morceau& morceau) const {
  for (std::size_t i = morceau.debut; i < morceau.fin; ++i) {
    const auto arc = ArcDepuis(lignes_, i, tolerance_);
    if (!arc) continue;
    morceau.arcs.push_back({i, *arc});
    i = arc->dernier;
  }
}

std::optional<ArcNC> ArcsDuPlan::Depuis(std::size_t rang) {
  if (morceaux_.empty()) return ArcDepuis(lignes_, rang, tolerance_);
  while (rang >= morceaux_[ici_].fin) {
    std::vector<Trouve>().swap(morceaux_[ici_].arcs);
    equipe_->Attend(++ici_);
  }
  Morceau& m = morceaux_[ici_];
  if (m.donnes == m.arcs.size() || m.arcs[m.donnes].rang != rang) return std::nullopt;
  return m.arcs[m.donnes++].arc;
}

}  // namespace ovelin
