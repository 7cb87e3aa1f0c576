#include "closed/pathwerk/lecture/dxf/Sommaire.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <utility>

#include "base/Indices.h"
#include "base/Texte.h"
#include "closed/pathwerk/lecture/dxf/Entite.h"

namespace pathwerk::lecture::dxf {

namespace {

constexpr char Majuscule(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool CommencePar(std::string_view texte, std::string_view debut) {
  return texte.size() >= debut.size() && MemeNom{}(texte.substr(0, debut.size()), debut);
}

// What belongs to the entity before it.
bool Annexe(std::string_view nom) { return nom == "VERTEX" || nom == "SEQEND" || nom == "ATTRIB"; }

bool FinDeSection(std::string_view nom) { return nom == "ENDSEC" || nom == "SECTION" || nom == "EOF"; }

class Releve {
 public:
  Releve(LecteurGroupes& lecteur, Sommaire& sommaire, const Decoupe& decoupe)
      : lecteur_(lecteur), sommaire_(sommaire), decoupe_(decoupe) {}

  void Lit();

 private:
  bool Suivant();
  bool ZeroSuivant();
  void Section();
  void Entete();
  void Calques();
  void Blocs();
  void UnBloc();
  void Entites();

  LecteurGroupes& lecteur_;
  Sommaire& sommaire_;
  Decoupe decoupe_;
  Groupe g_;
  LecteurGroupes::Reprise avant_;  // where the group in g_ begins
  Etat etat_ = Etat::Groupe;
};

bool Releve::Suivant() {
  avant_ = lecteur_.Ici();
  etat_ = lecteur_.Suivant(g_);
  return etat_ == Etat::Groupe;
}

bool Releve::ZeroSuivant() {
  while (Suivant()) {
    if (g_.code == 0) return true;
  }
  return false;
}

// Variables by name, their values in the group that follows.
void Releve::Entete() {
  int insunits = -1;
  int measurement = -1;
  int lunits = -1;
  while (Suivant() && g_.code != 0) {
    int* cible = nullptr;
    if (g_.code != 9) continue;
    if (g_.texte == "$INSUNITS") cible = &insunits;
    if (g_.texte == "$MEASUREMENT") cible = &measurement;
    if (g_.texte == "$LUNITS") cible = &lunits;
    if (cible == nullptr) continue;
    if (!Suivant()) break;
    int valeur = 0;
    if (LitEntier(g_, valeur)) *cible = valeur;
  }
  sommaire_.unite = UniteEnMm(insunits, measurement, lunits);
}

// Of all tables only the layers matter.
void Releve::Calques() {
  bool calque = false;
  std::string_view nom;
  Calque c;
  CouleurDite couleur;
  const auto garde = [&] {
    c.couleur = couleur.Propre();
    if (calque && !nom.empty()) sommaire_.calques.try_emplace(std::string(nom), c);
    nom = {};
    c = {};
    couleur = {};
  };
  while (Suivant()) {
    int valeur = 0;
    if (g_.code == 0) {
      garde();
      calque = g_.texte == "LAYER";
      if (FinDeSection(g_.texte)) return;
    } else if (calque && g_.code == 2) {
      nom = g_.texte.substr(0, NomCalqueMax);
    } else if (calque && g_.code == 70 && LitEntier(g_, valeur)) {
      c.gele = (valeur & 1) != 0;
    } else if (calque && g_.code == 62 && LitEntier(g_, valeur)) {
      c.eteint = valeur < 0;
      couleur.numero = std::abs(std::max(valeur, -256));
    } else if (calque && g_.code == 420 && LitEntier(g_, valeur)) {
      couleur.vraie = valeur;
    }
  }
}

// From the block's header, whose group 0 is in g_, to its end.
void Releve::UnBloc() {
  Bloc bloc;
  std::string_view nom;
  while (Suivant() && g_.code != 0) {
    double v = 0;
    if (g_.code == 2) nom = g_.texte;
    if (g_.code == 10 && LitReel(g_, v)) bloc.base.x = v;
    if (g_.code == 20 && LitReel(g_, v)) bloc.base.y = v;
    if (g_.code == 30 && LitReel(g_, v)) bloc.base.z = v;
  }
  bloc.debut = avant_;
  const bool papier = CommencePar(nom, "*PAPER_SPACE") || CommencePar(nom, "$PAPER_SPACE");
  while (etat_ == Etat::Groupe && !FinDeSuite(g_.texte)) {
    if (papier && !Annexe(g_.texte)) ++sommaire_.papier;
    ZeroSuivant();
  }
  bloc.taille = avant_.position - bloc.debut.position;
  sommaire_.blocs.try_emplace(std::string(nom), bloc);
}

void Releve::Blocs() {
  if (!ZeroSuivant()) return;
  while (etat_ == Etat::Groupe && !FinDeSection(g_.texte)) {
    if (g_.texte == "BLOCK") {
      UnBloc();
    } else {
      ZeroSuivant();
    }
  }
}

// As far as its last group where it can be cut, else not at all.
void Releve::Entites() {
  SectionEntites section{lecteur_.Ici(), {}};
  if (!lecteur_.Binaire()) {
    if (auto coupee = CoupeSection(lecteur_.Donnees(), section.debut, decoupe_)) {
      section.tranches = std::move(coupee->tranches);
      lecteur_.Va(coupee->fin);
    }
  }
  sommaire_.entites.push_back(std::move(section));
}

void Releve::Section() {
  if (!Suivant() || g_.code != 2) return;
  const std::string_view nom = g_.texte;
  if (nom == "HEADER") {
    Entete();
  } else if (nom == "TABLES") {
    Calques();
  } else if (nom == "BLOCKS") {
    Blocs();
  } else {
    if (nom == "ENTITIES") Entites();
    while (ZeroSuivant() && !FinDeSection(g_.texte)) {
    }
  }
}

void Releve::Lit() {
  bool dansSection = false;
  const LecteurGroupes::Reprise debut = lecteur_.Ici();
  // This system's own drawings begin with its name.
  if (lecteur_.SuivantBrut(g_) == Etat::Groupe) sommaire_.propre = g_.code == 999 && g_.texte == "OVELIN";
  lecteur_.Va(debut);
  bool structure = false;
  Suivant();
  while (etat_ == Etat::Groupe) {
    if (g_.code == 0 && g_.texte == "EOF") break;
    if (g_.code == 0 && g_.texte == "SECTION") {
      structure = dansSection = true;
      Section();
      // A section that lacks its end is ended by the next one.
      if (etat_ == Etat::Groupe && g_.code == 0 && g_.texte == "SECTION") continue;
      if (etat_ != Etat::Groupe) break;
      dansSection = false;
      if (g_.code == 0 && g_.texte == "EOF") break;
    }
    Suivant();
  }
  sommaire_.tronque = etat_ == Etat::Coupe || (etat_ == Etat::Fin && dansSection);
  // What stands behind the entities (objects, a picture) may be anything.
  const bool casse = etat_ == Etat::Faux && sommaire_.entites.empty();
  sommaire_.faux = !structure || casse;
  if (sommaire_.faux) {
    sommaire_.ligne = etat_ == Etat::Faux ? lecteur_.LigneFausse() : 1;
    if (lecteur_.Binaire()) sommaire_.ligne = 0;
    sommaire_.detail = std::string(lecteur_.TexteFaux().substr(0, 60));
  }
}

}  // namespace

bool FinDeSuite(std::string_view nom) { return nom == "ENDBLK" || nom == "BLOCK" || FinDeSection(nom); }

std::size_t HacheNom::operator()(std::string_view nom) const {
  std::size_t h = 14695981039346656037ULL;  // FNV-1a
  for (const char c : nom) h = (h ^ base::Octet(Majuscule(c))) * 1099511628211ULL;
  return h;
}

bool MemeNom::operator()(std::string_view a, std::string_view b) const {
  return std::ranges::equal(a, b, [](char x, char y) { return Majuscule(x) == Majuscule(y); });
}

// $INSUNITS names the unit when it is there and not 0. Feet and inches as the way of showing lengths ($LUNITS 3, 4)
// mean that a unit is an inch. A file from before $INSUNITS (R2000) that says $MEASUREMENT 0 was drawn in inches.
// Beside an $INSUNITS of 0 that variable says nothing: it chooses patterns and line types, and many programs leave
// it at 0 in drawings in millimetres. All else is in millimetres, as whoever mills expects.
double UniteEnMm(int insunits, int measurement, int lunits) {
  constexpr double Pouce = 25.4;
  constexpr std::array<double, 25> UnitesEnMm = {1,
                                                 Pouce,
                                                 304.8,
                                                 1609344.0,
                                                 1.0,
                                                 10.0,
                                                 1000.0,
                                                 1.0e6,  // -, in, ft, mile, mm, cm, m, km
                                                 25.4e-6,
                                                 25.4e-3,
                                                 914.4,
                                                 1.0e-7,
                                                 1.0e-6,
                                                 1.0e-3,
                                                 100.0,
                                                 1.0e4,  // uin, mil, yd, A, nm, um, dm, dam
                                                 1.0e5,
                                                 1.0e12,
                                                 1.495978707e14,
                                                 9.4607304725808e18,  // hm, Gm, astronomical unit, ly
                                                 3.0856775814913673e19,
                                                 1200000.0 / 3937,
                                                 100000.0 / 3937,  // pc, US survey foot and inch
                                                 3600000.0 / 3937,
                                                 6336000000.0 / 3937};  // US survey yard and mile
  if (insunits > 0 && insunits < std::ssize(UnitesEnMm)) return UnitesEnMm[base::Indice(insunits)];
  if (lunits == 3 || lunits == 4) return Pouce;
  if (insunits < 0 && measurement == 0) return Pouce;
  return 1;
}

Sommaire LitSommaire(LecteurGroupes& lecteur, const Decoupe& decoupe) {
  Sommaire sommaire;
  Releve(lecteur, sommaire, decoupe).Lit();
  return sommaire;
}

}  // namespace pathwerk::lecture::dxf
