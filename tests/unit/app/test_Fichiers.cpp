// Files as people name them on the command line: relative, through links, from another folder; and what an output
// may not be.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/unit/app/Appel.h"

namespace {

using essai::Atelier;
using essai::Carre;
using essai::GaucheDesCoupes;

// A project of 20 x 10 mm, clockwise, with settings of its own: radius 0.8 where the settings file has 3.
std::string Projet(double rayon = 0.8) {
  const auto point = [](const char* x, const char* y) {
    std::string ligne = x;
    ligne.resize(15, ' ');
    ligne += y;
    ligne.resize(30, ' ');
    ligne += "PD";
    ligne.resize(45, ' ');
    ligne += " A";
    ligne.resize(60, ' ');
    return ligne + "\r\n";
  };
  return "$$RayonFraise=" + std::to_string(rayon) + "\r\n$$ProfFraisage=-2\r\n$$ProfPasse=-2\r\n" +
         point("10", "10") + point("10", "20") + point("30", "20") + point("30", "10") + point("10", "10");
}

// The settings of the project come with it: the tool passes its radius beside the edge at 10 mm.
void AttendRayonDuProjet(const Atelier& a, const std::string& dossier, const std::string& nom) {
  const std::string nc = a.Chemin("job.nc");
  std::filesystem::remove(nc);
  const auto r = a.AppelleDans(dossier, {"gcode", nom, "-o", nc});
  ASSERT_EQ(r.etat, 0) << nom << r.erreurs;
  EXPECT_NEAR(GaucheDesCoupes(Atelier::Lit(nc)), 10 - 0.8, 0.002) << nom;
}

TEST(Project, KeepsItsSettingsHoweverItIsNamed) {
  const Atelier a;
  std::filesystem::create_directories(a.Chemin("un dossier/sous"));
  const std::string dossier = a.Chemin("un dossier");
  a.Ecrit("un dossier/pièce été.OVL", Projet());
  std::filesystem::create_directory_symlink(dossier + "/sous", a.Chemin("lien"));
  std::filesystem::create_symlink(dossier + "/pièce été.OVL", a.Chemin("nom.OVL"));
  AttendRayonDuProjet(a, dossier, "pièce été.OVL");
  AttendRayonDuProjet(a, dossier, "./pièce été.OVL");
  AttendRayonDuProjet(a, dossier, dossier + "/pièce été.OVL");
  AttendRayonDuProjet(a, dossier, "sous/../pièce été.OVL");
  AttendRayonDuProjet(a, dossier + "/sous", "../pièce été.OVL");
  AttendRayonDuProjet(a, a.Chemin(""), "nom.OVL");
  AttendRayonDuProjet(a, a.Chemin(""), "lien/../pièce été.OVL");  // behind the link, not in front of it
  AttendRayonDuProjet(a, a.Chemin("lien"), "../../un dossier/pièce été.OVL");
}

TEST(Project, ItsSettingsAreSavedAgainFromANameAlone) {
  const Atelier a;
  a.Ecrit("p.OVL", Projet());
  const auto r = a.AppelleDans(a.Chemin(""), {"save", "p.OVL", "-o", "q.OVL"});
  ASSERT_EQ(r.etat, 0) << r.erreurs;
  EXPECT_NE(Atelier::Lit(a.Chemin("q.OVL")).find("$$RayonFraise=0.8\r\n"), std::string::npos);
  EXPECT_NE(Atelier::Lit(a.Chemin("q.OVL")).find("$$ProfPasse=-2\r\n"), std::string::npos);
}

// --- an output that is an input

void AttendEntreeGardee(const Atelier& a, const std::string& entree, const std::vector<std::string>& appel) {
  const std::string avant = Atelier::Lit(entree);
  ASSERT_FALSE(avant.empty());
  const auto r = a.Appelle(appel);
  EXPECT_EQ(r.etat, 1) << appel[0];
  EXPECT_EQ(r.Json()["error"]["key"], "cli_sortie") << appel[0] << r.sortie << r.erreurs;
  EXPECT_EQ(Atelier::Lit(entree), avant) << appel[0];
}

TEST(Output, ThatIsTheInputIsRefusedByEveryCommand) {
  const Atelier a;
  const std::string dxf = a.Ecrit("in.dxf", Carre);
  const std::string projet = a.Ecrit("in.OVL", Projet());
  const std::string operations = a.Ecrit("ops.json", R"([{"op":"SelectionneTout"}])");
  AttendEntreeGardee(a, dxf, {"gcode", dxf, "-o", dxf, "--json"});
  AttendEntreeGardee(a, projet, {"save", projet, "-o", projet, "--json"});
  AttendEntreeGardee(a, projet, {"edit", projet, "--do", operations, "-o", projet, "--json"});
  AttendEntreeGardee(a, operations, {"edit", projet, "--do", operations, "-o", operations, "--json"});
  AttendEntreeGardee(a, dxf, {"export", dxf, "-o", dxf, "--json"});
  AttendEntreeGardee(a, dxf, {"trace", dxf, "-o", dxf, "--json"});
  AttendEntreeGardee(a, dxf, {"plan", dxf, "--rows", dxf, "--json"});
}

TEST(Output, ThatIsTheInputThroughALinkIsRefused) {
  const Atelier a;
  const std::string dxf = a.Ecrit("in.dxf", Carre);
  std::filesystem::create_symlink(dxf, a.Chemin("lien.dxf"));
  std::filesystem::create_hard_link(dxf, a.Chemin("dur.dxf"));
  AttendEntreeGardee(a, dxf, {"export", dxf, "-o", a.Chemin("lien.dxf"), "--json"});
  AttendEntreeGardee(a, dxf, {"export", a.Chemin("lien.dxf"), "-o", dxf, "--json"});
  AttendEntreeGardee(a, dxf, {"export", dxf, "-o", a.Chemin("dur.dxf"), "--json"});
  AttendEntreeGardee(a, dxf, {"export", dxf, "-o", a.Chemin("./in.dxf"), "--json"});
}

TEST(Output, ThatIsTheInputUnderANumberIsRefused) {
  const Atelier a;
  const std::string projet = a.Chemin("p.OVL");
  ASSERT_EQ(a.Appelle({"save", a.Ecrit("carre.dxf", Carre), "-o", projet}).etat, 0);  // two paths
  std::filesystem::create_symlink(projet, a.Chemin("cut002.dat"));
  AttendEntreeGardee(a, projet, {"export", projet, "-o", a.Chemin("cut.dat"), "--json", "--answer", "lib003=ok"});
  EXPECT_FALSE(std::filesystem::exists(a.Chemin("cut001.dat")));
}

TEST(Output, HasTheExtensionOfWhatIsWritten) {
  const Atelier a;
  const std::string dxf = a.Ecrit("in.dxf", Carre);
  const std::string operations = a.Ecrit("ops.json", R"([{"op":"SelectionneTout"}])");
  const std::string autre = a.Chemin("autre.dxf");
  for (const std::vector<std::string>& appel :
       std::vector<std::vector<std::string>>{{"save", dxf, "-o", autre, "--json"},
                                             {"edit", dxf, "--do", operations, "-o", autre, "--json"},
                                             {"trace", dxf, "-o", autre, "--json"},
                                             {"plan", dxf, "--rows", autre, "--json"}}) {
    const auto r = a.Appelle(appel);
    EXPECT_EQ(r.etat, 1) << appel[0];
    EXPECT_EQ(r.Json()["error"]["key"], "cli_extension") << appel[0];
    EXPECT_FALSE(std::filesystem::exists(autre)) << appel[0];
  }
  // Either case, and what is no file takes anything.
  EXPECT_EQ(a.Appelle({"trace", dxf, "-o", a.Chemin("t.JSON")}).etat, 0);
  EXPECT_EQ(a.Appelle({"trace", dxf, "-o", "/dev/null"}).etat, 0);
}

TEST(Info, TheUnitOfASvgComesByAnOption) {
  const Atelier a;
  const std::string svg = a.Ecrit("a.svg", "<svg viewBox=\"0 0 20 10\"><path d=\"M0 0H20V10z\"/></svg>");
  const auto largeur = [](const essai::Retour& r) {
    const auto bornes = r.Json()["bounds"];
    return bornes["xmax"].get<double>() - bornes["xmin"].get<double>();
  };
  EXPECT_NEAR(largeur(a.Appelle({"info", svg, "--json", "--unit", "cm"})), 200, 0.01);
  EXPECT_NEAR(largeur(a.Appelle({"info", svg, "--json", "--unit", "px"})), 20 * 25.4 / 96, 0.01);
  EXPECT_EQ(a.Appelle({"info", svg, "--unit", "mm"}).erreurs, "");
  const auto sans = a.Appelle({"info", svg, "--json", "--lang", "en"});
  EXPECT_EQ(sans.etat, 0);
  EXPECT_NE(sans.erreurs.find("20 x 10"), std::string::npos) << sans.erreurs;
  EXPECT_NEAR(largeur(sans), 20 * 25.4 / 96, 0.01);
  EXPECT_EQ(a.Appelle({"info", svg, "--unit", "ell"}).etat, 2);
}

TEST(Save, AProjectWithAllItsPointsInOnePlaceIsToldToBeOneThatCantBeOpened) {
  const Atelier a;
  const std::string trou = a.Ecrit("un.drl", "M48\nMETRIC,TZ\nT1C1.0\n%\nT1\nX10.0Y10.0\nM30\n");
  const auto r = a.Appelle({"save", trou, "-o", a.Chemin("un.OVL"), "--lang", "en"});
  EXPECT_EQ(r.etat, 0) << r.erreurs;
  EXPECT_NE(r.erreurs.find("can't be opened again"), std::string::npos) << r.erreurs;
  EXPECT_NE(r.erreurs.find(a.Chemin("un.OVL")), std::string::npos);
  EXPECT_EQ(a.Appelle({"save", a.Ecrit("c.dxf", Carre), "-o", a.Chemin("c.OVL")}).erreurs, "");
}

TEST(Plan, WhatLiesBeyondTheTravelIsToldByItsAxis) {
  const Atelier a;
  const std::string dxf = a.Ecrit("c.dxf", Carre);  // from 5 to 45 mm, the tool 3 mm outside
  const auto dit = [](const essai::Retour& r) {
    double min = 0, max = 0, course = 0;
    const std::size_t ici = r.erreurs.find("X: ");
    EXPECT_NE(ici, std::string::npos) << r.erreurs;
    if (ici == std::string::npos) return;
    EXPECT_EQ(std::sscanf(r.erreurs.c_str() + ici, "X: %lf ... %lf mm (0 ... %lf mm)", &min, &max, &course), 3);
    EXPECT_NEAR(min, 2, 0.01);
    EXPECT_NEAR(max, 48, 0.01);
    EXPECT_EQ(course, 40);
  };
  const auto r = a.Appelle({"plan", dxf, "--set", "TB_SAV_18=40", "--set", "TB_SAV_19=500"});
  EXPECT_EQ(r.etat, 0) << r.erreurs;
  dit(r);
  EXPECT_EQ(r.erreurs.find("Y:"), std::string::npos) << r.erreurs;
  dit(a.Appelle({"gcode", dxf, "-o", a.Chemin("c.nc"), "--set", "TB_SAV_18=40"}));
  EXPECT_EQ(a.Appelle({"plan", dxf, "--set", "TB_SAV_18=500", "--set", "TB_SAV_19=500"}).erreurs, "");
}

TEST(Drawing, FarBeyondTheMemoryIsRefusedByItsSize) {
  const Atelier a;
  for (const char* nom : {"grand.dxf", "grand.OVL", "grand.plt"}) {
    const std::string grand = a.Ecrit(nom, "0\n");
    std::error_code erreur;
    std::filesystem::resize_file(grand, std::uintmax_t{4} << 40, erreur);  // no block of it is on disk
    if (erreur) GTEST_SKIP() << "no file of that size here";
    EXPECT_EQ(a.Appelle({"info", grand, "--json"}).etat, 1) << nom;
  }
}

}  // namespace
