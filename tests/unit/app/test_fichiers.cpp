// Files as people name them on the command line: relative, through links, from another folder.
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

}  // namespace
