#include "tests/support/Golden.h"

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <utility>
#include <vector>

#include "core/ReglagesCourants.h"
#include "core/Traduction.h"
#include "tests/places/Lieux.h"
#include "tests/support/Support.h"

namespace essai {

using namespace ovelin;

namespace {

struct Mot {
  char lettre = 0;
  double valeur = 0;
};

// The words of a line; false for what is no sequence of a letter and a number.
bool LitMots(const std::string& ligne, std::vector<Mot>& mots) {
  std::istringstream s(ligne);
  for (Mot m; s >> m.lettre;) {
    if (m.lettre < 'A' || m.lettre > 'Z' || !(s >> m.valeur)) return false;
    mots.push_back(m);
  }
  return true;
}

bool MemeLigne(const std::string& a, const std::string& b) {
  if (a == b) return true;
  if (a.empty() || b.empty() || a[0] == '(' || b[0] == '(') return false;
  std::vector<Mot> motsA;
  std::vector<Mot> motsB;
  if (!LitMots(a, motsA) || !LitMots(b, motsB) || motsA.size() != motsB.size()) return false;
  for (std::size_t i = 0; i < motsA.size(); ++i) {
    const bool exact = motsA[i].lettre == 'G' || motsA[i].lettre == 'M';
    const bool avance = motsA[i].lettre == 'F';
    const double tolerance = exact ? 0 : avance ? 1e-6 * std::abs(motsA[i].valeur) : 0.0011;
    if (motsA[i].lettre != motsB[i].lettre || std::abs(motsA[i].valeur - motsB[i].valeur) > tolerance) return false;
  }
  return true;
}

std::vector<std::string> Lignes(const std::string& texte) {
  std::vector<std::string> lignes;
  std::istringstream s(texte);
  for (std::string ligne; std::getline(s, ligne);) lignes.push_back(ligne);
  return lignes;
}

}  // namespace

std::string CompareNC(const std::string& attendu, const std::string& obtenu) {
  const auto a = Lignes(attendu);
  const auto b = Lignes(obtenu);
  for (std::size_t i = 0; i < a.size() && i < b.size(); ++i) {
    if (!MemeLigne(a[i], b[i])) {
      return "line " + std::to_string(i + 1) + ": \"" + b[i] + "\", expected \"" + a[i] + "\"";
    }
  }
  if (a.size() == b.size()) return "";
  return std::to_string(b.size()) + " lines, expected " + std::to_string(a.size());
}

namespace {

// For dev/promote-golden.
void GardeObtenu(const std::string& nom, const std::string& obtenu) {
  const char* dossier = std::getenv("OVELIN_GOLDEN_OUT");
  if (dossier == nullptr) return;
  std::filesystem::copy_file(obtenu, std::string(dossier) + "/" + nom,
                             std::filesystem::copy_options::overwrite_existing);
}

}  // namespace

std::string CompareGoldenTexte(const std::string& nom, const std::string& obtenu) {
  GardeObtenu(nom, obtenu);
  const std::string attendu = LitFichierEssai(DossierSource() + "/tests/golden/" + nom);
  if (attendu.empty()) return "no golden " + nom;
  std::istringstream a(attendu), b(LitFichierEssai(obtenu));
  std::string la, lb;
  for (int ligne = 1;; ++ligne) {
    const bool encoreA = static_cast<bool>(std::getline(a, la));
    const bool encoreB = static_cast<bool>(std::getline(b, lb));
    if (!encoreA && !encoreB) return "";
    if (encoreA == encoreB && la == lb) continue;
    return "line " + std::to_string(ligne) + ": \"" + (encoreA ? la : "(end)") + "\" became \"" +
           (encoreB ? lb : "(end)") + "\"";
  }
}

std::string CompareGolden(const std::string& nom, const std::string& obtenu) {
  GardeObtenu(nom + ".nc", obtenu);
  const std::string attendu = LitFichierEssai(DossierSource() + "/tests/golden/" + nom + ".nc");
  if (attendu.empty()) return "no golden " + nom;
  return CompareNC(attendu, LitFichierEssai(obtenu));
}

void InstalleTextesGolden() {
  const std::string source = DossierSource() + "/tests/golden/OVELINfr.trad";
  std::filesystem::copy_file(source, Dossier() + "/OVELINfr.trad",
                             std::filesystem::copy_options::overwrite_existing);
  Regl.Langue = "fr";
  OublieTraductions();
}

}  // namespace essai
