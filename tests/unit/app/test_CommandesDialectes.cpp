// Dialects of G-code from the command line: listed, shown, chosen, refused with file, line and reason.
#include <gtest/gtest.h>

#include <set>

#include "tests/unit/app/Appel.h"

namespace {

using essai::Atelier;
using essai::Carre;
using nlohmann::json;

TEST(Dialects, AreListedWithTheUsersAmongThem) {
  const Atelier a;
  const std::string fichier = a.Ecrit("garage.dialecte", "base = grbl\nextension = cnc\narcs = non\n");
  const auto r = a.Appelle({"dialects", "--json"});
  ASSERT_EQ(r.etat, 0) << r.erreurs;
  const json dialectes = r.Json()["dialects"];
  std::set<std::string> noms;
  for (const json& d : dialectes) noms.insert(d["name"]);
  EXPECT_EQ(noms, (std::set<std::string>{"garage", "grbl", "iso", "linuxcnc", "mach", "own"}));
  EXPECT_EQ(
      dialectes.back(),
      (json{{"name", "garage"}, {"title", "garage"}, {"extension", "cnc"}, {"arcs", false}, {"file", fichier}}));
}

TEST(Dialects, AFaultyFileIsToldWithItsLineAndTheOthersAreListed) {
  const Atelier a;
  const std::string fichier = a.Ecrit("faux.dialecte", "base = grbl\ncouleur = bleu\n");
  const auto r = a.Appelle({"dialects", "list"});
  EXPECT_EQ(r.etat, 0);
  EXPECT_NE(r.erreurs.find(fichier + ":2: couleur = bleu"), std::string::npos) << r.erreurs;
  EXPECT_NE(r.sortie.find("grbl\tGRBL 1.1\t.gcode\n"), std::string::npos) << r.sortie;
  EXPECT_EQ(r.sortie.find("faux"), std::string::npos);
}

TEST(Dialects, WhatIsShownIsAFileThatAUserCanHave) {
  const Atelier a;
  const auto grbl = a.Appelle({"dialects", "show", "grbl"});
  ASSERT_EQ(grbl.etat, 0);
  a.Ecrit("copie.dialecte", grbl.sortie);
  const auto copie = a.Appelle({"dialects", "show", "copie"});
  EXPECT_EQ(copie.etat, 0) << copie.erreurs;
  EXPECT_EQ(copie.sortie, grbl.sortie);
  EXPECT_EQ(a.Appelle({"dialects", "show", "rien", "--json"}).Json()["error"]["key"], "Dialecte_inconnu");
}

TEST(GCodeDialect, IsThatOfTheCallAndIsNotRemembered) {
  const Atelier a;
  const std::string dessin = a.Ecrit("carre.dxf", Carre);
  const auto r = a.Appelle({"gcode", dessin, "-o", a.Chemin("x.gcode"), "--dialect", "grbl", "--set",
                            "RayonFraise=1", "--set", "VitesseBroche=900", "--json"});
  ASSERT_EQ(r.etat, 0) << r.erreurs;
  EXPECT_EQ(r.Json()["dialect"], "grbl");
  EXPECT_EQ(r.Json()["arcs"].is_number(), true);
  EXPECT_NE(Atelier::Lit(a.Chemin("x.gcode")).find("\nM3 S900\n"), std::string::npos);
  const auto propre = a.Appelle({"gcode", dessin, "-o", a.Chemin("x.nc"), "--set", "RayonFraise=1", "--json"});
  ASSERT_EQ(propre.etat, 0) << propre.erreurs;
  EXPECT_FALSE(propre.Json().contains("dialect"));
  EXPECT_NE(Atelier::Lit(a.Chemin("x.nc")).find("\nG71\n"), std::string::npos);
}

TEST(GCodeDialect, IsOtherwiseThatOfTheSettings) {
  const Atelier a;
  const std::string dessin = a.Ecrit("carre.dxf", Carre);
  ASSERT_EQ(a.Appelle({"key", "set", "DialecteNC", "mach"}).etat, 0);
  const auto r = a.Appelle({"gcode", dessin, "-o", a.Chemin("x.tap"), "--set", "RayonFraise=1", "--json"});
  ASSERT_EQ(r.etat, 0) << r.erreurs;
  EXPECT_EQ(r.Json()["dialect"], "mach");
}

TEST(GCodeDialect, OneThatThereIsNotEndsTheCallBeforeTheDrawingIsRead) {
  const Atelier a;
  const auto r = a.Appelle({"gcode", a.Chemin("nulle.dxf"), "-o", a.Chemin("x.nc"), "--dialect", "rien", "--json"});
  EXPECT_EQ(r.etat, 1);
  EXPECT_EQ(r.Json()["error"]["key"], "Dialecte_inconnu");
}

TEST(GCodeDialect, AFaultyFileIsRefusedWithItsLine) {
  const Atelier a;
  const std::string fichier = a.Ecrit("faux.dialecte", "base = grbl\n\ndebut = G20\n");
  const auto r =
      a.Appelle({"gcode", a.Ecrit("carre.dxf", Carre), "-o", a.Chemin("x.nc"), "--dialect", "faux", "--json"});
  EXPECT_EQ(r.etat, 1);
  EXPECT_EQ(r.Json()["error"]["key"], "Dialecte_valeur");
  EXPECT_EQ(r.Json()["error"]["file"], fichier);
  EXPECT_EQ(r.Json()["error"]["line"], 3);
}

TEST(GCodeDialect, TheOwnOneKeepsItsExtensionAndTheOthersTakeAny) {
  const Atelier a;
  const std::string dessin = a.Ecrit("carre.dxf", Carre);
  EXPECT_EQ(a.Appelle({"gcode", dessin, "-o", a.Chemin("x.gcode"), "--set", "RayonFraise=1", "--json"})
                .Json()["error"]["key"],
            "lib037");
  EXPECT_EQ(
      a.Appelle({"gcode", dessin, "-o", a.Chemin("x.txt"), "--set", "RayonFraise=1", "--dialect", "iso"}).etat, 0);
}

}  // namespace
