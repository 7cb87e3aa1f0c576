#include "closed/pathwerk/lecture/dxf/DessinCoupe.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <iterator>
#include <limits>
#include <utility>
#include <vector>

#include "base/Equipe.h"
#include "closed/pathwerk/lecture/dxf/Dessin.h"

namespace pathwerk::lecture::dxf {

namespace {

// A piece of work: a stretch, or a section that isn't cut.
struct Morceau {
  const SectionEntites* section = nullptr;
  const Tranche* tranche = nullptr;  // null: the whole section
  Lecture lecture;
  std::vector<TraitDeHachure> traitsDeHachure;
  long hachures = 0;
  bool bon = false;
};

std::vector<Morceau> Morceaux(const Sommaire& sommaire) {
  std::vector<Morceau> morceaux;
  for (const SectionEntites& section : sommaire.entites) {
    if (section.tranches.empty()) morceaux.emplace_back().section = &section;
    for (const Tranche& tranche : section.tranches) morceaux.emplace_back().tranche = &tranche;
  }
  return morceaux;
}

void Dessine(Morceau& m, const LecteurGroupes& modele, const Sommaire& sommaire, const OptionsLecture& options,
             Limites& limites) {
  LecteurGroupes lecteur = modele;
  Dessinateur dessinateur(lecteur, sommaire, options, m.lecture, limites);
  m.bon = m.tranche != nullptr ? dessinateur.DessineTranche(*m.tranche) : dessinateur.DessineSection(*m.section);
  m.bon = m.bon && !m.lecture.Refuse();
  m.traitsDeHachure = dessinateur.TraitsDeHachure();
  m.hachures = dessinateur.Hachures();
}

// The table of layers has room for so many; beyond it a path has none, whichever came first.
bool CalquesTousPlaces(const TableCalques& calques) {
  return calques.Tous().size() <= std::numeric_limits<std::uint16_t>::max();
}

// Puts pieces one behind the other, as one drawer had drawn them.
class Jonction {
 public:
  explicit Jonction(Lecture& total) : total_(total) {}

  // False where a single drawer would have counted or placed otherwise.
  bool Ajoute(Morceau& m) {
    if (!CalquesTousPlaces(m.lecture.calques)) return false;
    const std::size_t premier = total_.traits.size();
    for (const TraitDeHachure& t : m.traitsDeHachure) hachures.push_back({t.trait + premier, t.hachure + nombre});
    nombre += m.hachures;
    std::vector<std::uint16_t> places;
    for (const pathwerk::Calque& c : m.lecture.calques.Tous())
      places.push_back(total_.calques.Place(c.Sorte, c.Nom, c.Couleur));
    for (Trait& t : m.lecture.traits) t.calque = places[t.calque];
    std::ranges::move(m.lecture.traits, std::back_inserter(total_.traits));
    for (const auto& [genre, n] : m.lecture.rapport.Ignores) total_.rapport.Ignores[genre] += n;
    total_.rapport.PremieresLignes.merge(m.lecture.rapport.PremieresLignes);
    m.lecture = Lecture{};
    return CalquesTousPlaces(total_.calques) && total_.rapport.Ignores.size() <= GenresMax;
  }

  std::vector<TraitDeHachure> hachures;
  long nombre = 0;

 private:
  Lecture& total_;
};

bool DessineTous(std::vector<Morceau>& morceaux, const LecteurGroupes& lecteur, const Sommaire& sommaire,
                 const OptionsLecture& options, Limites& limites) {
  OptionsLecture sansAvancement = options;  // whoever follows it hears of it on one thread
  sansAvancement.Avancement = nullptr;
  std::atomic<bool> douteux = false;
  base::Equipe equipe(options.Fils < 2 ? 0 : options.Fils, morceaux.size(), [&](std::size_t i) {
    if (douteux) return;
    Dessine(morceaux[i], lecteur, sommaire, sansAvancement, limites);
    if (!morceaux[i].bon) douteux = true;
  });
  for (std::size_t i = 0; i < morceaux.size(); ++i) {
    equipe.Attend(i);
    if (douteux) return false;
    if (options.Avancement) {
      options.Avancement(static_cast<double>(i + 1) / static_cast<double>(morceaux.size()));
    }
  }
  return true;
}

}  // namespace

bool DessineCoupe(const LecteurGroupes& lecteur, const Sommaire& sommaire, const OptionsLecture& options,
                  Lecture& lecture) {
  std::vector<Morceau> morceaux = Morceaux(sommaire);
  Limites limites(lecteur.Taille());
  if (!DessineTous(morceaux, lecteur, sommaire, options, limites)) return false;
  Lecture total = lecture;
  if (sommaire.papier > 0) total.Ignore("PAPER_SPACE", sommaire.papier);
  std::size_t traits = 0;
  for (const Morceau& m : morceaux) traits += m.lecture.traits.size();
  total.traits.reserve(traits);
  Jonction jonction(total);
  for (Morceau& m : morceaux) {
    if (!jonction.Ajoute(m)) return false;
  }
  LecteurGroupes relecteur = lecteur;
  if (!Dessinateur(relecteur, sommaire, options, total, limites)
           .Acheve(std::move(jonction.hachures), jonction.nombre))
    return false;
  lecture = std::move(total);
  return true;
}

}  // namespace pathwerk::lecture::dxf
