#include "core/Cles.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "core/ChampsMachine.h"
#include "core/ClesReglages.h"
#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/Etat.h"
#include "core/FichierIni.h"
#include "core/Fichiers.h"
#include "core/MagasinFichiers.h"
#include "core/Nombres.h"
#include "core/Services.h"
#include "core/Texte8.h"

namespace ovelin {

MagasinCles Magasin;

namespace {

[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { Magasin = MagasinCles{}; });

constexpr const char* SectionProgramme = "OVELIN";
std::vector<RetourCles*> Retours;             // those that stand
constexpr std::size_t LongueurValeur = 255;   // characters of a value as it is read
constexpr std::size_t LongueurTampon = 8192;  // characters of a listing of sections or of a section

std::string Remplace(std::string_view texte, std::string_view ancien, std::string_view nouveau) {
  std::string s;
  std::size_t i = 0;
  for (std::size_t j = texte.find(ancien); j != std::string_view::npos; j = texte.find(ancien, i)) {
    s.append(texte.substr(i, j - i)).append(nouveau);
    i = j + ancien.size();
  }
  return s.append(texte.substr(i));
}

// From the bytes of a file: cut, then "&&" back to tabs.
std::string ValeurLue(std::string_view octets) {
  return Remplace(DeTexte8(Coupe8(octets, LongueurValeur)), "&&", "\t");
}

std::optional<std::string> Surcharge(std::string_view cle) {
  const std::string nom = Majuscules(cle);
  for (const auto& [c, valeur] : Magasin.Surcharge) {
    if (Majuscules(c) == nom) return valeur;
  }
  return std::nullopt;
}

bool CleMachine(std::string_view cle) {
  const std::string nom = Majuscules(cle);
  for (const std::string_view famille : NomsFamilles) {
    if (nom.starts_with(Majuscules(famille) + "_")) return true;
  }
  return false;
}

std::string LitIni(std::string_view section, std::string_view cle, std::string_view defaut) {
  const auto valeur = magasin::Ini(CheminIni()).Lit(section, cle);
  return valeur ? ValeurLue(EnTexte8(*valeur)) : std::string(defaut);
}

// The length of the recent list is the user's, not the project's; an undo snapshot holds it though.
bool ProjetConsulte(std::string_view cle) {
  return !Rogne(FichierProjet).empty() && !DossierDe(FichierCourant).empty() && cle != cles::gMaxMRU;
}

bool EcritureIni(const std::string& fichier) { return Magasin.EcrireIni || fichier != CheminIni(); }

void EcritIni(std::string_view section, std::string_view cle, const std::string& valeur) {
  if (cle.empty() || !EcritureIni(CheminIni())) return;
  magasin::ModifieIni(CheminIni(), [s = std::string(section), c = std::string(cle), valeur](FichierIni& ini) {
    ini.Ecrit(s, c, valeur);
  });
}

double EnNombre(const std::string& texte, double defaut) { return NombreDuTexte(texte).value_or(defaut); }

// Whether a section gets its lines in the buffer that stands between: each piece takes one place more for its end,
// the whole one more.
class Tampon {
 public:
  bool Prend(std::size_t longueur) {
    pris_ += longueur + 1;
    return pris_ + 1 <= LongueurTampon;
  }

 private:
  std::size_t pris_ = 0;
};

void CopieLignes(FichierIni& ini, std::string_view source, std::string_view cible) {
  Tampon tampon;
  for (const auto& [cle, valeur] : ini.Lignes(source)) {
    // A line that does not fit is left out whole: half a value would be another value.
    if (!tampon.Prend(EnTexte8(cle).size() + 1 + EnTexte8(valeur).size())) break;
    ini.Ecrit(cible, Majuscules(cle), valeur);
  }
}

}  // namespace

std::string CheminIni() { return DossierProgramme + "/OVELIN.ini"; }

std::string ReglagesRefuses() {
  const std::string raison = magasin::RaisonIni(CheminIni());
  return raison.empty() ? "" : CheminIni() + ": " + raison;
}

std::string LireCleIni(std::string_view cle, std::string_view defaut) {
  if (const auto valeur = Surcharge(cle)) return *valeur;
  return LitIni(SectionProgramme, cle, defaut);
}

std::string LireCle(std::string_view cle, std::string_view defaut) {
  if (const auto valeur = Surcharge(cle)) return *valeur;
  if (ProjetConsulte(cle)) {
    if (const auto octets = magasin::CleProjet(FichierCourant, EnTexte8(cle))) return ValeurLue(*octets);
  }
  return LitIni(SectionProgramme, cle, defaut);
}

double LireNombre(std::string_view cle, double defaut) { return EnNombre(LireCle(cle, ""), defaut); }

bool LireBooleen(std::string_view cle, bool defaut) { return LireCle(cle, defaut ? "Vrai" : "Faux") != "Faux"; }

void EcrireCle(std::string_view cle, std::string_view valeur) {
  const LotCles lot;
  const std::string texte = Remplace(valeur, "\t", "&&");
  RetourCles::Note(cle, ExtensionDe(FichierProjet) == "OVL" ? FichierProjet : "");
  EcritIni(SectionProgramme, cle, texte);
  Svc.LaisseEvenements(Evenements::Affichage);
  // The first letters of the value, where those of the key were meant: placement keys do go to projects. Kept,
  // since projects hold them.
  const std::string capitales = Majuscules(texte);
  if (capitales.starts_with("_LEFT") || capitales.starts_with("_TOP")) return;
  if (Instantane != Faux) {
    magasin::PlaceCleProjet(FichierInstantane, EnTexte8(cle), EnTexte8(texte));
  } else if (!Rogne(FichierProjet).empty()) {
    magasin::PlaceCleProjet(FichierProjet, EnTexte8(cle), EnTexte8(texte));
  }
  Svc.LaisseEvenements(Evenements::Affichage);
}

void SupprimerCle(std::string_view cle) { SupprimerCleSection(SectionProgramme, cle); }

std::string LireCleSection(std::string_view section, std::string_view cle, std::string_view defaut) {
  if (Majuscules(section).starts_with("TABLE_") && CleMachine(cle)) {
    if (const auto valeur = Surcharge(cle)) return *valeur;
  }
  return LitIni(section, cle, defaut);
}

double LireNombreSection(std::string_view section, std::string_view cle, double defaut) {
  return EnNombre(LireCleSection(section, cle, ""), defaut);
}

void EcrireCleSection(std::string_view section, std::string_view cle, std::string_view valeur) {
  EcritIni(section, cle, Remplace(valeur, "\t", "&&"));
}

void SupprimerCleSection(std::string_view section, std::string_view cle) {
  if (!EcritureIni(CheminIni())) return;
  magasin::ModifieIni(CheminIni(),
                      [s = std::string(section), c = std::string(cle)](FichierIni& ini) { ini.Supprime(s, c); });
}

std::vector<std::string> ListerSections(const std::string& fichier) {
  std::vector<std::string> noms;
  Tampon tampon;
  for (std::string& nom : magasin::Ini(fichier).Sections()) {
    if (!tampon.Prend(EnTexte8(nom).size())) break;
    noms.push_back(std::move(nom));
  }
  return noms;
}

void CopierSection(std::string_view source, std::string_view cible, const std::string& fichier) {
  if (!EcritureIni(fichier)) return;
  magasin::ModifieIni(
      fichier, [s = std::string(source), c = std::string(cible)](FichierIni& ini) { CopieLignes(ini, s, c); });
}

void SupprimerSection(std::string_view section, const std::string& fichier) {
  if (!EcritureIni(fichier)) return;
  magasin::ModifieIni(fichier, [s = std::string(section)](FichierIni& ini) { ini.SupprimeSection(s); });
}

void DeplacerSection(std::string_view source, std::string_view cible, const std::string& fichier) {
  // A section moved onto itself, in other letter case perhaps, would be copied onto itself and then deleted.
  if (Majuscules(source) == Majuscules(cible)) return;
  const LotCles lot;
  CopierSection(source, cible, fichier);
  SupprimerSection(source, fichier);
}

LotCles::LotCles() { magasin::DebutLot(); }
LotCles::~LotCles() { magasin::FinLot(); }

SansProjet::SansProjet() : projet_(std::exchange(FichierProjet, std::string())) {}
SansProjet::~SansProjet() { FichierProjet = std::move(projet_); }

RetourCles::RetourCles(std::vector<std::string> cles) : cles_(std::move(cles)) { Retours.push_back(this); }

RetourCles::~RetourCles() { std::erase(Retours, this); }

void RetourCles::Note(std::string_view cle, const std::string& projet) {
  for (RetourCles* retour : Retours) {
    const auto notee = [&](const Avant& a) { return a.cle == cle && a.projet == projet; };
    if (std::ranges::find(retour->cles_, cle) == retour->cles_.end()) continue;
    if (std::ranges::any_of(retour->avant_, notee)) continue;
    Avant avant{std::string(cle), projet, magasin::Ini(CheminIni()).Releve(SectionProgramme, cle), std::nullopt};
    if (!projet.empty()) avant.dansProjet = magasin::CleProjet(projet, EnTexte8(cle));
    retour->avant_.push_back(std::move(avant));
  }
}

// The last one first: a key that was written alone and then into a project, too, is noted for each.
void RetourCles::Remet() {
  const LotCles lot;
  for (; !avant_.empty(); avant_.pop_back()) {
    const Avant& a = avant_.back();
    if (Magasin.EcrireIni) {
      magasin::ModifieIni(CheminIni(), [cle = a.cle, telle = a.dansIni](FichierIni& ini) {
        ini.Remet(SectionProgramme, cle, telle);
      });
    }
    if (a.projet.empty() || magasin::CleProjet(a.projet, EnTexte8(a.cle)) == a.dansProjet) continue;
    if (a.dansProjet) {
      magasin::PlaceCleProjet(a.projet, EnTexte8(a.cle), *a.dansProjet);
    } else {
      magasin::OteCleProjet(a.projet, EnTexte8(a.cle));
    }
  }
}

OrigineCle OrigineDe(std::string_view cle) {
  if (Surcharge(cle)) return OrigineCle::Surcharge;
  if (ProjetConsulte(cle) && magasin::CleProjet(FichierCourant, EnTexte8(cle))) return OrigineCle::Projet;
  return magasin::Ini(CheminIni()).Lit(SectionProgramme, cle) ? OrigineCle::Reglages : OrigineCle::Defaut;
}

bool ProjetEnVigueur() { return !Rogne(FichierProjet).empty() && ExtensionDe(FichierCourant) == "OVL"; }

void OublieCles() { magasin::Oublie(); }

}  // namespace ovelin
