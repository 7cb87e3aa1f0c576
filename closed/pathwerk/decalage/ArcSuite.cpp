// What is free at a depth only becomes less with the depth. Let q be the place at the depth d straight above the
// place f of the outline. Is some other place g of the outline no farther from q than d, then it is nearer than d'
// to the place q' straight above f at every depth d' > d: the way over q is d' long, and it has a bend. So of each
// raw piece, measured along the outline and not along itself, only those stretches need to be looked at that were
// free before.
//
// Nor does a dead place ever take something away that a living one leaves. Let q' be dead at the depth d' and its
// foot f living at d. Going up from f, the first place at which another place g of the outline is as near as f lies
// at a depth between d and d'. There g is a nearest place, so it lives at d, and takes q' away by the above.
//
//      depth d'        .-----------------.          few tips of a noisy outline carry all of this
//      depth d      .--^--.--^-.--^--.-^--.
//      outline      VvVvvVvVvVvVvvVvVvVvVvV
//
// So each depth costs what lived at the depth before. The stretches are still those of the outline itself, in
// closed form, and no error adds up.
#include "closed/pathwerk/decalage/ArcSuite.h"

#include <cmath>
#include <utility>

#include "closed/pathwerk/decalage/ArcPortee.h"

namespace pathwerk::decalage {

std::vector<ArcLibre> ArcSuite::Libres(double d, double bruit) {
  const auto sert = [&](const std::optional<Etat>& e) {
    return e && e->d * d > 0 && std::abs(e->d) <= std::abs(d);
  };
  base_ = sert(etats_[1]) && !(sert(etats_[0]) && std::abs(etats_[0]->d) > std::abs(etats_[1]->d)) ? 1 : 0;
  nouveau_ = {d, {}, nullptr, true};
  if (!sert(etats_[base_])) return ArcsLibres(source_, d, bruit, &nouveau_.vives);
  const Etat& avant = *etats_[base_];
  // What is not to be kept needs no foresight.
  const std::optional<Etat>& place = etats_[1 - base_];
  const double pas = place && PlusLoin(*place, d) ? 0 : std::abs(d - avant.d);
  nouveau_.tueurs = avant.tueurs;
  return ArcsLibres(source_, d, bruit, avant.vives, avant.tueurs.get(), nouveau_.vives, pas);
}

// A depth that one was asked for behind a greater one doesn't take the place of that one.
void ArcSuite::Retient(bool complet) {
  std::optional<Etat>& place = etats_[1 - base_];
  if (place && PlusLoin(*place, nouveau_.d)) return;
  ChoisitTueurs(nouveau_);
  nouveau_.complet = complet;
  dernier_ = 1 - base_;
  place = std::move(nouveau_);
}

bool ArcSuite::DansLaPortee(double entre, double loin, double ecart, double portee, double bruit) const {
  const std::optional<Etat>& apres = etats_[dernier_];
  const std::optional<Etat>& avant = etats_[1 - dernier_];
  if (!apres || !avant || !apres->complet || std::abs(apres->d - loin) > ecart) return false;
  if (!(avant->d * entre > 0 && std::abs(avant->d) < std::abs(entre) && std::abs(avant->d) < std::abs(apres->d))) {
    return false;
  }
  return ToutPres(source_, {avant->d, avant->vives, avant->tueurs.get()},
                  {apres->d, apres->vives, apres->tueurs.get()}, entre, portee, bruit);
}

std::size_t ArcSuite::Vivantes() const {
  const std::optional<Etat>& e = etats_[dernier_];
  return e ? e->vives.pieces.size() : 0;
}

// The segments of all that lives; a new list only where it is shorter by a quarter.
void ArcSuite::ChoisitTueurs(Etat& etat) const {
  std::size_t nombre = 0;
  const std::vector<PiecesVives::Vive>& pieces = etat.vives.pieces;
  const auto nouveau = [&](std::size_t k) {
    return k == 0 || pieces[k].brute.source != pieces[k - 1].brute.source;
  };
  for (std::size_t k = 0; k < pieces.size(); ++k) nombre += nouveau(k) ? 1U : 0U;
  const std::size_t avant = etat.tueurs ? etat.tueurs->segments.size() : source_.Taille();
  if (4 * nombre > 3 * avant) return;
  auto tueurs = std::make_shared<Tueurs>();
  tueurs->segments.reserve(nombre);
  for (std::size_t k = 0; k < pieces.size(); ++k) {
    if (nouveau(k)) tueurs->segments.push_back(pieces[k].brute.source);
  }
  tueurs->arbre = ArcSource::Arbre(nombre, [&](std::size_t k, base::Boite<double>& b) {
    const std::size_t i = tueurs->segments[k];
    b.Etend(source_.A(i).x, source_.A(i).y);
    b.Etend(source_.B(i).x, source_.B(i).y);
  });
  etat.tueurs = std::move(tueurs);
}

}  // namespace pathwerk::decalage
