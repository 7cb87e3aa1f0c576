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

// The windows of a folder use what the folder itself may use, the ground of all windows and nothing of another
// folder's windows: these they open by name.
std::map<std::string, std::set<std::string>> PermisFenetres() {
  std::map<std::string, std::set<std::string>> permis;
  for (const auto& [dossier, logique] : Permis) {
    if (dossier == "closed") continue;
    std::set<std::string>& debuts = permis[dossier + "/ui"];
    debuts = logique;
    debuts.insert("core/ui/");
    debuts.insert(dossier + "/ui/");
  }
  return permis;
}

bool DeFenetres(const std::string& chemin) { return chemin.find("/ui/") != std::string::npos; }

// The part of a path below the project's root.
std::string Relatif(const std::string& fichier) {
  return fs::relative(fichier, fs::path(OVELIN_SOURCE_DIR)).generic_string();
}

// Whether one of the beginnings allows this file. "run/" does not reach the windows in "run/ui/".
bool Autorise(const std::set<std::string>& permis, const std::string& inclus) {
  for (const std::string& debut : permis) {
    if (!inclus.starts_with(debut)) continue;
    if (!DeFenetres(inclus) || DeFenetres(debut)) return true;
  }
  return false;
}

const std::set<std::string> Dossiers{"app",    "closed", "controller", "core",     "database",  "gcode", "machine",
                                     "manual", "run",    "tests",      "toolpath", "workspace", "fuzz",  "bench"};

bool DuProjet(const std::string& inclus) { return Dossiers.contains(inclus.substr(0, inclus.find('/'))); }

TEST(Inclusions, EachFolderUsesOnlyWhatTheTableAllows) {
  for (const auto& [dossier, permis] : Permis) {
    const auto inclusions = Inclusions(dossier);
    EXPECT_FALSE(inclusions.empty()) << dossier;
    for (const Inclusion& i : inclusions) {
      if (!DuProjet(i.inclus) || DeFenetres(Relatif(i.fichier))) continue;
      EXPECT_TRUE(Autorise(permis, i.inclus)) << i.fichier << " includes " << i.inclus;
    }
  }
}

TEST(Inclusions, WindowsUseTheirOwnFolderAndTheGroundOfWindows) {
  int fenetres = 0;
  for (const auto& [dossier, permis] : PermisFenetres()) {
    for (const Inclusion& i : Inclusions(dossier)) {
      ++fenetres;
      if (!DuProjet(i.inclus)) continue;
      EXPECT_TRUE(Autorise(permis, i.inclus)) << i.fichier << " includes " << i.inclus;
    }
  }
  EXPECT_GT(fenetres, 50);
}

TEST(Inclusions, TheTableTellsWindowsFromLogic) {
  const auto fenetres = PermisFenetres();
  EXPECT_TRUE(Autorise(fenetres.at("workspace/ui"), "core/ui/Theme.h"));
  EXPECT_TRUE(Autorise(fenetres.at("workspace/ui"), "run/Module_GCode.h"));
  EXPECT_TRUE(Autorise(fenetres.at("workspace/ui"), "workspace/ui/F_Representation.h"));
  EXPECT_FALSE(Autorise(fenetres.at("workspace/ui"), "run/ui/F_Fraisage.h"));
  EXPECT_FALSE(Autorise(fenetres.at("database/ui"), "run/Module_GCode.h"));
  EXPECT_FALSE(Autorise(fenetres.at("core/ui"), "workspace/Vue.h"));
  EXPECT_FALSE(Autorise(Permis.at("workspace"), "core/ui/Theme.h"));
  EXPECT_FALSE(Autorise(Permis.at("run"), "run/ui/F_Fraisage.h"));
}

TEST(Inclusions, NoLogicFolderKnowsTheWindowToolkit) {
  static const std::regex Qt(R"(^(Q[A-Z]\w+|Qt\w*/.*|q[a-z]+\.h)$)");
  for (const auto& [dossier, permis] : Permis) {
    for (const Inclusion& i : Inclusions(dossier)) {
      if (DeFenetres(Relatif(i.fichier))) continue;
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
