#include "tests/support/Rs274.h"

#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <regex>
#include <sstream>

#include "core/PlanCourant.h"
#include "tests/support/Support.h"

namespace essai {

using namespace ovelin;

namespace {

// Three axes behind "STRAIGHT_xxx(".
bool LitMouvement(const std::string& ligne, MouvementRs274& m) {
  if (const auto place = ligne.find("ARC_FEED("); place != std::string::npos) {
    int sens = 0;
    m.arc = true;
    if (std::sscanf(ligne.c_str() + place, "ARC_FEED(%lf, %lf, %lf, %lf, %d, %lf", &m.x, &m.y, &m.cx, &m.cy, &sens,
                    &m.z) != 6) {
      return false;
    }
    m.horaire = sens < 0;
    return true;
  }
  for (const char* mot : {"STRAIGHT_TRAVERSE(", "STRAIGHT_FEED("}) {
    const auto place = ligne.find(mot);
    if (place == std::string::npos) continue;
    m.rapide = mot[9] == 'T';
    return std::sscanf(ligne.c_str() + ligne.find('(', place), "(%lf, %lf, %lf", &m.x, &m.y, &m.z) == 3;
  }
  return false;
}

std::string EnMillimetres(const std::string& texte) {
  static const std::regex Unites("^(N[0-9]+ )?G71$");
  std::string copie;
  std::istringstream lignes(texte);
  for (std::string ligne; std::getline(lignes, ligne);) copie += std::regex_replace(ligne, Unites, "$1G21") + "\n";
  return copie;
}

}  // namespace

bool Rs274Present() {
  static const bool present = std::system("command -v rs274 > /dev/null 2>&1") == 0;
  return present;
}

ResultatRs274 LanceRs274(const std::string& fichier, bool change) {
  ResultatRs274 r;
  const std::string texte = LitFichierEssai(fichier);
  EcritFichierEssai("rs274.ngc", change ? EnMillimetres(texte) : texte);
  // One at a time on a machine: two that start together end in a bus error now and then.
  const std::string verrou =
      (std::filesystem::temp_directory_path() / ("rs274-" + std::to_string(::getuid()) + ".lock")).string();
  const std::string commande =
      "cd '" + Dossier() + "' && flock '" + verrou + "' rs274 -g rs274.ngc rs274.out > rs274.err 2>&1";
  r.accepte = std::system(commande.c_str()) == 0;
  std::istringstream dits(LitFichierEssai(Dossier() + "/rs274.err"));
  for (std::string ligne; std::getline(dits, ligne);) {
    if (ligne != "executing") r.erreurs += ligne + "\n";
  }
  std::istringstream canon(LitFichierEssai(Dossier() + "/rs274.out"));
  double avance = 0;
  for (std::string ligne; std::getline(canon, ligne);) {
    const auto place = ligne.find("SET_FEED_RATE(");
    if (place != std::string::npos) avance = std::atof(ligne.c_str() + place + 14);
    MouvementRs274 m;
    if (!LitMouvement(ligne, m)) continue;
    m.avance = avance;
    r.mouvements.push_back(m);
  }
  return r;
}

std::string CompareTableDecoupe(const ResultatRs274& resultat) {
  if (!resultat.accepte || !resultat.erreurs.empty()) return "refused: " + resultat.erreurs;
  const auto lignes = static_cast<std::size_t>(NbDeplacements - 1);
  if (resultat.mouvements.size() != lignes) {
    return std::to_string(resultat.mouvements.size()) + " moves for " + std::to_string(lignes) + " rows";
  }
  for (std::size_t i = 0; i < lignes; ++i) {
    const Deplacement& d = TableDecoupe[i + 2];
    const MouvementRs274& m = resultat.mouvements[i];
    const auto loin = [](double a, float b, double tolerance) {
      return std::abs(a - static_cast<double>(b)) > tolerance;
    };
    // the interpreter tells four decimals
    const bool place = loin(m.x, d.X, 0.00056) || loin(m.y, d.Y, 0.00056) || loin(m.z, d.Z, 0.00056);
    const bool avance = loin(m.avance, d.Vitesse * 60, 0.0001 + 1e-6 * std::abs(m.avance));
    if (place || avance || m.rapide != (d.Z > 0)) {
      std::ostringstream s;
      s << "row " << i + 2 << ": " << d.X << " " << d.Y << " " << d.Z << " F" << d.Vitesse * 60 << ", read as "
        << (m.rapide ? "rapid " : "feed ") << m.x << " " << m.y << " " << m.z << " F" << m.avance;
      return s.str();
    }
  }
  const MouvementRs274& fin = resultat.mouvements.back();
  if (fin.x != 0 || fin.y != 0 || fin.z != 0) return "the last move does not end at (0, 0, 0)";
  return "";
}

}  // namespace essai
