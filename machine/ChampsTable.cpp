// The fields of the parameter window: which there are, what they hold, how they are written.

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "core/Cles.h"
#include "core/Nombres.h"
#include "core/Services.h"
#include "machine/Module_Table.h"
#include "machine/TableCourante.h"

namespace ovelin {

namespace {

// A run of fields of one family with one value for keys that are missing: the one that the readers of the key
// take, so that opening and closing the window changes nothing; where there is no other reader, the value that a
// new table gets.
struct Champs {
  const char* famille;
  int premier, dernier;
  const char* defaut;
};
constexpr Champs Inventaire[] = {
    {"TB_SAV", 0, 2, "1"},      {"TB_SAV", 3, 5, "200"},   {"TB_SAV", 6, 8, ""},  // the twins of 3 to 5
    {"TB_SAV", 9, 11, "0"},     {"TB_SAV", 12, 17, "5"},   {"TB_SAV", 18, 18, "1000"}, {"TB_SAV", 19, 19, "500"},
    {"TB_SAV", 20, 20, "2"},    {"TB_SAV", 21, 24, "0"},   {"TB_SAV", 25, 25, "600"},  {"TB_SAV", 26, 27, "10"},
    {"TB_SAV", 28, 28, "100"},  {"TB_SAV", 29, 31, "0"},   {"TB_SAV", 32, 32, ""},     {"Combo_SAV", 0, 10, "0"},
    {"Combo_SAV", 11, 14, "1"}, {"CB_SAV", 1, 1, "1"},     {"CB_SAV", 2, 3, "0"},      {"CB_SAV", 12, 15, "0"},
    {"CB_SAV", 16, 17, "1"},    {"CB_SAV", 101, 110, "0"}, {"Option_SAV", 0, 0, "1"},  {"Option_SAV", 1, 1, "0"},
    {"Sld_SAV", 0, 0, "5"},
};

std::string Cle(std::string_view famille, int index) { return std::string(famille) + "_" + std::to_string(index); }

bool MemeCle(std::string_view a, std::string_view b) { return Majuscules(a) == Majuscules(b); }

bool EstTexte(std::string_view cle) { return Majuscules(cle).starts_with("TB_SAV_"); }

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
double Valeur(const ChampsTable& champs, const std::string& section, std::string_view cle, double defaut) {
  if (const std::string* texte = Texte(champs, cle); texte != nullptr) return LitNombre(*texte).value_or(defaut);
  return LireNombreSection(section, cle, defaut);
}

}  // namespace

ChampsTable Chargt_Table(std::string_view nom) {
  const std::string section = SectionTable(nom);
  ChampsTable champs;
  for (const Champs& c : Inventaire) {
    for (int i = c.premier; i <= c.dernier; ++i) {
      const std::string cle = Cle(c.famille, i);
      std::string texte = LireCleSection(section, cle, c.defaut);
      if (EstTexte(cle)) {
        const bool degres = i >= 6 && i <= 8;
        if (degres && texte.empty()) texte = ChampJumeau(i - 3, *Texte(champs, Cle("TB_SAV", i - 3))).second;
        texte = Remplace(texte, '.', Svc.MarqueDecimale);
      }
      champs.emplace_back(cle, texte);
    }
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
    EcrireCleSection(section, "COMBO_TABLE", nom);
    const int genre = Arrondi32(Valeur(champs, section, "Combo_SAV_0", 0));
    EcrireCleSection(section, "OptionLPT", std::to_string(OptionLPT(genre)));
  }
  BrocheAuto = Arrondi16(Valeur(champs, section, "CB_SAV_16", 1));
  return Magasin.DerniereErreur.empty();
}

std::string FormateChamp(std::string_view famille, int index, std::string_view texte) {
  const auto entre = [&](int a, int b) { return index >= a && index <= b; };
  const char* motif = nullptr;
  if (entre(0, 2)) {
    motif = "#0.0000";
  } else if (entre(6, 8)) {
    motif = "#0.00";
  } else if (entre(12, 27)) {
    motif = "#0.0";
  } else if (entre(3, 5) || entre(9, 11) || index == 28 || index == 31 || index == 32) {
    motif = "#0";
  }
  const auto valeur = LitNombre(texte);
  if (famille != "TB_SAV" || motif == nullptr || !valeur) return std::string(texte);
  return Formate(*valeur, motif);
}

// Degrees per step have two decimals, so the way back may miss the number of steps a little; the field's format
// makes it whole again when it is left.
std::pair<int, std::string> ChampJumeau(int index, std::string_view texte) {
  const bool pas = index >= 3 && index <= 5;
  const bool degres = index >= 6 && index <= 8;
  const double valeur = LitNombre(texte).value_or(0);
  if ((!pas && !degres) || valeur == 0 || !std::isfinite(360 / valeur)) return {-1, ""};
  if (pas) return {index + 3, TexteNombre(std::nearbyint(360 / valeur * 100) / 100)};
  return {index - 3, TexteNombre(360 / valeur)};
}

void SuitChamp(int index, std::string_view texte) {
  const double lue = LitNombre(texte).value_or(0);
  const auto valeur = EnFloat(lue);
  if (valeur == 0 || std::abs(lue) > static_cast<double>(std::numeric_limits<float>::max())) return;
  if (index == 15) VitesseMaxX = valeur;
  if (index == 16) VitesseMaxY = valeur;
  if (index == 17) VitesseMaxZ = valeur;
}

int CurseurPente(std::string_view texte, int curseur) {
  const auto valeur = LitNombre(texte);
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
    Pose(champs, Cle("Combo_SAV", sortie), std::to_string(it->sorties[static_cast<std::size_t>(sortie - 1)]));
    if (it->inversions) Pose(champs, Cle("CB_SAV", 100 + sortie), "0");
  }
  return true;
}

}  // namespace ovelin
