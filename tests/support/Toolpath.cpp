#include "tests/support/Toolpath.h"

#include <cstdlib>
#include <sstream>

#include "tests/places/Lieux.h"
#include "tests/support/Support.h"

namespace essai {

namespace {

// Where dev/install-packages puts it.
std::string Modules() {
  if (const char* voulu = std::getenv("OVELIN_NODE_MODULES")) return voulu;
  const char* maison = std::getenv("HOME");
  return std::string(maison != nullptr ? maison : "") + "/.cache/ovelin/node/node_modules";
}

std::string Node() { return "NODE_PATH='" + Modules() + "' node "; }

}  // namespace

bool ToolpathPresent() {
  static const bool present =
      std::system((Node() + "-e \"require('gcode-toolpath')\" > /dev/null 2>&1").c_str()) == 0;
  return present;
}

ResultatRs274 LanceToolpath(const std::string& fichier) {
  ResultatRs274 r;
  const std::string sortie = Dossier() + "/toolpath.out";
  const std::string commande = Node() + "'" + DossierSource() + "/tests/support/toolpath.js' '" + fichier +
                               "' > '" + sortie + "' 2> '" + sortie + ".err'";
  r.accepte = std::system(commande.c_str()) == 0;
  r.erreurs = LitFichierEssai(sortie + ".err");
  std::istringstream lignes(LitFichierEssai(sortie));
  std::string genre, mot;
  MouvementRs274 m;
  while (lignes >> genre >> mot >> m.x >> m.y >> m.z) {
    m.arc = genre == "A";
    m.rapide = mot == "G0";
    m.horaire = mot == "G2";
    if (m.arc) lignes >> m.cx >> m.cy;
    r.mouvements.push_back(m);
  }
  return r;
}

}  // namespace essai
