#include "core/ReglagesCourants.h"

#include "core/Cles.h"
#include "core/Document.h"
#include "core/Etat.h"
#include "core/Nombres.h"
#include "core/Traduction.h"

namespace ovelin {

Reglages Regl;

namespace {

[[maybe_unused]] const bool enregistree = EnregistreRemise([] { Regl = Reglages{}; });

std::int16_t LitEntier16(const char* cle, std::int16_t defaut) { return Arrondi16(LireNombre(cle, defaut)); }
std::int32_t LitEntier32(const char* cle, std::int32_t defaut) { return Arrondi32(LireNombre(cle, defaut)); }

void EcritNombre(const char* cle, double v) { EcrireCle(cle, TexteNombre(v)); }
void EcritEntier(const char* cle, long v) { EcrireCle(cle, TexteNombre(v)); }

}  // namespace

void LitMateriau() {
  const Reglages neuf;
  Regl.Vitesse_Mat_H = LireNombre("Vitesse_Mat_H", neuf.Vitesse_Mat_H);
  Regl.Vitesse_Mat_V = LireNombre("Vitesse_Mat_V", neuf.Vitesse_Mat_V);
  Regl.HautDeg = EnFloat(LireNombre("HautDeg", static_cast<double>(neuf.HautDeg)));
  Regl.HautDegSaisie = false;
  Regl.ProfFraisage = LireNombre("ProfFraisage", neuf.ProfFraisage);
  Regl.ProfPasse = LireNombre("ProfPasse", neuf.ProfPasse);
  if (Regl.ProfPasse == 0) Regl.ProfPasse = -0.1;  // passes of no depth would never reach the bottom
  Regl.MiniEncoche = LireNombre("MiniEncoche", neuf.MiniEncoche);
  Regl.ModeZENIK = LitEntier16("ModeZENIK", neuf.ModeZENIK);
}

void LitCouleurs() {
  const Reglages neuf;
  Regl.CouleurNumero = LitEntier32("CouleurNumero", neuf.CouleurNumero);
  Regl.CouleurSequence = LitEntier32("CouleurSequence", neuf.CouleurSequence);
  Regl.CouleurInitial = LitEntier32("CouleurInitial", neuf.CouleurInitial);
  Regl.Couleurselectionne = LitEntier32("Couleurselectionne", neuf.Couleurselectionne);
  Regl.CouleurDecalage = LitEntier32("CouleurDecalage", neuf.CouleurDecalage);
  Regl.CouleurEncoche = LitEntier32("CouleurEncoche", neuf.CouleurEncoche);
}

void LitOptions() {
  const Reglages neuf;
  Regl.PCPoche = LitEntier16("PCPoche", neuf.PCPoche);
  Regl.ConfirmSuppr = LireBooleen("ConfirmSuppr", neuf.ConfirmSuppr);
  Regl.TimerInterval = LitEntier32("TimerInterval", neuf.TimerInterval);
  Regl.gMaxMRU = LitEntier32("gMaxMRU", neuf.gMaxMRU);
  // The tolerance acts on drawings that are not projects yet, so no project has a say in it.
  const float soudure = EnFloat(LitNombre(LireCleIni("ToleranceSoudure", "")).value_or(-1));
  Regl.ToleranceSoudure = soudure < 0 ? neuf.ToleranceSoudure : soudure;
}

void LitOutil() {
  const Reglages neuf;
  Regl.DecalageOutil = LitEntier16("DecalageOutil", neuf.DecalageOutil);
  if (Regl.DecalageOutil < 1) Regl.DecalageOutil = 1;
  Regl.RayonFraise = LireNombre("RayonFraise", neuf.RayonFraise);
  Regl.LargeurEncoche = LireNombre("LargeurEncoche", neuf.LargeurEncoche);
}

void LitReglagesDocument() {
  LitMateriau();
  LitCouleurs();
  LitOptions();
  LitOutil();
}

void EcritMateriau() {
  const LotCles lot;
  EcritNombre("Vitesse_Mat_H", Regl.Vitesse_Mat_H);
  EcritNombre("Vitesse_Mat_V", Regl.Vitesse_Mat_V);
  EcrireCle("HautDeg", TexteNombre(Regl.HautDeg));
  EcritNombre("ProfFraisage", Regl.ProfFraisage);
  EcritNombre("ProfPasse", Regl.ProfPasse);
  EcritNombre("MiniEncoche", Regl.MiniEncoche);
  EcritEntier("ModeZENIK", Regl.ModeZENIK);
}

void EcritCouleurs() {
  const LotCles lot;
  EcritEntier("CouleurNumero", Regl.CouleurNumero);
  EcritEntier("CouleurSequence", Regl.CouleurSequence);
  EcritEntier("CouleurInitial", Regl.CouleurInitial);
  EcritEntier("Couleurselectionne", Regl.Couleurselectionne);
  EcritEntier("CouleurDecalage", Regl.CouleurDecalage);
  EcritEntier("CouleurEncoche", Regl.CouleurEncoche);
}

void EcritOptions() {
  const LotCles lot;
  EcritEntier("PCPoche", Regl.PCPoche);
  EcrireCle("ConfirmSuppr", Regl.ConfirmSuppr ? "Vrai" : "Faux");
  EcritEntier("TimerInterval", Regl.TimerInterval);
  // The length of the recent list is the user's: blank for the moment, so that no project takes it. A snapshot
  // does.
  const SansProjet reglages;
  EcritEntier("gMaxMRU", Regl.gMaxMRU);
}

void EcritOutil() {
  const LotCles lot;
  EcritEntier("DecalageOutil", Regl.DecalageOutil);
  EcritNombre("RayonFraise", Regl.RayonFraise);
  EcritNombre("LargeurEncoche", Regl.LargeurEncoche);
}

void EcritSoudure() {
  const SansProjet reglages;
  EcrireCle("ToleranceSoudure", TexteNombre(Regl.ToleranceSoudure));
}

// Two of the names are not those that are read: "CouleurSelectionne" differs in letter case, which the settings
// file does not tell and a project does; nothing reads "CouleurDeselectionne".
void EcritCouleursDefaut() {
  const LotCles lot;
  EcritEntier("CouleurNumero", Couleur(0, 0, 0));
  EcritEntier("CouleurSequence", Couleur(0, 0, 255));
  EcritEntier("CouleurSelectionne", Couleur(255, 0, 0));
  EcritEntier("CouleurDeselectionne", Couleur(100, 0, 0));
  EcritEntier("CouleurDecalage", Couleur(0, 255, 0));
  EcritEntier("CouleurEncoche", Couleur(100, 0, 100));
}

void LitReglagesDemarrage() {
  const Reglages neuf;
  Regl.Langue = LireCle("Language", LangueDuSysteme(LocaleSysteme()));
  Regl.TableDefaut = LireCle("TableDefaut", neuf.TableDefaut);
  Regl.DebugZENIK = LireBooleen("DebugZENIK", neuf.DebugZENIK);
}

}  // namespace ovelin
