#include "core/ReglagesCourants.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "core/Cles.h"
#include "core/ClesReglages.h"
#include "core/Document.h"
#include "core/Etat.h"
#include "core/Nombres.h"

namespace ovelin {

Reglages Regl;

namespace {

[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { Regl = Reglages{}; });

enum class Groupe {
  Materiau,
  Couleurs,
  Options,
  Recents,
  Outil,
  Rampe,
  Soudure,
  Gcode,
  Image,
  SortieNC,
  Demarrage
};

// A key read into its member; without it, or where it is no number, the member takes the default.
void Lit(const char* cle, double& m, double defaut) { m = LireNombre(cle, defaut); }
void Lit(const char* cle, float& m, float defaut) { m = EnFloat(LireNombre(cle, defaut)); }
void Lit(const char* cle, std::int16_t& m, std::int16_t defaut) { m = Arrondi16(LireNombre(cle, defaut)); }
void Lit(const char* cle, std::int32_t& m, std::int32_t defaut) { m = Arrondi32(LireNombre(cle, defaut)); }
void Lit(const char* cle, bool& m, bool defaut) { m = LireBooleen(cle, defaut); }
void Lit(const char* cle, std::string& m, const std::string& defaut) { m = LireCle(cle, defaut); }

void Ecrit(const char* cle, double v) { EcrireCle(cle, TexteNombre(v)); }
void Ecrit(const char* cle, float v) { EcrireCle(cle, TexteNombre(v)); }
void Ecrit(const char* cle, std::int16_t v) { EcrireCle(cle, TexteNombre(long{v})); }
void Ecrit(const char* cle, std::int32_t v) { EcrireCle(cle, TexteNombre(long{v})); }
void Ecrit(const char* cle, bool v) { EcrireCle(cle, v ? "Vrai" : "Faux"); }
void Ecrit(const char* cle, const std::string& v) { EcrireCle(cle, v); }

struct Reglage {
  Groupe groupe;
  const char* cle;
  void (*lit)(Reglages& r, const Reglages& defauts);
  void (*ecrit)(const Reglages& r);
};
#define CLE(cle, genre)
#define SUFFIXE(nom, texte)
#define REGLAGE(cle, membre, groupe, genre)                                                               \
  {Groupe::groupe, cles::cle, [](Reglages& r, const Reglages& d) { Lit(cles::cle, r.membre, d.membre); }, \
   [](const Reglages& r) { Ecrit(cles::cle, r.membre); }},
constexpr Reglage Lignes[] = {
#include "core/Reglages.def"
};
#undef REGLAGE
#undef SUFFIXE
#undef CLE

void LitGroupe(Groupe groupe, const Reglages& defauts = {}) {
  for (const Reglage& ligne : Lignes) {
    if (ligne.groupe == groupe) ligne.lit(Regl, defauts);
  }
}

void EcritGroupe(Groupe groupe) {
  const LotCles lot;
  for (const Reglage& ligne : Lignes) {
    if (ligne.groupe == groupe) ligne.ecrit(Regl);
  }
}

void AjouteCles(std::vector<std::string>& cles, Groupe groupe) {
  for (const Reglage& ligne : Lignes) {
    if (ligne.groupe == groupe) cles.emplace_back(ligne.cle);
  }
}

// The angle of an open project is its own: one without the key has no ramps, whatever the user's settings have.
void LitRampe() {
  LitGroupe(Groupe::Rampe);
  if (ProjetEnVigueur() && OrigineDe(cles::AngleRampe) == OrigineCle::Reglages) Regl.AngleRampe = 0;
  if (!EstRampe(Regl.AngleRampe)) Regl.AngleRampe = 0;
}

SursisReglages* SursisEnCours = nullptr;

}  // namespace

SursisReglages::SursisReglages() { SursisEnCours = this; }

SursisReglages::~SursisReglages() { SursisEnCours = nullptr; }

void SursisReglages::Ecrit() {
  SursisEnCours = nullptr;
  const LotCles lot;
  for (const Ecriture ecriture : std::exchange(dues_, {})) ecriture();
}

bool SursisReglages::Attend(Ecriture ecriture) {
  if (SursisEnCours == nullptr) return false;
  std::vector<Ecriture>& dues = SursisEnCours->dues_;
  if (std::ranges::find(dues, ecriture) == dues.end()) dues.push_back(ecriture);
  return true;
}

void LitMateriau() {
  LitGroupe(Groupe::Materiau);
  Regl.HautDegSaisie = false;
  if (Regl.ProfPasse == 0) Regl.ProfPasse = -0.1;  // passes of no depth would never reach the bottom
  LitRampe();
}

void LitCouleurs() { LitGroupe(Groupe::Couleurs); }

void LitCouleursGcode() {
  const SansProjet reglages;
  LitGroupe(Groupe::Gcode);
}

void LitImage() {
  const SansProjet reglages;
  LitGroupe(Groupe::Image);
}

// A negative speed or time is none.
void LitSortieNC() {
  const SansProjet reglages;
  LitGroupe(Groupe::SortieNC);
  for (double* v : {&Regl.VitesseBroche, &Regl.AttenteBroche}) {
    if (*v < 0) *v = 0;
  }
}

void LitOptions() {
  LitGroupe(Groupe::Options);
  LitGroupe(Groupe::Recents);
  // The tolerance acts on drawings that are not projects yet, so no project has a say in it.
  const float soudure = EnFloat(NombreDuTexte(LireCleIni(cles::ToleranceSoudure, "")).value_or(-1));
  Regl.ToleranceSoudure = soudure < 0 ? Reglages{}.ToleranceSoudure : soudure;
}

void LitOutil() {
  LitGroupe(Groupe::Outil);
  if (Regl.DecalageOutil < 1) Regl.DecalageOutil = 1;
}

void LitReglagesDocument() {
  LitMateriau();
  LitCouleurs();
  LitOptions();
  LitImage();
  LitSortieNC();
  LitOutil();
}

void EcritMateriau() {
  if (!SursisReglages::Attend(EcritMateriau)) EcritGroupe(Groupe::Materiau);
}

void EcritCouleurs() { EcritGroupe(Groupe::Couleurs); }

void EcritOptions() {
  if (SursisReglages::Attend(EcritOptions)) return;
  const LotCles lot;
  EcritGroupe(Groupe::Options);
  // The length of the recent list is the user's: blank for the moment, so that no project takes it. A snapshot
  // does.
  const SansProjet reglages;
  EcritGroupe(Groupe::Recents);
}

void EcritOutil() {
  if (!SursisReglages::Attend(EcritOutil)) EcritGroupe(Groupe::Outil);
}

std::vector<std::string> ClesMateriau() {
  std::vector<std::string> cles;
  AjouteCles(cles, Groupe::Materiau);
  return cles;
}

std::vector<std::string> ClesOutilEtOptions() {
  std::vector<std::string> cles;
  for (const Groupe groupe : {Groupe::Options, Groupe::Recents, Groupe::Outil}) AjouteCles(cles, groupe);
  return cles;
}

void EcritRampe() {
  if (SursisReglages::Attend(EcritRampe)) return;
  const LotCles lot;
  if (Regl.AngleRampe != 0 || OrigineDe(cles::AngleRampe) == OrigineCle::Projet) return EcritGroupe(Groupe::Rampe);
  const SansProjet reglages;
  if (NombreDuTexte(LireCleIni(cles::AngleRampe, "0")) != 0) EcritGroupe(Groupe::Rampe);
}

void EcritSoudure() {
  const SansProjet reglages;
  EcritGroupe(Groupe::Soudure);
}

void EcritSortieNC() {
  const SansProjet reglages;
  EcritGroupe(Groupe::SortieNC);
}

// Not the colours: a file that was delivered without them takes those of the next version.
void EcritImage() {
  const SansProjet reglages;
  const LotCles lot;
  Ecrit(cles::DessinSobre, Regl.DessinSobre);
  Ecrit(cles::DessinSaignee, Regl.DessinSaignee);
}

// Two of the names are not those that are read: "CouleurSelectionne" differs in letter case, which the settings
// file does not tell and a project does; nothing reads "CouleurDeselectionne".
void EcritCouleursDefaut() {
  const LotCles lot;
  Ecrit(cles::CouleurNumero, Couleur(0, 0, 0));
  Ecrit(cles::CouleurSequence, Couleur(0, 0, 255));
  Ecrit(cles::CouleurSelectionne, Couleur(255, 0, 0));
  Ecrit(cles::CouleurDeselectionne, Couleur(100, 0, 0));
  Ecrit(cles::CouleurDecalage, Couleur(0, 255, 0));
  Ecrit(cles::CouleurEncoche, Couleur(100, 0, 100));
}

}  // namespace ovelin
