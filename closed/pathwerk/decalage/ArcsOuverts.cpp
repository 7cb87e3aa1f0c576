// Of the path there and back the raw pieces of the way there are wanted, and of the way back those alone that lie
// where the path touches itself, so that either way may claim them. The others would come out on the unwanted side.
//
// Mostly a draft of both ways (ArcEbauche.h) gives the whole border, of which the wanted stretches stay. Where the
// parallel crosses itself all over the draft is no use, and of both ways each piece would have to be cut by
// everything. There only the wanted pieces are laid. All of the way there takes away, and of the way back what is
// laid: the rest of it lies on the same segments.
//
// Where a stretch of the wanted side ends, one of the other side begins, and that must be known lest a gap be taken
// for an end:
//
//        ------------ p .            p, of the way there, ends at the stadium of the segment s;
//                        q           q, of the way back along s, begins in that very place
//
// So of each end that finds no partner, the way back along what ended it is laid too. All that was laid before must
// then have a partner at both ends, as strictly as if everything had been laid.
#include "closed/pathwerk/decalage/ArcsOuverts.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <optional>
#include <span>

#include "base/Arret.h"
#include "base/Indices.h"
#include "closed/pathwerk/commun/Numero32.h"
#include "closed/pathwerk/decalage/ArcAplatis.h"
#include "closed/pathwerk/decalage/ArcEbauche.h"
#include "closed/pathwerk/decalage/ArcLibres.h"
#include "closed/pathwerk/decalage/Epreuve.h"
#include "closed/pathwerk/decalage/ReglageArcs.h"

namespace pathwerk::decalage {

namespace {

constexpr std::size_t SegmentsParRegard = 1024;

using Voulus = std::vector<std::uint8_t>;

std::vector<Plage> Plages(const Voulus& voulus) {
  std::vector<Plage> r;
  for (std::size_t i = 0; i < voulus.size(); ++i) {
    if (voulus[i] == 0) continue;
    if (r.empty() || r.back().fin != i) r.push_back({i, i});
    r.back().fin = i + 1;
  }
  return r;
}

class Poseur {
 public:
  Poseur(const Region& allerRetour, Contacts& contacts)
      : source_(allerRetour.contours), moitie_(source_.Taille() / 2) {
    voulus_.assign(2 * moitie_, 0);
    std::fill_n(voulus_.begin(), moitie_, 1);
    for (std::size_t s = 0; s < moitie_; ++s) {
      if (s % SegmentsParRegard == 0 && base::ArretDemande()) break;
      if (contacts.Peut(s)) voulus_[2 * moitie_ - 1 - s] = 1;
    }
    VeutArcs(voulus_);
  }
  [[nodiscard]] const ArcSource& Source() const { return source_; }

  // The wanted stretches at the distance `d`, from a draft of both ways; the others are out of it. Nothing where
  // the draft is of no use.
  [[nodiscard]] std::optional<std::vector<ArcLibre>> Ebauche(double d, double bruit, double ecart,
                                                             double creux) const {
    std::optional<std::vector<ArcLibre>> libres = ArcsSiPeuDeRencontres(source_, d, bruit);
    if (!libres || LieArcs(source_, *libres, std::abs(d), ecart, creux) > 0) return std::nullopt;
    for (ArcLibre& a : *libres) a.hors = voulus_[a.source] == 0;
    for (ArcLibre& a : *libres) {
      if (a.hors || (*libres)[a.suite].hors) a.suite = Naturel;
    }
    return libres;
  }

  // The same by laying the wanted pieces alone; nothing where an end stays loose.
  std::optional<std::vector<ArcLibre>> Pose(double d, double bruit, double ecart, double creux) {
    if (!tueurs_) ChoisitTueurs();
    const double r = std::abs(d);
    std::vector<ArcLibre> libres = ArcsLibres(source_, d, bruit, Plages(voulus_), Tue());
    const std::size_t premiers = libres.size();
    LieArcs(source_, libres, r, MemePlace, 0);
    const std::vector<ArcLibre> partenaires = ArcsLibres(source_, d, bruit, Plages(Manquants(libres)), Tue());
    for (ArcLibre a : partenaires) {
      if (a.suite != Naturel) a.suite += Numero32(premiers);
      libres.push_back(a);
    }
    LieArcs(source_, libres, r, ecart, creux);
    if (base::ArretDemande()) return std::nullopt;
    const Voulus precedes = Precedes(libres);
    for (std::size_t k = 0; k < premiers; ++k) {
      if (libres[k].suite == Naturel || precedes[k] == 0) return std::nullopt;
    }
    return libres;
  }

 private:
  [[nodiscard]] const Tueurs* Tue() const { return tueurs_ ? &*tueurs_ : nullptr; }

  // The raw pieces that are laid are those of a segment and of the arc around its start; the one around its end
  // comes with the next.
  void VeutArcs(Voulus& voulus) const {
    for (std::size_t i = voulus.size(); i-- > moitie_;) {
      if (voulus[i - 1] != 0) voulus[i] = 1;
    }
  }
  void ChoisitTueurs() {
    const auto nombre = static_cast<std::size_t>(std::count(voulus_.begin(), voulus_.end(), 1));
    if (nombre == voulus_.size()) return;
    tueurs_.emplace();
    tueurs_->segments.reserve(nombre);
    for (std::size_t i = 0; i < voulus_.size(); ++i) {
      if (voulus_[i] != 0) tueurs_->segments.push_back(Numero32(i));
    }
    tueurs_->arbre = ArcSource::Arbre(nombre, [this](std::size_t k, base::Boite<double>& b) {
      const std::size_t i = tueurs_->segments[k];
      b.Etend(source_.A(i).x, source_.A(i).y);
      b.Etend(source_.B(i).x, source_.B(i).y);
    });
  }
  // The way back along all that ends a stretch without a partner.
  [[nodiscard]] Voulus Manquants(const std::vector<ArcLibre>& libres) const {
    Voulus r(voulus_.size(), 0);
    const Voulus precedes = Precedes(libres);
    const auto veut = [&](std::size_t i) {
      if (voulus_[i] == 0) r[i] = 1;
    };
    for (std::size_t k = 0; k < libres.size(); ++k) {
      const ArcLibre& a = libres[k];
      if (a.suite == Naturel) Autour(a.causeB == Naturel ? a.source : a.causeB, veut);
      if (precedes[k] == 0) Autour(a.causeA == Naturel ? a.source : a.causeA, veut);
    }
    return r;
  }
  // The segment j on the way back, and its neighbours there.
  template <class Veut>
  void Autour(std::size_t j, Veut veut) const {
    const std::size_t retour = j < moitie_ ? 2 * moitie_ - 1 - j : j;
    veut(source_.Precedent(retour));
    veut(retour);
    veut(source_.Suivant(retour));
  }

  ArcSource source_;
  std::size_t moitie_;  // segments of the path
  Voulus voulus_;       // laid in any case
  std::optional<Tueurs> tueurs_;
};

}  // namespace

bool DecaleOuvertArcs(const Region& allerRetour, double distance, double tolerance, Contacts& contacts,
                      std::vector<Chemin>& boucles, std::vector<Origines>& origines) {
  boucles.clear();
  origines.clear();
  try {
    Poseur poseur(allerRetour, contacts);
    const ArcSource& source = poseur.Source();
    if (!(source.Etendue() + std::abs(distance) <= 1e9)) return false;
    for (const double part : PartsDeJeu) {
      if (base::ArretDemande()) break;
      const auto [jeu, bruit, ecart] = ReglageDe(allerRetour, source, distance, tolerance, part);
      const double d = jeu.distance;
      auto libres = part == PartsDeJeu[0] ? poseur.Ebauche(d, bruit, ecart, 0.5 * tolerance) : std::nullopt;
      if (!libres) libres = poseur.Pose(d, bruit, ecart, 0.5 * tolerance);
      if (!libres) continue;
      boucles = AplatitBoucles(source, *libres, d, jeu.fleche, tolerance / 50, &origines);
      if (Tiennent(source, boucles, origines, std::abs(d), jeu.fleche)) return true;
    }
  } catch (const std::exception&) {
  }
  boucles.clear();
  origines.clear();
  return false;
}

}  // namespace pathwerk::decalage
