// The fields of the parameter window: which there are, what they hold, how they are written.

#include "machine/ChampsTable.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "base/Indices.h"
#include "core/Cles.h"
#include "core/Nombres.h"
#include "core/Services.h"
#include "machine/GlobalesTable.h"
#include "machine/Module_Table.h"
#include "machine/TableCourante.h"

namespace ovelin {

namespace {

bool MemeCle(std::string_view a, std::string_view b) { return Majuscules(a) == Majuscules(b); }

bool EstTexte(std::string_view cle) {
  return Majuscules(cle).starts_with(std::string(NomsFamilles[static_cast<std::size_t>(FamilleChamp::TB_SAV)]) +
                                     "_");
}

std::string Remplace(std::string texte, char avant, char apres) {
  std::replace(texte.begin(), texte.end(), avant, apres);
  return texte;
}

// Text of a field by its key, nullptr when it isn't among them.
const std::string* Texte(const ChampsTable& champs, std::string_view cle) {
  const auto it = std::find_if(champs.begin(), champs.end(), [&](const auto& c) { return MemeCle(c.first, cle); });
  return it != champs.end() ? &it->second : nullptr;
}

void Pose(ChampsTable& champs, const std::string& cle, const std::string& texte) {
  const auto it = std::find_if(champs.begin(), champs.end(), [&](const auto& c) { return MemeCle(c.first, cle); });
  if (it != champs.end()) {
    it->second = texte;
  } else {
    champs.emplace_back(cle, texte);
  }
}

// True for a key whose value stands for this call only: it must not reach the file.
bool EstSurcharge(std::string_view cle) {
  return std::any_of(Magasin.Surcharge.begin(), Magasin.Surcharge.end(),
                     [&](const auto& s) { return MemeCle(s.first, cle); });
}

// A number as an index or a state, from the controls, else from the section.
double Valeur(const ChampsTable& champs, const std::string& section, const ChampMachine& champ) {
  const std::string cle = champ.Cle();
  const double defaut = LectureChamp(champ).Nombre();
  if (const std::string* texte = Texte(champs, cle); texte != nullptr)
    return NombreDuTexte(*texte).value_or(defaut);
  return LireNombreSection(section, cle, defaut);
}

// Into the global that follows this field, where there is one.
void PoseSuivie(FamilleChamp famille, int index, double valeur) {
  for (const GlobaleTable& g : GlobalesTable()) {
    if (g.suit && g.champ.famille == famille && g.champ.index == index) g.pose(Table, valeur);
  }
}

}  // namespace

// A key that is missing takes the value of its readers, so that opening and closing the window changes nothing;
// where nobody reads it, the value that a new table gets.
ChampsTable Chargt_Table(std::string_view nom) {
  const std::string section = SectionTable(nom);
  ChampsTable champs;
  for (const ChampMachine& c : ChampsMachine::Tous) {
    if (!c.visible) continue;
    std::string texte = LireCleSection(section, c.Cle(), c.defaut);
    if (c.famille == FamilleChamp::TB_SAV) {
      if (c.jumeau.sorte == SorteJumeau::Pas && texte.empty()) {
        const ChampMachine* pas = ChercheChamp(c.famille, c.jumeau.index);
        texte = ChampJumeau(pas->index, *Texte(champs, pas->Cle())).second;
      }
      texte = Remplace(texte, '.', Svc.MarqueDecimale);
    }
    champs.emplace_back(c.Cle(), texte);
  }
  return champs;
}

int OptionLPT(int interfacePuissance) {
  if (interfacePuissance == 0) return 20;
  if (interfacePuissance == 4) return 10;
  return interfacePuissance;
}

bool Sauve_Table(std::string_view nom, const ChampsTable& champs) {
  if (nom.empty()) return false;
  const std::string section = SectionTable(nom);
  Magasin.DerniereErreur.clear();
  {
    const LotCles lot;
    for (const auto& [cle, texte] : champs) {
      if (EstSurcharge(cle)) continue;
      EcrireCleSection(section, cle, EstTexte(cle) ? Remplace(texte, ',', '.') : texte);
    }
    EcrireCleSection(section, CleNomTable, nom);
    const int genre = Arrondi32(Valeur(champs, section, ChampsMachine::InterfacePuissance));
    EcrireCleSection(section, CleOptionLPT, std::to_string(OptionLPT(genre)));
  }
  BrocheAuto = Arrondi16(Valeur(champs, section, ChampsMachine::BrocheAuto));
  return Magasin.DerniereErreur.empty();
}

std::string FormateChamp(FamilleChamp famille, int index, std::string_view texte) {
  const ChampMachine* champ = ChercheChamp(famille, index);
  const auto valeur = NombreDuTexte(texte);
  if (champ == nullptr || champ->format == nullptr || !valeur) return std::string(texte);
  return Formate(*valeur, champ->format);
}

// Degrees per step have two decimals, so the way back may miss the number of steps a little; the field's format
// makes it whole again when it is left.
std::pair<int, std::string> ChampJumeau(int index, std::string_view texte) {
  const ChampMachine* champ = ChercheChamp(FamilleChamp::TB_SAV, index);
  const double valeur = NombreDuTexte(texte).value_or(0);
  if (champ == nullptr || champ->jumeau.sorte == SorteJumeau::Aucun || valeur == 0 ||
      !std::isfinite(360 / valeur)) {
    return {-1, ""};
  }
  const double jumeau = 360 / valeur;
  const bool degres = champ->jumeau.sorte == SorteJumeau::Degres;
  return {champ->jumeau.index, TexteNombre(degres ? std::nearbyint(jumeau * 100) / 100 : jumeau)};
}

void SuitChamp(int index, std::string_view texte) {
  const double lue = NombreDuTexte(texte).value_or(0);
  const auto valeur = EnFloat(lue);
  if (valeur == 0 || std::abs(lue) > (std::numeric_limits<float>::max())) return;
  PoseSuivie(FamilleChamp::TB_SAV, index, lue);
}

void SuitCoche(int index, bool coche) { PoseSuivie(FamilleChamp::CB_SAV, index, coche ? 1 : 0); }

int CurseurPente(std::string_view texte, int curseur) {
  const auto valeur = NombreDuTexte(texte);
  if (!valeur || *valeur < 1 || *valeur > static_cast<double>(TempsDouble.size())) return curseur;
  return Arrondi32(*valeur);
}

namespace {

struct Interface {
  const char* nom;
  std::array<int, 10> sorties;  // signal of OUT1 to OUT10
  bool inversions;              // clears the ten inversions
};
constexpr Interface Interfaces[] = {
    {"KR4400", {2, 3, 0, 1, 4, 5, 0, 1, 6, 6}, true},
    {"HobbyCNC EZ driver", {1, 0, 3, 2, 5, 4, 6, 6, 6, 6}, true},
    {"Step Four", {1, 0, 3, 2, 6, 6, 5, 4, 6, 6}, true},
    {"CNC3AX", {1, 0, 3, 2, 5, 4, 6, 6, 6, 6}, false},
    {"BreakOut Drive (Hobby-Pratique)", {0, 1, 2, 3, 4, 5, 6, 6, 6, 6}, true},
};

}  // namespace

const std::vector<std::string>& ListeInterfaces() {
  static const std::vector<std::string> noms = [] {
    std::vector<std::string> n;
    for (const Interface& i : Interfaces) n.emplace_back(i.nom);
    return n;
  }();
  return noms;
}

bool AppliqueInterface(std::string_view nom, ChampsTable& champs) {
  const auto* it =
      std::find_if(std::begin(Interfaces), std::end(Interfaces), [&](const Interface& i) { return nom == i.nom; });
  if (it == std::end(Interfaces)) return false;
  for (int sortie = 1; sortie <= 10; ++sortie) {
    const auto rang = sortie - 1;
    const ChampMachine* signal = ChercheChamp(FamilleChamp::Combo_SAV, ChampsMachine::Sortie1.index + rang);
    const ChampMachine* inversion = ChercheChamp(FamilleChamp::CB_SAV, ChampsMachine::InverseSortie1.index + rang);
    Pose(champs, signal->Cle(), std::to_string(it->sorties[base::Indice(sortie - 1)]));
    if (it->inversions) Pose(champs, inversion->Cle(), "0");
  }
  return true;
}

}  // namespace ovelin
