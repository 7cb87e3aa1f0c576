#include "tests/unit/app/Appel.h"

#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/places/Lieux.h"

namespace essai {

namespace fs = std::filesystem;

std::string Atelier::Ecrit(const std::string& nom, const std::string& octets) const {
  std::ofstream(Chemin(nom), std::ios::binary) << octets;
  return Chemin(nom);
}

std::string Atelier::Lit(const std::string& chemin) {
  std::ifstream f(chemin, std::ios::binary);
  std::ostringstream s;
  s << f.rdbuf();
  return s.str();
}

std::vector<std::string> Atelier::Fichiers() const {
  std::vector<std::string> noms;
  for (const auto& entree : fs::directory_iterator(dossier_.Chemin()))
    noms.push_back(entree.path().filename().string());
  std::sort(noms.begin(), noms.end());
  return noms;
}

Retour Atelier::Appelle(const std::vector<std::string>& arguments, const std::string& environnement) const {
  const auto cite = [](const std::string& texte) {
    std::string entre = "'";
    for (const char c : texte) entre += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return entre + "'";
  };
  const fs::path sorties = fs::path(dossier_.Chemin()).concat(".out");
  const fs::path erreurs = fs::path(dossier_.Chemin()).concat(".err");
  std::string commande =
      environnement + " " + cite(DossierProgrammes() + "/ovelin-cli") + " --config " + cite(dossier_.Chemin());
  const bool langue = std::find(arguments.begin(), arguments.end(), "--lang") != arguments.end();
  const bool marque = std::find(arguments.begin(), arguments.end(), "--decimal") != arguments.end();
  if (!langue) commande += " --lang fr";
  if (!marque) commande += " --decimal .";
  for (const std::string& a : arguments) commande += " " + cite(a);
  commande += " </dev/null >" + cite(sorties.string()) + " 2>" + cite(erreurs.string());
  Retour retour;
  const int etat = std::system(commande.c_str());
  retour.etat = WIFEXITED(etat) ? WEXITSTATUS(etat) : 128 + WTERMSIG(etat);
  retour.sortie = Lit(sorties.string());
  retour.erreurs = Lit(erreurs.string());
  fs::remove(sorties);
  fs::remove(erreurs);
  return retour;
}

Retour Atelier::AppelleDans(const std::string& dossier, const std::vector<std::string>& arguments) const {
  return Appelle(arguments, "cd '" + dossier + "' &&");
}

const std::string Carre =
    "0\nSECTION\n2\nENTITIES\n"
    "0\nLWPOLYLINE\n8\n0\n90\n4\n70\n1\n10\n0\n20\n0\n10\n40\n20\n0\n10\n40\n20\n40\n10\n0\n20\n40\n"
    "0\nCIRCLE\n8\n0\n10\n20\n20\n20\n40\n5\n"
    "0\nTEXT\n8\n0\n10\n1\n20\n1\n40\n2\n1\nabc\n"
    "0\nENDSEC\n0\nEOF\n";

double GaucheDesCoupes(const std::string& nc) {
  double gauche = 1e9;
  std::istringstream lignes(nc);
  std::string ligne;
  while (std::getline(lignes, ligne)) {
    const std::size_t x = ligne.find(" X");
    if (ligne.starts_with("G01") && x != std::string::npos)
      gauche = std::min(gauche, std::stod(ligne.substr(x + 2)));
  }
  return gauche;
}

std::string Exemple(const std::string& nom) { return DossierSource() + "/samples/" + nom; }

}  // namespace essai
