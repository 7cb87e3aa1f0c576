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

#include "tests/places/Lieux.h"

namespace {

namespace fs = std::filesystem;

struct Inclusion {
  std::string fichier, inclus;
};

std::vector<std::string> Sources(const std::string& dossier) {
  std::vector<std::string> fichiers;
  const fs::path racine = fs::path(essai::DossierSource()) / dossier;
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
    {"base", {"base/"}},
    {"closed", {"closed/", "base/"}},
    {"core", {"base/", "core/", "closed/Pathwerk.h", "closed/ZenikCom.h"}},
    {"database", {"base/", "database/", "core/", "closed/Pathwerk.h"}},
    {"machine", {"base/", "machine/", "core/", "closed/Pathwerk.h"}},
    {"toolpath", {"base/", "toolpath/", "core/", "closed/Pathwerk.h"}},
    {"image", {"base/", "image/", "toolpath/", "core/", "closed/Pathwerk.h"}},
    {"controller",
     {"base/", "controller/", "machine/", "core/", "closed/ZenikCom.h", "closed/CarteVirtuelle.h",
      "closed/Pathwerk.h"}},
    {"run",
     {"base/", "run/", "toolpath/", "machine/", "controller/", "core/", "closed/Pathwerk.h", "closed/ZenikCom.h"}},
    {"machine/essais",
     {"base/", "machine/essais/", "run/", "toolpath/", "machine/", "controller/", "core/", "closed/Pathwerk.h",
      "closed/ZenikCom.h"}},
    {"manual",
     {"base/", "manual/", "run/", "toolpath/", "machine/", "controller/", "core/", "closed/Pathwerk.h",
      "closed/ZenikCom.h"}},
    {"gcode",
     {"base/", "gcode/", "run/", "image/", "toolpath/", "machine/", "controller/", "core/", "closed/Pathwerk.h",
      "closed/ZenikCom.h"}},
    {"workspace",
     {"base/", "workspace/", "manual/", "run/", "image/", "toolpath/", "machine/", "database/", "controller/",
      "core/", "closed/Pathwerk.h", "closed/ZenikCom.h"}},
};

// The folder that a path belongs to: the deepest of the table that it lies in, "" for none.
std::string DossierDe(const std::string& chemin) {
  std::string trouve;
  for (const auto& [dossier, permis] : Permis) {
    if (chemin.starts_with(dossier + "/") && dossier.size() > trouve.size()) trouve = dossier;
  }
  return trouve;
}

// The windows of a folder use what the folder itself may use, the ground of all windows and nothing of another
// folder's windows: these they open by name.
std::map<std::string, std::set<std::string>> PermisFenetres() {
  std::map<std::string, std::set<std::string>> permis;
  for (const auto& [dossier, logique] : Permis) {
    if (dossier == "closed" || dossier == "base") continue;
    std::set<std::string>& debuts = permis[dossier + "/ui"];
    debuts = logique;
    debuts.insert("core/ui/");
    debuts.insert(dossier + "/ui/");
    // A picture in a window is painted by the one painter, whichever folder the window belongs to.
    if (logique.contains("image/")) debuts.insert("image/ui/");
  }
  return permis;
}

bool DeFenetres(const std::string& chemin) { return chemin.find("/ui/") != std::string::npos; }

// The part of a path below the project's root.
std::string Relatif(const std::string& fichier) {
  return fs::relative(fichier, fs::path(essai::DossierSource())).generic_string();
}

// Whether one of the beginnings allows this file. "run/" does not reach the windows in "run/ui/", nor does a folder
// reach one of the table that lies in it.
bool Autorise(const std::set<std::string>& permis, const std::string& inclus) {
  for (const std::string& debut : permis) {
    if (!inclus.starts_with(debut) || debut.size() < DossierDe(inclus).size()) continue;
    if (!DeFenetres(inclus) || DeFenetres(debut)) return true;
  }
  return false;
}

const std::set<std::string> Dossiers{"app",      "base",      "closed",  "controller", "core", "database",
                                     "gcode",    "image",     "machine", "manual",     "run",  "tests",
                                     "toolpath", "workspace", "fuzz",    "bench"};

// Inside the geometry library: room -> the rooms that it may use beside itself. Every room may use `commun`, which
// itself uses none. Readers know neither each other nor the offset, the offset no readers, nobody the pocket.
const std::map<std::string, std::set<std::string>> Pieces{
    {"commun", {}},
    {"lecture", {}},
    {"lecture/dxf", {"lecture"}},
    {"lecture/hpgl", {"lecture"}},
    {"lecture/processus", {}},
    {"lecture/eps", {"lecture", "lecture/processus"}},
    {"lecture/excellon", {"lecture"}},
    {"lecture/dat", {"lecture"}},
    {"lecture/svg", {"lecture", "texte"}},
    {"lecture/pdf", {"lecture", "lecture/svg", "lecture/processus"}},
    {"assemblage", {"lecture"}},
    {"chemin", {}},
    {"decalage", {"chemin"}},
    {"poche", {"decalage"}},
    {"texte", {}},
    {"ecriture", {}},
};

const std::string DossierPathwerk = "closed/pathwerk/";

// The room of a file of the geometry library: its folder below "closed/pathwerk/", "" for what stands over the
// rooms.
std::string PieceDe(const std::string& fichier) {
  const std::size_t fin = fichier.find_last_of('/');
  return fin < DossierPathwerk.size() ? "" : fichier.substr(DossierPathwerk.size(), fin - DossierPathwerk.size());
}

// Whether a file of the room `de` may include a file of the room `vers`. What stands over the rooms uses them all
// and is used by none.
bool PieceAutorise(const std::string& de, const std::string& vers) {
  if (de.empty() || de == vers) return true;
  const auto piece = Pieces.find(de);
  return piece != Pieces.end() && (piece->second.contains(vers) || vers == "commun");
}

// The table of folders in docs/architecture.md: folder -> the paths of its third column.
std::map<std::string, std::set<std::string>> TableDocumentee() {
  static const std::regex Rangee(R"(^\| `(\w+(?:/\w+)?)/` \|[^|]*\|([^|]*)\|$)");
  static const std::regex Chemin("`([^`]+)`");
  std::map<std::string, std::set<std::string>> table;
  std::ifstream f(fs::path(essai::DossierSource()) / "docs/architecture.md");
  std::string ligne;
  while (std::getline(f, ligne)) {
    std::smatch m;
    if (!std::regex_match(ligne, m, Rangee)) continue;
    std::set<std::string>& permis = table[m[1]];
    const std::string colonne = m[2];
    for (std::sregex_iterator i(colonne.begin(), colonne.end(), Chemin), fin; i != fin; ++i) permis.insert((*i)[1]);
  }
  return table;
}

bool DuProjet(const std::string& inclus) { return Dossiers.contains(inclus.substr(0, inclus.find('/'))); }

TEST(Inclusions, EachFolderUsesOnlyWhatTheTableAllows) {
  for (const auto& [dossier, permis] : Permis) {
    const auto inclusions = Inclusions(dossier);
    EXPECT_EQ(inclusions.empty(), !fs::exists(fs::path(essai::DossierSource()) / dossier)) << dossier;
    for (const Inclusion& i : inclusions) {
      const std::string fichier = Relatif(i.fichier);
      if (!DuProjet(i.inclus) || DeFenetres(fichier) || DossierDe(fichier) != dossier) continue;
      EXPECT_TRUE(Autorise(permis, i.inclus)) << i.fichier << " includes " << i.inclus;
    }
  }
}

TEST(Inclusions, TheTableInTheDocumentsIsThisOne) {
  const auto table = TableDocumentee();
  for (const auto& [dossier, permis] : Permis) {
    std::set<std::string> autres = permis;
    autres.erase(dossier + "/");
    const auto rangee = table.find(dossier);
    ASSERT_NE(rangee, table.end()) << dossier;
    EXPECT_EQ(rangee->second, autres) << dossier;
  }
}

TEST(Inclusions, WindowsUseTheirOwnFolderAndTheGroundOfWindows) {
  int fenetres = 0;
  for (const auto& [dossier, permis] : PermisFenetres()) {
    for (const Inclusion& i : Inclusions(dossier)) {
      ++fenetres;  // "X/ui" alone, which no other folder lies in
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
  EXPECT_TRUE(Autorise(fenetres.at("workspace/ui"), "image/ui/PeintScene.h"));
  EXPECT_FALSE(Autorise(fenetres.at("database/ui"), "image/ui/PeintScene.h"));
  EXPECT_FALSE(Autorise(fenetres.at("workspace/ui"), "run/ui/F_Fraisage.h"));
  EXPECT_FALSE(Autorise(fenetres.at("database/ui"), "run/Module_GCode.h"));
  EXPECT_FALSE(Autorise(fenetres.at("core/ui"), "workspace/Vue.h"));
  EXPECT_FALSE(Autorise(Permis.at("workspace"), "core/ui/Theme.h"));
  EXPECT_FALSE(Autorise(Permis.at("run"), "run/ui/F_Fraisage.h"));
}

TEST(Inclusions, AFolderInsideAnotherIsAFolderOfItsOwn) {
  EXPECT_EQ(DossierDe("machine/Module_Table.h"), "machine");
  EXPECT_EQ(DossierDe("machine/essais/EssaiVitesse.h"), "machine/essais");
  EXPECT_FALSE(Autorise(Permis.at("machine"), "machine/essais/EssaiVitesse.h"));
  EXPECT_FALSE(Autorise(Permis.at("controller"), "machine/essais/EssaiVitesse.h"));
  EXPECT_TRUE(Autorise(Permis.at("machine/essais"), "machine/essais/EssaiVitesse.h"));
  EXPECT_TRUE(Autorise(Permis.at("machine/essais"), "machine/Module_Table.h"));
  const auto fenetres = PermisFenetres();
  EXPECT_TRUE(Autorise(fenetres.at("machine/essais/ui"), "machine/essais/EssaiVitesse.h"));
  EXPECT_TRUE(Autorise(fenetres.at("machine/essais/ui"), "machine/essais/ui/F_Test.h"));
  EXPECT_TRUE(Autorise(Permis.at("workspace"), "manual/Module_PilMan.h"));
  EXPECT_FALSE(Autorise(Permis.at("run"), "manual/Module_PilMan.h"));
}

TEST(Inclusions, EachRoomOfTheGeometryLibraryUsesOnlyWhatItsTableAllows) {
  std::set<std::string> vues;
  for (const Inclusion& i : Inclusions("closed/pathwerk")) {
    const std::string piece = PieceDe(Relatif(i.fichier));
    vues.insert(piece);
    if (!i.inclus.starts_with(DossierPathwerk)) continue;
    EXPECT_TRUE(PieceAutorise(piece, PieceDe(i.inclus))) << i.fichier << " includes " << i.inclus;
  }
  vues.erase("");
  for (const std::string& piece : vues) EXPECT_TRUE(Pieces.contains(piece)) << piece << " is in no table";
  EXPECT_EQ(vues.size(), Pieces.size());
}

TEST(Inclusions, ReadersKnowNoOffsetAndTheOffsetNoReaders) {
  EXPECT_EQ(PieceDe("closed/pathwerk/lecture/dxf/Sommaire.h"), "lecture/dxf");
  EXPECT_EQ(PieceDe("closed/pathwerk/LireFichier.cpp"), "");
  EXPECT_TRUE(PieceAutorise("", "poche"));
  EXPECT_TRUE(PieceAutorise("poche", "decalage"));
  EXPECT_FALSE(PieceAutorise("decalage", "poche"));
  EXPECT_FALSE(PieceAutorise("commun", "lecture"));
  EXPECT_FALSE(PieceAutorise("lecture/dxf", "lecture/hpgl"));
  EXPECT_FALSE(PieceAutorise("lecture", "lecture/dxf"));
  for (const auto& [piece, permises] : Pieces) {
    const bool lit = piece.starts_with("lecture") || piece == "assemblage";
    for (const char* autre : {"decalage", "poche", "chemin"}) {
      EXPECT_FALSE(lit && PieceAutorise(piece, autre)) << piece << " may use " << autre;
      EXPECT_FALSE(PieceAutorise(autre, piece) && lit) << autre << " may use " << piece;
    }
  }
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
  // Geometry, font and shaping libraries are named inside closed/ alone.
  static const std::regex Bibliotheques(
      R"(^(polyclipping/.*|clipper\.hpp|ft2build\.h|freetype/.*|hb.*\.h|fontconfig/.*|hidapi/.*|pugi.*)$)");
  for (const auto& [dossier, permis] : Permis) {
    if (dossier == "closed") continue;
    for (const Inclusion& i : Inclusions(dossier)) {
      EXPECT_FALSE(std::regex_match(i.inclus, Bibliotheques)) << i.fichier << " includes " << i.inclus;
    }
  }
}

TEST(Inclusions, PicturesInFilesArePaintedInOneFolder) {
  int peintres = 0;
  for (const std::string dossier : {"app", "closed", "controller", "core", "database", "gcode", "image", "machine",
                                    "manual", "run", "toolpath", "workspace"}) {
    for (const Inclusion& i : Inclusions(dossier)) {
      if (!i.inclus.starts_with("cairo")) continue;
      EXPECT_EQ(dossier, "image") << i.fichier << " includes " << i.inclus;
      ++peintres;
    }
  }
  EXPECT_GT(peintres, 0);
}

TEST(Inclusions, HeadersOfTheClosedLibrariesNameTheStandardLibraryAlone) {
  for (const char* entete : {"closed/Pathwerk.h", "closed/ZenikCom.h", "closed/CarteVirtuelle.h"}) {
    for (const Inclusion& i : Inclusions("closed")) {
      if (!i.fichier.ends_with(entete)) continue;
      EXPECT_EQ(i.inclus.find('/'), std::string::npos) << entete << " includes " << i.inclus;
      EXPECT_EQ(i.inclus.find('.'), std::string::npos) << entete << " includes " << i.inclus;
    }
  }
}

// Sources a folder holds itself, its subfolders apart.
std::map<std::string, int> SourcesParDossier() {
  std::map<std::string, int> nombres;
  for (const std::string& dossier : Dossiers) {
    for (const std::string& fichier : Sources(dossier)) {
      if (fichier.ends_with(".cpp")) ++nombres[Relatif(fs::path(fichier).parent_path().string())];
    }
  }
  return nombres;
}

TEST(Files, AFolderHoldsAtMostThirtySources) {
  const auto nombres = SourcesParDossier();
  EXPECT_GT(nombres.size(), 30U);
  for (const auto& [dossier, nombre] : nombres) EXPECT_LE(nombre, 30) << dossier;
}

TEST(Files, EveryRoomOfTheGeometryLibrarySaysWhatItIs) {
  for (const auto& [piece, permises] : Pieces) {
    EXPECT_TRUE(fs::exists(fs::path(essai::DossierSource()) / DossierPathwerk / piece / "README.md")) << piece;
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
