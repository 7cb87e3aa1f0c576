// The dependency rules between folders, read from every #include: one include root lets a wrong include compile,
// so link rules alone do not keep them.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct Inclusion {
  std::string fichier, inclus;
};

std::vector<std::string> Sources(const std::string& dossier) {
  std::vector<std::string> fichiers;
  const fs::path racine = fs::path(OVELIN_SOURCE_DIR) / dossier;
  if (!fs::exists(racine)) return fichiers;
  for (const auto& entree : fs::recursive_directory_iterator(racine)) {
    const std::string extension = entree.path().extension().string();
    if (extension == ".h" || extension == ".cpp") fichiers.push_back(entree.path().string());
  }
  return fichiers;
}

std::vector<Inclusion> Inclusions(const std::string& dossier) {
  static const std::regex Motif(R"(^\s*#\s*include\s*[<"]([^>"]+)[>"])");
  std::vector<Inclusion> toutes;
  for (const std::string& fichier : Sources(dossier)) {
    std::ifstream f(fichier);
    std::string ligne;
    while (std::getline(f, ligne)) {
      std::smatch m;
      if (std::regex_search(ligne, m, Motif)) toutes.push_back({fichier, m[1]});
    }
  }
  return toutes;
}

// Folder -> what it may include of this project, by the start of the path.
const std::map<std::string, std::set<std::string>> Permis{
    {"closed", {"closed/"}},
    {"core", {"core/", "closed/Pathwerk.h", "closed/ZenikCom.h"}},
    {"database", {"database/", "core/", "closed/Pathwerk.h"}},
    {"machine", {"machine/", "core/", "closed/Pathwerk.h"}},
    {"toolpath", {"toolpath/", "core/", "closed/Pathwerk.h"}},
    {"controller", {"controller/", "machine/", "core/", "closed/ZenikCom.h", "closed/Pathwerk.h"}},
    {"run", {"run/", "toolpath/", "machine/", "controller/", "core/", "closed/Pathwerk.h", "closed/ZenikCom.h"}},
    {"workspace",
     {"workspace/", "run/", "toolpath/", "machine/", "database/", "controller/", "core/", "closed/Pathwerk.h",
      "closed/ZenikCom.h"}},
};

const std::set<std::string> Dossiers{"app",    "closed", "controller", "core",     "database",  "gcode", "machine",
                                     "manual", "run",    "tests",      "toolpath", "workspace", "fuzz",  "bench"};

bool DuProjet(const std::string& inclus) { return Dossiers.contains(inclus.substr(0, inclus.find('/'))); }

TEST(Inclusions, EachFolderUsesOnlyWhatTheTableAllows) {
  for (const auto& [dossier, permis] : Permis) {
    const auto inclusions = Inclusions(dossier);
    EXPECT_FALSE(inclusions.empty()) << dossier;
    for (const Inclusion& i : inclusions) {
      if (!DuProjet(i.inclus)) continue;
      bool bonne = false;
      for (const std::string& debut : permis) bonne = bonne || i.inclus.starts_with(debut);
      EXPECT_TRUE(bonne) << i.fichier << " includes " << i.inclus;
    }
  }
}

TEST(Inclusions, NoLogicFolderKnowsTheWindowToolkit) {
  static const std::regex Qt(R"(^(Q[A-Z]\w+|Qt\w*/.*|q[a-z]+\.h)$)");
  for (const auto& [dossier, permis] : Permis) {
    for (const Inclusion& i : Inclusions(dossier)) {
      if (i.fichier.find("/ui/") != std::string::npos) continue;
      EXPECT_FALSE(std::regex_match(i.inclus, Qt)) << i.fichier << " includes " << i.inclus;
    }
  }
}

TEST(Inclusions, TheClosedLibrariesKeepTheirOwnLibrariesToThemselves) {
  // Geometry, font and shaping libraries are named inside closed/ alone; pictures of the command line in app/
  // alone.
  static const std::regex Bibliotheques(
      R"(^(polyclipping/.*|clipper\.hpp|ft2build\.h|freetype/.*|hb.*\.h|fontconfig/.*|hidapi/.*)$)");
  for (const auto& [dossier, permis] : Permis) {
    if (dossier == "closed") continue;
    for (const Inclusion& i : Inclusions(dossier)) {
      EXPECT_FALSE(std::regex_match(i.inclus, Bibliotheques)) << i.fichier << " includes " << i.inclus;
    }
  }
}

TEST(Inclusions, HeadersOfTheClosedLibrariesNameTheStandardLibraryAlone) {
  for (const char* entete : {"closed/Pathwerk.h", "closed/ZenikCom.h"}) {
    for (const Inclusion& i : Inclusions("closed")) {
      if (!i.fichier.ends_with(entete)) continue;
      EXPECT_EQ(i.inclus.find('/'), std::string::npos) << entete << " includes " << i.inclus;
      EXPECT_EQ(i.inclus.find('.'), std::string::npos) << entete << " includes " << i.inclus;
    }
  }
}

TEST(Files, StayShortEnoughToBeReadAtOnce) {
  for (const auto& [dossier, permis] : Permis) {
    for (const std::string& fichier : Sources(dossier)) {
      std::ifstream f(fichier);
      long lignes = 0;
      std::string ligne;
      while (std::getline(f, ligne)) ++lignes;
      EXPECT_LE(lignes, 600) << fichier;
    }
  }
}

}  // namespace
