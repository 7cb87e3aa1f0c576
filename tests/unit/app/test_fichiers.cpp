// Files as people name them on the command line: relative, through links, from another folder; and what an output
// may not be.
#include <gtest/gtest.h>

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

}  // namespace
