#include "database/Module_BD.h"

#include <algorithm>
#include <utility>

#include "base/Indices.h"
#include "core/Cles.h"
#include "core/ClesReglages.h"
#include "core/Document.h"
#include "core/Etat.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Texte8.h"

namespace ovelin {

std::string MateriauCourant;

namespace {

[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { MateriauCourant.clear(); });

constexpr char Tabulation = '\t';
constexpr const char* Manquante = "$$";   // no stored row reads so
constexpr std::size_t LongueurLue = 255;  // what lies behind is cut off when a value is read

// Columns of a row, from 1 as in the grid.
enum Colonne : std::size_t {
  Materiau = 1,
  Rayon,
  Outil,
  Profondeur,
  Passe,
  AvanceH,
  AvanceV,
  LargeurPont,
  HauteurPont,
  NbColonnes = HauteurPont
};

std::string CleFiche(std::size_t rang) { return cles::DB + std::to_string(rang); }

bool FicheExiste(std::size_t rang) { return LireCle(CleFiche(rang), Manquante) != Manquante; }

// Fields by the tabs between them; missing ones are empty, further ones are left out.
FicheMateriau Separe(const std::string& texte) {
  FicheMateriau fiche;
  std::size_t debut = 0;
  for (std::string& champ : fiche.champs) {
    const std::size_t fin = std::min(texte.find(Tabulation, debut), texte.size());
    champ = texte.substr(debut, fin - debut);
    if (fin == texte.size()) break;
    debut = fin + 1;
  }
  return fiche;
}

std::string Joint(const FicheMateriau& fiche) {
  std::string texte;
  for (std::size_t i = 0; i < fiche.champs.size(); ++i) {
    if (i > 0) texte += Tabulation;
    texte += fiche.champs[i];
  }
  return texte;
}

// A row that would come back without its last numbers. A tab takes two characters in the file.
bool TropLongue(const FicheMateriau& fiche) {
  const std::string texte = Joint(fiche);
  const auto tabulations = std::count(texte.begin(), texte.end(), Tabulation);
  return EnTexte8(texte).size() + base::Indice(tabulations) > LongueurLue;
}

const std::string& Champ(const FicheMateriau& fiche, Colonne colonne) { return fiche.champs[colonne - 1]; }

// A field as a number: either mark, whatever the user's is.
double Valeur(const FicheMateriau& fiche, Colonne colonne) {
  std::string texte = Champ(fiche, colonne);
  std::replace(texte.begin(), texte.end(), ',', '.');
  return ValeurDebut(texte);
}

bool ChampValable(const FicheMateriau& fiche, Colonne colonne) {
  const auto valeur = NombreDuTexte(Champ(fiche, colonne));
  if (!valeur) return false;
  switch (colonne) {
    case Rayon:
      return *valeur >= 0;
    case Profondeur:
    case Passe:
      return *valeur <= 0;
    default:
      return *valeur > 0;  // feeds
  }
}

}  // namespace

std::vector<FicheMateriau> LitFiches() {
  const SansProjet sansProjet;
  std::vector<FicheMateriau> fiches;
  for (std::size_t rang = 1;; ++rang) {
    const std::string texte = LireCle(CleFiche(rang), Manquante);
    if (texte == Manquante) return fiches;
    fiches.push_back(Separe(texte));
  }
}

void EcritFichesDefaut() {
  static const std::vector<FicheMateriau> fiches{
      {{"Dépron 3 mm", "0.5", "2 lèvres", "-4", "-4", "8.33", "2", "5", "4"}},
      {{"Dépron 6 mm", "0.5", "2 lèvres", "-7", "-7", "8.33", "2", "5", "7"}},
      {{"Formica 0,7 mm", "0.8", "2 lèvres", "-2", "-1", "5.0", "2", "3", "1"}},
      {{"CTP 3 mm", "0.8", "Diamant", "-4.5", "-4.5", "2.5", "2", "2", "4.5"}},
      {{"Alu 2 mm", "0.8", "2 lèvres", "-2.5", "-2", "1.0", "2", "2", "2"}},
  };
  const SansProjet sansProjet;
  if (FicheExiste(1)) return;
  const LotCles lot;
  for (std::size_t i = 0; i < fiches.size(); ++i) EcrireCle(CleFiche(i + 1), Joint(fiches[i]));
}

std::pair<int, int> VerifieFiches(const std::vector<FicheMateriau>& fiches) {
  for (std::size_t rang = 0; rang < fiches.size(); ++rang) {
    for (const Colonne colonne : {Rayon, Profondeur, Passe, AvanceH, AvanceV}) {
      if (!ChampValable(fiches[rang], colonne)) return {base::Compte(rang) + 1, static_cast<int>(colonne)};
    }
    if (TropLongue(fiches[rang])) return {base::Compte(rang) + 1, static_cast<int>(Materiau)};
  }
  return {0, 0};
}

void EcritFiches(const std::vector<FicheMateriau>& fiches) {
  const SansProjet sansProjet;
  const LotCles lot;
  for (std::size_t i = 0; i < fiches.size(); ++i) EcrireCle(CleFiche(i + 1), Joint(fiches[i]));
  for (std::size_t rang = fiches.size() + 1; FicheExiste(rang); ++rang) SupprimerCle(CleFiche(rang));
}

bool ChargeFiche(int rang) {
  if (rang == 0) return true;
  const std::vector<FicheMateriau> fiches = LitFiches();
  if (rang < 0 || base::Indice(rang) > fiches.size()) return false;
  const FicheMateriau& fiche = fiches[base::Indice(rang) - 1];
  RayonFraise = std::max(0.0, Valeur(fiche, Rayon));
  ProfFraisage = Valeur(fiche, Profondeur);
  ProfPasse = Valeur(fiche, Passe);
  if (ProfPasse >= 0) ProfPasse = -0.1;  // as when the key is read: without a depth the passes would never end
  Vitesse_Mat_H = Valeur(fiche, AvanceH);
  Vitesse_Mat_V = Valeur(fiche, AvanceV);
  LargeurEncoche = Valeur(fiche, LargeurPont);
  if (LargeurEncoche <= 0) LargeurEncoche = 1.0;  // a notch without a width can't be opened
  MiniEncoche = Valeur(fiche, HauteurPont);
  MateriauCourant = Champ(fiche, Materiau);
  const LotCles lot;
  EcritMateriau();
  EcritOutil();
  EcrireCle(cles::MatDefaut, MateriauCourant);
  return true;
}

int ChercheFiche() {
  const std::vector<FicheMateriau> fiches = LitFiches();
  const auto convient = [](const FicheMateriau& f) {
    return Valeur(f, Rayon) == RayonFraise && Valeur(f, Profondeur) == ProfFraisage &&
           Valeur(f, Passe) == ProfPasse && Valeur(f, AvanceH) == Vitesse_Mat_H &&
           Valeur(f, AvanceV) == Vitesse_Mat_V && Valeur(f, LargeurPont) == LargeurEncoche &&
           Valeur(f, HauteurPont) == MiniEncoche;
  };
  const auto trouvee = std::find_if(fiches.begin(), fiches.end(), convient);
  if (trouvee == fiches.end()) {
    MateriauCourant.clear();  // the name of another material would mislead
    return 0;
  }
  MateriauCourant = Champ(*trouvee, Materiau);
  return base::Compte(trouvee - fiches.begin()) + 1;
}

}  // namespace ovelin
