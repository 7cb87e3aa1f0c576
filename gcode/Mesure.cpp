#include "gcode/Mesure.h"

#include <algorithm>
#include <cmath>

#include "gcode/Interprete.h"

namespace ovelin {

namespace {

class Mesureur : public Recepteur {
 public:
  Mesureur(MesureProgramme& mesure, const CouleursMouvement& couleurs, bool avecTrace)
      : mesure_(mesure), couleurs_(couleurs), avecTrace_(avecTrace) {
    if (avecTrace_) CreationVertex(mesure_.TraceVertex, {}, couleurs_.rapide, GenreMouvement::Depart, 0);
  }

  void ALaLigne(std::size_t ligne) { ligne_ = ligne; }

  void Deplace(const MouvementLigne& mouvement) override {
    Etend(mouvement.arrivee);
    ++mesure_.mouvements;
    const double longueur = LongueurDe(mouvement);
    if (!(longueur > 0)) return;
    mesure_.longueur += longueur;
    if (mouvement.rapide) {
      mesure_.longueurRapide += longueur;
    } else if (mouvement.vitesse > 0) {
      mesure_.secondes += longueur / mouvement.vitesse;
    } else if (mesure_.sansVitesse++ == 0) {
      mesure_.ligneSansVitesse = ligne_;
    }
    if (avecTrace_) Trace(mouvement);
  }
  void Machine(MotMachine) override {}
  void Pause(double) override {}
  void Broche(double) override {}
  void Rejete(const Mot& mot) override { mesure_.rejets.emplace_back(mot.texte); }
  void Arc(DefautArc defaut) override { mesure_.defauts.push_back(defaut); }

 private:
  void Etend(const Lieu& lieu) {
    BornesProgramme& b = mesure_.bornes;
    if (mesure_.mouvements == 0) {
      b = {lieu.X, lieu.X, lieu.Y, lieu.Y, lieu.Z, lieu.Z};
      return;
    }
    b.Xmin = std::min(b.Xmin, lieu.X);
    b.Xmax = std::max(b.Xmax, lieu.X);
    b.Ymin = std::min(b.Ymin, lieu.Y);
    b.Ymax = std::max(b.Ymax, lieu.Y);
    b.Zmin = std::min(b.Zmin, lieu.Z);
    b.Zmax = std::max(b.Zmax, lieu.Z);
  }

  void Trace(const MouvementLigne& mouvement) {
    const GenreMouvement genre = GenreDe(mouvement);
    const std::uint32_t couleur = genre == GenreMouvement::Rapide    ? couleurs_.rapide
                                  : genre == GenreMouvement::Plongee ? couleurs_.plongee
                                                                     : couleurs_.coupe;
    CreationVertex(mesure_.TraceVertex, mouvement.arrivee, couleur, genre, static_cast<std::uint32_t>(ligne_));
  }

  MesureProgramme& mesure_;
  const CouleursMouvement& couleurs_;
  bool avecTrace_;
  std::size_t ligne_ = 0;
};

}  // namespace

GenreMouvement GenreDe(const MouvementLigne& m) {
  if (m.rapide) return GenreMouvement::Rapide;
  const bool surPlace = m.arrivee.X == m.depart.X && m.arrivee.Y == m.depart.Y;
  return surPlace && m.arrivee.Z != m.depart.Z ? GenreMouvement::Plongee : GenreMouvement::Coupe;
}

double LongueurDe(const MouvementLigne& m) {
  return std::hypot(m.arrivee.X - m.depart.X, m.arrivee.Y - m.depart.Y, m.arrivee.Z - m.depart.Z);
}

MesureProgramme MesureDe(const Programme& programme, const CouleursMouvement& couleurs, bool avecTrace) {
  MesureProgramme mesure;
  if (avecTrace) mesure.TraceVertex.reserve(programme.Comptes().valides + 1);
  Mesureur mesureur(mesure, couleurs, avecTrace);
  EtatModal etat;
  std::vector<Mot> mots;
  for (std::size_t i = 0; i < programme.NombreLignes(); ++i) {
    if (!EstValide(programme.JugementDe(i))) continue;
    JugeLigne(programme.Ligne(i), mots);
    mesureur.ALaLigne(i + 1);
    if (!InterpreteMots(mots, etat, mesureur)) ++mesure.lignesEchouees;
  }
  const BornesProgramme& b = mesure.bornes;
  if (avecTrace && mesure.mouvements > 0) {
    Cube(mesure.CadreVertex, {b.Xmin, b.Ymin, b.Zmin}, {b.Xmax - b.Xmin, b.Ymax - b.Ymin, b.Zmax - b.Zmin},
         couleurs.cadre);
  }
  return mesure;
}

}  // namespace ovelin
