// The part of the law of names that files obey: whoever sees a procedure called finds its header and its source by
// one name, and the tests of a source by the same name again.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <string>
#include <vector>

#include "tests/places/Lieux.h"

namespace {

namespace fs = std::filesystem;

const fs::path Racine(essai::DossierSource());

// Sources that have no header of their name and need none, each with the reason.
const std::map<std::string, std::string> SansEntete{
    {"app/cli/main.cpp", "the program"},
    {"app/ovelin/main.cpp", "the program"},
    {"controller/EtatZENIK.cpp", "methods of ClsCdeZENIK"},
    {"controller/Flash.cpp", "methods of ClsCdeZENIK"},
    {"controller/KR4400.cpp", "methods of ClsCdeZENIK"},
    {"controller/MouvementsZENIK.cpp", "methods of ClsCdeZENIK"},
    {"controller/SortiesZENIK.cpp", "methods of ClsCdeZENIK"},
    {"controller/TablesCarte.cpp", "methods of ClsCdeZENIK"},
    {"controller/TravailZENIK.cpp", "methods of ClsCdeZENIK"},
};

std::string Octets(const fs::path& chemin) {
  std::ifstream f(chemin);
  return {std::istreambuf_iterator<char>(f), {}};
}

std::vector<fs::path> Sources(std::initializer_list<const char*> dossiers) {
  std::vector<fs::path> sources;
  for (const char* dossier : dossiers) {
    for (const auto& entree : fs::recursive_directory_iterator(Racine / dossier)) {
      if (entree.path().extension() == ".cpp") sources.push_back(entree.path());
    }
  }
  return sources;
}

std::vector<fs::path> SourcesDuProduit() {
  return Sources({"app", "base", "closed", "controller", "core", "database", "gcode", "image", "machine", "run",
                  "toolpath", "workspace"});
}

std::string Relatif(const fs::path& chemin) { return fs::relative(chemin, Racine).generic_string(); }

// `F_BD_Saisie.cpp`: methods of the class of `F_BD.h` that would make its own source too long.
bool EstPartieDUneClasse(const fs::path& source) {
  const std::string nom = source.stem().string();
  const std::size_t barre = nom.rfind('_');
  if (barre == std::string::npos) return false;
  const fs::path entete = source.parent_path() / (nom.substr(0, barre) + ".h");
  return fs::exists(entete) && Octets(source).find("\"" + Relatif(entete) + "\"") != std::string::npos;
}

// A procedure of an interface that stands for the whole library: the source is named as the procedure.
bool EstProcedureDUneInterface(const fs::path& source) {
  if (!Relatif(source).starts_with("closed/")) return false;
  const std::regex declaration("\\b" + source.stem().string() + "\\(");
  for (const auto& entree : fs::directory_iterator(Racine / "closed")) {
    if (entree.path().extension() == ".h" && std::regex_search(Octets(entree.path()), declaration)) return true;
  }
  return false;
}

bool ASonEntete(const fs::path& source) {
  return fs::exists(fs::path(source).replace_extension(".h")) || EstPartieDUneClasse(source) ||
         EstProcedureDUneInterface(source);
}

TEST(Names, EverySourceHasAHeaderOfItsName) {
  std::size_t sources = 0;
  for (const fs::path& source : SourcesDuProduit()) {
    ++sources;
    EXPECT_TRUE(ASonEntete(source) || SansEntete.contains(Relatif(source))) << Relatif(source);
  }
  EXPECT_GT(sources, 200U);
}

TEST(Names, NoExceptionStandsForASourceThatIsGoneOrHasItsHeader) {
  for (const auto& [source, raison] : SansEntete) {
    EXPECT_TRUE(fs::exists(Racine / source)) << source;
    EXPECT_FALSE(ASonEntete(Racine / source)) << source;
    EXPECT_FALSE(raison.empty()) << source;
  }
}

// The first header of one's own that a source includes is its own, or the check above would hold for any empty
// file.
TEST(Names, EverySourceIncludesTheHeaderOfItsName) {
  for (const fs::path& source : SourcesDuProduit()) {
    const fs::path entete = fs::path(source).replace_extension(".h");
    if (!fs::exists(entete)) continue;
    EXPECT_NE(Octets(source).find("\"" + Relatif(entete) + "\""), std::string::npos) << Relatif(source);
  }
}

TEST(Names, AFileWithTestsIsTestAndTheNameOfWhatItTests) {
  const std::regex test(R"(\n(TEST|TEST_F|TEST_P|TYPED_TEST)\()"), nom("test_[A-Z][A-Za-z0-9_]*");
  std::size_t fichiers = 0;
  for (const fs::path& source : Sources({"tests/unit", "tests/ui"})) {
    const bool tests = std::regex_search(Octets(source), test);
    fichiers += tests ? 1 : 0;
    EXPECT_EQ(tests, std::regex_match(source.stem().string(), nom)) << Relatif(source);
  }
  EXPECT_GT(fichiers, 100U);
}

}  // namespace
