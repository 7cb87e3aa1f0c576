// Keys of texts, of fields of a machine table and of settings stand in their tables alone. The compiler keeps most
// of that; where a procedure takes any key, because windows and users' calls make some at run time, the sources are
// read.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <string>

#include "tests/places/Lieux.h"

namespace {

namespace fs = std::filesystem;

// A text's key; a text fetched by one; a field's key; a setting's key.
const std::regex Brute(R"re("[Ll]ib\d{3}\w*"|\b(?:Traduire|TraduireOu)\(\s*")re"
                       R"re(|"(?:TB|CB|Combo|COMBO|Option|OPTION|Sld|SLD)_SAV_)re"
                       R"re(|\b(?:LireCle\w*|LireNombre\w*|LireBooleen|EcrireCle|SupprimerCle)\(\s*")re");

std::string SansCommentaires(const fs::path& chemin) {
  std::ifstream f(chemin);
  std::string texte;
  std::string ligne;
  while (std::getline(f, ligne)) texte += ligne.substr(0, ligne.find("//")) + '\n';
  return texte;
}

TEST(Cles, AreRecognisedWhereTheyAreSpelledOut) {
  for (const char* source :
       {"boite.cle = \"lib001\";", "Traduire(\"cli\", cle)", "LireNombreTable(\"TB_SAV_0\", 1)",
        "Lit(\"COMBO_SAV_\" + n)", "EcrireCle(\"RayonFraise\", texte)", "LireCleIni( \"x\")"}) {
    EXPECT_TRUE(std::regex_search(source, Brute)) << source;
  }
  for (const char* source :
       {"Traduire(Textes::EcritureRefusee)", "LireCle(cles::Fichier, \"\")", "{\"libre\", 1}"}) {
    EXPECT_FALSE(std::regex_search(source, Brute)) << source;
  }
}

TEST(Cles, StandInTheirTablesAlone) {
  int sources = 0;
  for (const char* dossier :
       {"app", "controller", "core", "database", "image", "machine", "manual", "run", "toolpath", "workspace"}) {
    for (const auto& entree : fs::recursive_directory_iterator(fs::path(essai::DossierSource()) / dossier)) {
      const fs::path extension = entree.path().extension();
      if (extension != ".cpp" && extension != ".h") continue;
      ++sources;
      const std::string texte = SansCommentaires(entree.path());
      for (std::sregex_iterator i(texte.begin(), texte.end(), Brute), fin; i != fin; ++i) {
        ADD_FAILURE() << entree.path().filename() << ": " << i->str();
      }
    }
  }
  EXPECT_GT(sources, 100);
}

}  // namespace
