// The icons: one family, complete, in colours that follow the theme.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "tests/places/Lieux.h"

namespace {

namespace fs = std::filesystem;

const fs::path Dossier = fs::path(essai::DossierSource()) / "core/ui";
constexpr const char* IconeDuProgramme = "OVELIN-2";  // the only one with colours of its own

std::string Lit(const fs::path& chemin) {
  std::ifstream f(chemin, std::ios::binary);
  std::ostringstream s;
  s << f.rdbuf();
  return s.str();
}

// Drawings by their name without extension.
std::map<std::string, std::string> Dessins() {
  std::map<std::string, std::string> dessins;
  for (const auto& entree : fs::directory_iterator(Dossier / "icones")) {
    if (entree.path().extension() == ".svg") dessins[entree.path().stem().string()] = Lit(entree.path());
  }
  return dessins;
}

// Names under which the program asks, and the drawing behind each.
std::map<std::string, std::string> Ressources() {
  static const std::regex Ligne(R"re(alias="([\w-]+)\.svg">icones/([\w-]+)\.svg<)re");
  const std::string texte = Lit(Dossier / "icones.qrc");
  std::map<std::string, std::string> noms;
  for (std::sregex_iterator i(texte.begin(), texte.end(), Ligne), fin; i != fin; ++i) noms[(*i)[1]] = (*i)[2];
  return noms;
}

TEST(Icons, EveryDrawingIsInTheProgramAndEveryNameHasItsDrawing) {
  const auto dessins = Dessins();
  std::set<std::string> servis;
  for (const auto& [nom, dessin] : Ressources()) {
    EXPECT_TRUE(dessins.contains(dessin)) << nom << ": no drawing " << dessin;
    servis.insert(dessin);
  }
  for (const auto& [nom, texte] : dessins) EXPECT_TRUE(servis.contains(nom)) << nom << " is in no resource";
  EXPECT_GT(dessins.size(), 60U);
}

TEST(Icons, OnlyTheTwoPlaceholdersAreColours) {
  static const std::regex Peinture(R"re((?:stroke|fill|stop-color|color)="([^"]*)")re");
  const std::set<std::string> permises{"#101010", "#E07020", "none"};
  for (const auto& [nom, texte] : Dessins()) {
    if (nom == IconeDuProgramme) continue;
    EXPECT_EQ(texte.find("style="), std::string::npos) << nom;
    for (std::sregex_iterator i(texte.begin(), texte.end(), Peinture), fin; i != fin; ++i) {
      EXPECT_TRUE(permises.contains((*i)[1])) << nom << ": " << (*i)[1];
    }
  }
}

TEST(Icons, OneFamilyOfOneGridWithoutTextOrPictures) {
  for (const auto& [nom, texte] : Dessins()) {
    for (const char* etranger : {"<text", "<image", "Gradient", "<filter", "<style", "href"}) {
      EXPECT_EQ(texte.find(etranger), std::string::npos) << nom << ": " << etranger;
    }
    if (nom == IconeDuProgramme) continue;
    EXPECT_NE(texte.find("viewBox=\"0 0 24 24\""), std::string::npos) << nom;
    EXPECT_NE(texte.find("stroke-width=\"1.75\""), std::string::npos) << nom;
  }
}

}  // namespace
