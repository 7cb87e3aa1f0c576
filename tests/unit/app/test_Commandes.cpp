// The commands of ovelin-cli as a script sees them: status, JSON, files, and what is left alone.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "core/PlanCourant.h"
#include "tests/unit/app/Appel.h"

namespace {

using essai::Atelier;
using essai::Carre;
using essai::Exemple;
using essai::GaucheDesCoupes;
using nlohmann::json;

TEST(Info, TellsTheOpenedDrawingAndWhatTheFileHeld) {
  const Atelier a;
  const auto r = a.Appelle({"info", a.Ecrit("carre.dxf", Carre), "--json"});
  ASSERT_EQ(r.etat, 0) << r.erreurs;
  const json j = r.Json();
  EXPECT_EQ(j["format"], "DXF");
  EXPECT_EQ(j["sequences"], 2);
  EXPECT_EQ(j["closed"], 2);
  EXPECT_EQ(j["open"], 0);
  EXPECT_EQ(j["codes"], json::array({" A", " B"}));
  EXPECT_EQ(j["skipped"]["TEXT"], 1);
  EXPECT_NE(j["message"].get<std::string>().find("TEXT 1"), std::string::npos);
  // In the file from 0 to 40; opened, 5 mm from the origin.
  EXPECT_NEAR(j["read"]["bounds"]["xmin"].get<double>(), 0, 1e-6);
  EXPECT_NEAR(j["read"]["bounds"]["xmax"].get<double>(), 40, 1e-6);
  EXPECT_NEAR(j["bounds"]["xmin"].get<double>(), 5, 1e-4);
  EXPECT_NEAR(j["bounds"]["ymax"].get<double>(), 45, 1e-4);
}

TEST(Info, BoundsHaveTheDigitsOfTheDrawing) {
  const Atelier a;
  const auto r = a.Appelle({"info", a.Ecrit("p.dat", "0.1 0.2\n7.3 0.2\n7.3 9.4\n"), "--json"});
  EXPECT_NE(r.sortie.find(R"("bounds":{"xmin":0.1,"xmax":7.3,"ymin":0.2,"ymax":9.4})"), std::string::npos)
      << r.sortie;
}

TEST(Info, WritesNothingButTheSettingsOfTheFirstStart) {
  const Atelier a;
  const std::string dessin = a.Ecrit("carre.dxf", Carre);
  ASSERT_EQ(a.Appelle({"info", dessin}).etat, 0);
  EXPECT_EQ(a.Fichiers(), (std::vector<std::string>{"OVELIN.ini", "carre.dxf"}));
  EXPECT_EQ(Atelier::Lit(dessin), Carre);  // line feeds alone stay as they are
  const std::string ini = Atelier::Lit(a.Chemin("OVELIN.ini"));
  EXPECT_EQ(ini.find("Fichier="), std::string::npos);
  ASSERT_EQ(a.Appelle({"gcode", dessin, "-o", a.Chemin("x.nc"), "--set", "RayonFraise=1"}).etat, 0);
  EXPECT_EQ(Atelier::Lit(a.Chemin("OVELIN.ini")), ini);
}

TEST(Info, TheFirstAndTheSecondCallAgree) {
  const Atelier a;
  const std::string dessin = a.Ecrit("carre.dxf", Carre);
  const auto premier = a.Appelle({"plan", dessin, "--json"});
  const auto second = a.Appelle({"plan", dessin, "--json"});
  ASSERT_EQ(premier.etat, 0) << premier.erreurs;
  EXPECT_EQ(premier.sortie, second.sortie);
}

TEST(GCode, ARampSinksAlongThePathAndIsNotRemembered) {
  const Atelier a;
  const std::string dessin = a.Ecrit("carre.dxf", Carre);
  const std::vector<std::string> droit{"gcode", dessin, "-o", a.Chemin("droit.nc"), "--set", "RayonFraise=1"};
  ASSERT_EQ(a.Appelle(droit).etat, 0);
  std::vector<std::string> rampe = droit;
  rampe[3] = a.Chemin("rampe.nc");
  rampe.insert(rampe.end(), {"--ramp", "3"});
  const auto r = a.Appelle(rampe);
  ASSERT_EQ(r.etat, 0) << r.erreurs;
  const std::string avec = Atelier::Lit(a.Chemin("rampe.nc"));
  const std::string sans = Atelier::Lit(a.Chemin("droit.nc"));
  EXPECT_NE(sans.find("\nG01  Z-1.000\n"), std::string::npos) << "a plunge";
  EXPECT_EQ(avec.find("\nG01  Z-1.000\n"), std::string::npos);
  std::vector<std::string> encore = droit;
  encore[3] = a.Chemin("encore.nc");
  ASSERT_EQ(a.Appelle(encore).etat, 0);
  EXPECT_EQ(Atelier::Lit(a.Chemin("encore.nc")), sans);
}

TEST(GCode, RefusesARampThatIsNone) {
  const Atelier a;
  const std::string dessin = a.Ecrit("carre.dxf", Carre);
  for (const auto& [angle, cle] :
       {std::pair{"46", "cli_limites"}, {"-1", "cli_limites"}, {"flach", "cli_valeur"}}) {
    const auto r = a.Appelle({"gcode", dessin, "-o", a.Chemin("a.nc"), "--ramp", angle, "--json"});
    EXPECT_EQ(r.etat, 1) << angle;
    EXPECT_EQ(r.Json()["error"]["key"], cle) << angle;
  }
  EXPECT_EQ(a.Fichiers(), (std::vector<std::string>{"OVELIN.ini", "carre.dxf"}));
}

TEST(Save, AProjectKeepsItsRampWhichActsWithoutAnOption) {
  const Atelier a;
  const std::string dessin = a.Ecrit("carre.dxf", Carre);
  const std::string ops = a.Ecrit("ops.json", R"([{"op": "TB_AngleRampe", "valeur": "3"}])");
  ASSERT_EQ(a.Appelle({"edit", dessin, "--do", ops, "-o", a.Chemin("a.OVL")}).etat, 0);
  EXPECT_NE(Atelier::Lit(a.Chemin("a.OVL")).find("$$AngleRampe=3\r\n"), std::string::npos);
  const auto projet = a.Appelle({"plan", a.Chemin("a.OVL"), "--json"});
  const auto droit = a.Appelle({"plan", a.Chemin("a.OVL"), "--ramp", "0", "--json"});
  ASSERT_EQ(projet.etat, 0) << projet.erreurs;
  ASSERT_EQ(droit.etat, 0) << droit.erreurs;
  EXPECT_GT(projet.Json()["length"].get<double>(), droit.Json()["length"].get<double>() + 2 * 3 * 19)
      << "two paths, three passes, 19 mm each";
}

TEST(GCode, WritesTheJobAndTellsItsLength) {
  const Atelier a;
  const auto r = a.Appelle({"gcode", a.Ecrit("carre.dxf", Carre), "-o", a.Chemin("carre.nc"), "--set",
                            "RayonFraise=1", "--set", "ProfFraisage=-2", "--set", "ProfPasse=-2", "--json"});
  ASSERT_EQ(r.etat, 0) << r.erreurs;
  const std::string nc = Atelier::Lit(a.Chemin("carre.nc"));
  EXPECT_EQ(std::count(nc.begin(), nc.end(), '\n'), r.Json()["lines"].get<long>());
  EXPECT_NE(nc.find("\nM03\n"), std::string::npos);
  EXPECT_TRUE(nc.ends_with("M02\n"));
  EXPECT_GT(r.Json()["length"].get<double>(), 4 * 40 + 2 * 3.14 * 4);
}

TEST(GCode, RefusesAnotherExtension) {
  const Atelier a;
  const auto r = a.Appelle({"gcode", a.Ecrit("carre.dxf", Carre), "-o", a.Chemin("carre.txt"), "--json"});
  EXPECT_EQ(r.etat, 1);
  EXPECT_EQ(r.Json()["error"]["key"], "lib037");
  EXPECT_FALSE(std::filesystem::exists(a.Chemin("carre.txt")));
}

TEST(GCode, AFolderThatIsNotThereIsAClearRefusal) {
  const Atelier a;
  const auto r = a.Appelle({"gcode", a.Ecrit("carre.dxf", Carre), "-o", a.Chemin("nulle/part.nc"), "--json"});
  EXPECT_EQ(r.etat, 1);
  EXPECT_TRUE(r.Json()["error"]["text"].is_string());
  EXPECT_NE(r.erreurs.find("part.nc"), std::string::npos);
}

TEST(GCode, AMaterialBringsItsRadiusDepthAndFeeds) {
  const Atelier a;
  const std::string dessin = a.Ecrit("carre.dxf", Carre);
  ASSERT_EQ(a.Appelle({"gcode", dessin, "-o", a.Chemin("a.nc"), "--material", "ctp 3 MM"}).etat, 0);
  const std::string nc = Atelier::Lit(a.Chemin("a.nc"));
  EXPECT_NE(nc.find("F150.00000"), std::string::npos);  // 2.5 mm/s
  EXPECT_NE(nc.find("Z-4.500"), std::string::npos);
  // Radius 0.8 outside a square whose left edge stands at 5 mm.
  EXPECT_NEAR(GaucheDesCoupes(nc), 5 - 0.8, 0.002);
}

TEST(GCode, SetStandsAboveTheMaterial) {
  const Atelier a;
  const std::string dessin = a.Ecrit("carre.dxf", Carre);
  ASSERT_EQ(a.Appelle({"gcode", dessin, "-o", a.Chemin("a.nc"), "--material", "CTP 3 mm", "--set",
                       "ProfFraisage=-1.5", "--set", "rayonfraise=2"})
                .etat,
            0);
  const std::string nc = Atelier::Lit(a.Chemin("a.nc"));
  EXPECT_NE(nc.find("Z-1.500"), std::string::npos);
  EXPECT_EQ(nc.find("Z-4.500"), std::string::npos);
  EXPECT_NEAR(GaucheDesCoupes(nc), 5 - 2, 0.002);
}

TEST(GCode, AnUnknownMaterialIsRefused) {
  const Atelier a;
  const auto r =
      a.Appelle({"gcode", a.Ecrit("carre.dxf", Carre), "-o", a.Chemin("a.nc"), "--material", "Or", "--json"});
  EXPECT_EQ(r.etat, 1);
  EXPECT_EQ(r.Json()["error"]["key"], "cli_materiau");
}

TEST(GCode, ADepthOfPassOfZeroOrMoreIsRefused) {
  const Atelier a;
  const auto r =
      a.Appelle({"gcode", a.Ecrit("carre.dxf", Carre), "-o", a.Chemin("a.nc"), "--set", "ProfPasse=1", "--json"});
  EXPECT_EQ(r.etat, 1);
  EXPECT_EQ(r.Json()["error"]["key"], "95");
  EXPECT_FALSE(std::filesystem::exists(a.Chemin("a.nc")));
}

TEST(GCode, AClearanceThatIsNoneIsRefusedWithItsKeyAndItsPlace) {
  const Atelier a;
  const std::string carre = a.Ecrit("carre.dxf", Carre);
  const auto r = a.Appelle({"gcode", carre, "-o", a.Chemin("a.nc"), "--set", "HautDeg=0", "--json"});
  EXPECT_EQ(r.etat, 1);
  EXPECT_EQ(r.Json()["error"]["key"], "HautDeg_nul");
  const std::string texte = r.Json()["error"]["text"];
  EXPECT_NE(texte.find("HautDeg = 0 (--set)"), std::string::npos) << texte;
  EXPECT_FALSE(std::filesystem::exists(a.Chemin("a.nc")));
  EXPECT_EQ(a.Appelle({"plan", carre, "--set", "HautDeg=-2"}).etat, 1);
}

TEST(GCode, AnEntryThatIsSurelyWrongIsToldAndTheJobWritten) {
  const Atelier a;
  const std::string carre = a.Ecrit("carre.dxf", Carre);
  const auto r = a.Appelle({"gcode", carre, "-o", a.Chemin("a.nc"), "--set", "RayonFraise=60"});
  EXPECT_EQ(r.etat, 0) << r.erreurs;
  EXPECT_NE(r.erreurs.find("60.0 mm"), std::string::npos) << r.erreurs;
  EXPECT_NE(a.Appelle({"plan", carre, "--set", "ProfFraisage=-250"}).erreurs.find("250.0 mm > 190.0 mm"),
            std::string::npos);
}

TEST(Errors, AMissingDrawingNamesTheFile) {
  const Atelier a;
  const auto r = a.Appelle({"info", a.Chemin("absent.dxf"), "--json"});
  EXPECT_EQ(r.etat, 1);
  EXPECT_EQ(r.Json()["error"]["key"], "lib110");
  EXPECT_EQ(r.Json()["error"]["file"], a.Chemin("absent.dxf"));
}

TEST(Errors, ARefusedDrawingNamesFileLineAndReason) {
  const Atelier a;
  const auto r = a.Appelle({"info", a.Ecrit("faux.dxf", "0\nSECTION\n2\nENTITIES\nzut\nLINE\n"), "--json"});
  EXPECT_EQ(r.etat, 1);
  const json e = r.Json()["error"];
  EXPECT_EQ(e["key"], "lib115");
  EXPECT_EQ(e["line"], 5);
  EXPECT_NE(e["text"].get<std::string>().find("faux.dxf:5"), std::string::npos) << e["text"];
}

TEST(Errors, MessagesComeInTheLanguageAskedFor) {
  const Atelier a;
  const std::string dessin = a.Ecrit("vide.dxf", "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n");
  EXPECT_NE(a.Appelle({"info", dessin}).erreurs.find("moins de deux points"), std::string::npos);
  EXPECT_NE(a.Appelle({"info", dessin, "--lang", "en"}).erreurs.find("fewer than two points"), std::string::npos);
}

TEST(Usage, AWrongCallEndsWithStatusTwo) {
  const Atelier a;
  EXPECT_EQ(a.Appelle({}).etat, 2);
  EXPECT_EQ(a.Appelle({"mille"}).etat, 2);
  EXPECT_EQ(a.Appelle({"info"}).etat, 2);
  EXPECT_EQ(a.Appelle({"info", "x.dxf", "--lang", "xx"}).etat, 2);
  EXPECT_EQ(a.Appelle({"info", "x.dxf", "--set", "RayonFraise"}).etat, 2);
  EXPECT_EQ(a.Appelle({"info", "x.dxf", "--answer", "lib106=maybe"}).etat, 2);
}

TEST(Usage, EveryCommandHasItsHelp) {
  const Atelier a;
  for (const char* commande :
       {"info", "gcode", "save", "edit", "export", "trace", "plan", "key", "tables", "materials"}) {
    const auto r = a.Appelle({commande, "--help"});
    EXPECT_EQ(r.etat, 0) << commande;
    EXPECT_NE(r.sortie.find(commande), std::string::npos);
  }
  EXPECT_EQ(a.Appelle({"--version"}).sortie, "4.10.0\n");
}

TEST(Save, AProjectReadsBackToTheSameDocument) {
  const Atelier a;
  const std::string dessin = a.Ecrit("carre.dxf", Carre);
  ASSERT_EQ(a.Appelle({"save", dessin, "-o", a.Chemin("a.OVL")}).etat, 0);
  ASSERT_EQ(a.Appelle({"trace", dessin, "-o", a.Chemin("a.json")}).etat, 0);
  ASSERT_EQ(a.Appelle({"trace", a.Chemin("a.OVL"), "-o", a.Chemin("b.json")}).etat, 0);
  EXPECT_EQ(Atelier::Lit(a.Chemin("a.json")), Atelier::Lit(a.Chemin("b.json")));
}

TEST(Save, DecimalCommaAndPointGiveTheSameDocument) {
  const Atelier a;
  const std::string dessin = Exemple("equerre.dxf");
  ASSERT_EQ(a.Appelle({"save", dessin, "-o", a.Chemin("p.OVL"), "--decimal", "."}).etat, 0);
  ASSERT_EQ(a.Appelle({"save", dessin, "-o", a.Chemin("v.OVL"), "--decimal", ","}).etat, 0);
  EXPECT_NE(Atelier::Lit(a.Chemin("p.OVL")), Atelier::Lit(a.Chemin("v.OVL")));
  for (const char* marque : {".", ","}) {
    ASSERT_EQ(a.Appelle({"trace", a.Chemin("p.OVL"), "-o", a.Chemin("p.json"), "--decimal", marque}).etat, 0);
    ASSERT_EQ(a.Appelle({"trace", a.Chemin("v.OVL"), "-o", a.Chemin("v.json"), "--decimal", marque}).etat, 0);
    EXPECT_EQ(Atelier::Lit(a.Chemin("p.json")), Atelier::Lit(a.Chemin("v.json")));
  }
}

TEST(Save, WhatWasReadIsSavedByteForByte) {
  const Atelier a;
  for (const char* marque : {".", ","}) {
    ASSERT_EQ(a.Appelle({"save", Exemple("plaque.dxf"), "-o", a.Chemin("1.OVL"), "--decimal", marque}).etat, 0);
    ASSERT_EQ(a.Appelle({"save", a.Chemin("1.OVL"), "-o", a.Chemin("2.OVL"), "--decimal", marque}).etat, 0);
    EXPECT_EQ(Atelier::Lit(a.Chemin("1.OVL")), Atelier::Lit(a.Chemin("2.OVL"))) << marque;
  }
}

TEST(Save, AReadOnlyProjectIsRefusedAndStays) {
  const Atelier a;
  const std::string cible = a.Ecrit("garde.OVL", "$$ancien=1\r\n");
  std::filesystem::permissions(cible, std::filesystem::perms::owner_read);
  const auto r = a.Appelle({"save", a.Ecrit("carre.dxf", Carre), "-o", cible, "--json"});
  EXPECT_EQ(r.etat, 1);
  EXPECT_EQ(r.Json()["error"]["key"], "lib125");
  EXPECT_EQ(Atelier::Lit(cible), "$$ancien=1\r\n");
}

TEST(Answer, AQuestionWithoutAnAnswerEndsTheCallWithItsKey) {
  const Atelier a;
  const std::string operations =
      a.Ecrit("ops.json", R"([{"op":"Selectionne","codes":[" A"]},{"op":"TB_Profondeur","valeur":-1},
                              {"op":"SelectionneTout"},{"op":"TB_Profondeur","valeur":-2}])");
  const std::vector<std::string> appel{"edit", a.Ecrit("carre.dxf", Carre), "--do",  operations,
                                       "-o",   a.Chemin("e.OVL"),           "--json"};
  const auto sans = a.Appelle(appel);
  EXPECT_EQ(sans.etat, 1);
  EXPECT_EQ(sans.Json()["error"]["key"], "lib106");
  EXPECT_FALSE(std::filesystem::exists(a.Chemin("e.OVL")));
  auto avec = appel;
  avec.insert(avec.end(), {"--answer", "lib106=yes"});
  EXPECT_EQ(a.Appelle(avec).etat, 0);
}

TEST(Export, ADxfReadsBackToTheSamePaths) {
  const Atelier a;
  const std::string dessin = Exemple("equerre.dxf");
  ASSERT_EQ(a.Appelle({"export", dessin, "-o", a.Chemin("e.dxf")}).etat, 0);
  const json avant = a.Appelle({"info", dessin, "--json"}).Json();
  const json apres = a.Appelle({"info", a.Chemin("e.dxf"), "--json"}).Json();
  EXPECT_EQ(avant["sequences"], apres["read"]["sequences"]);
  EXPECT_EQ(avant["points"], apres["read"]["points"]);
  for (const char* borne : {"xmin", "xmax", "ymin", "ymax"}) {
    EXPECT_EQ(avant["bounds"][borne], apres["read"]["bounds"][borne]);
  }
}

TEST(Export, ADatFileHoldsOnePathSoThatSeveralBecomeSeveralFiles) {
  const Atelier a;
  const std::string dessin = a.Ecrit("carre.dxf", Carre);
  EXPECT_EQ(a.Appelle({"export", dessin, "-o", a.Chemin("e.dat"), "--answer", "lib003=cancel"}).etat, 1);
  ASSERT_EQ(a.Appelle({"export", dessin, "-o", a.Chemin("e.dat"), "--answer", "lib003=ok"}).etat, 0);
  EXPECT_TRUE(std::filesystem::exists(a.Chemin("e001.dat")));
  EXPECT_TRUE(std::filesystem::exists(a.Chemin("e002.dat")));
  const json j = a.Appelle({"info", a.Chemin("e002.dat"), "--json"}).Json();
  EXPECT_NEAR(j["read"]["bounds"]["xmax"].get<double>(), 45, 1e-4);
}

TEST(Export, PicturesAreWrittenAndAnUnknownFormatIsRefused) {
  const Atelier a;
  const std::string dessin = Exemple("plaque.dxf");
  ASSERT_EQ(a.Appelle({"export", dessin, "-o", a.Chemin("p.svg")}).etat, 0);
  ASSERT_EQ(a.Appelle({"export", dessin, "-o", a.Chemin("p.png")}).etat, 0);
  EXPECT_NE(Atelier::Lit(a.Chemin("p.svg")).find("<svg"), std::string::npos);
  EXPECT_TRUE(Atelier::Lit(a.Chemin("p.png")).starts_with("\x89PNG"));
  // The tool path alone has fewer strokes than both.
  ASSERT_EQ(a.Appelle({"export", dessin, "-o", a.Chemin("o.svg"), "--source", "outil"}).etat, 0);
  EXPECT_LT(Atelier::Lit(a.Chemin("o.svg")).size(), Atelier::Lit(a.Chemin("p.svg")).size());
  const auto r = a.Appelle({"export", dessin, "-o", a.Chemin("p.bmp"), "--json"});
  EXPECT_EQ(r.etat, 1);
  EXPECT_EQ(r.Json()["error"]["key"], "lib001");
}

TEST(Plan, GivesTheRowsWithStepsFromTheTable) {
  const Atelier a;
  const std::string trait =
      "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n10\n0\n20\n0\n11\n10\n21\n0\n0\nENDSEC\n0\nEOF\n";
  const auto r = a.Appelle({"plan", a.Ecrit("l.dxf", trait), "--rows", a.Chemin("l.csv"), "--set", "RayonFraise=0",
                            "--set", "ProfFraisage=-1", "--set", "ProfPasse=-1", "--json"});
  ASSERT_EQ(r.etat, 0) << r.erreurs;
  std::istringstream csv(Atelier::Lit(a.Chemin("l.csv")));
  std::string ligne;
  std::vector<std::string> lignes;
  while (std::getline(csv, ligne)) lignes.push_back(ligne);
  EXPECT_EQ(lignes[0], "X,Y,Z,dX,dY,dZ,Vitesse,Ticks,N,P,T");
  EXPECT_EQ(static_cast<int>(lignes.size()) - 1, r.Json()["rows"].get<int>());
  // 100 steps a turn, halved steps, 1 mm a turn: 200 steps a mm. Up 10; over to (5, 5); down 10; in 1; along 10.
  EXPECT_EQ(lignes[1].substr(0, 16), "0,0,10,0,0,2000,");
  EXPECT_EQ(lignes[2].substr(0, 19), "5,5,10,1000,1000,0,");
  EXPECT_EQ(lignes[3].substr(0, 15), "5,5,0,0,0,-2000");
  EXPECT_EQ(lignes[4].substr(0, 15), "5,5,-1,0,0,-200");
  EXPECT_EQ(lignes[5].substr(0, 16), "15,5,-1,2000,0,0");
}

TEST(Plan, StartsAtThePositionGiven) {
  const Atelier a;
  const auto r = a.Appelle({"plan", a.Ecrit("carre.dxf", Carre), "--pos", "1,2,3.5", "--rows", a.Chemin("p.csv")});
  ASSERT_EQ(r.etat, 0) << r.erreurs;
  const std::string csv = Atelier::Lit(a.Chemin("p.csv"));
  // From 3.5 up to the clearance of 10 mm: 6.5 mm at 200 steps.
  EXPECT_EQ(csv.substr(csv.find('\n') + 1, 19), "1,2,10,0,0,1300,15,");
  EXPECT_EQ(a.Appelle({"plan", a.Chemin("carre.dxf"), "--pos", "1,2"}).etat, 2);
}

TEST(Key, IsReadWrittenAndDeletedOnPurpose) {
  const Atelier a;
  EXPECT_EQ(a.Appelle({"key", "get", "RayonFraise"}).etat, 1);
  ASSERT_EQ(a.Appelle({"key", "set", "RayonFraise", "1.25"}).etat, 0);
  EXPECT_EQ(a.Appelle({"key", "get", "rayonfraise"}).sortie, "1.25\n");
  EXPECT_NE(Atelier::Lit(a.Chemin("OVELIN.ini")).find("RayonFraise=1.25"), std::string::npos);
  ASSERT_EQ(a.Appelle({"key", "delete", "RayonFraise"}).etat, 0);
  EXPECT_EQ(a.Appelle({"key", "get", "RayonFraise"}).etat, 1);
}

TEST(Tables, AreListedCopiedRenamedAndDeleted) {
  const Atelier a;
  const json liste = a.Appelle({"tables", "--json"}).Json();
  EXPECT_EQ(liste["current"], "OVELIN");
  EXPECT_EQ(liste["tables"], json({"OVELIN"}));
  ASSERT_EQ(a.Appelle({"tables", "copy", "OVELIN", "Atelier2"}).etat, 0);
  EXPECT_EQ(a.Appelle({"tables", "list", "--json"}).Json()["current"], "Atelier2");
  ASSERT_EQ(a.Appelle({"tables", "rename", "Atelier2", "Grande"}).etat, 0);
  EXPECT_EQ(a.Appelle({"tables", "list", "--json"}).Json()["tables"], json({"OVELIN", "Grande"}));
  EXPECT_EQ(a.Appelle({"tables", "copy", "OVELIN", "TropLongue"}).etat, 1);
  EXPECT_EQ(a.Appelle({"tables", "copy", "OVELIN", "Grande"}).etat, 1);
  const auto sans = a.Appelle({"tables", "delete", "Grande", "--json"});
  EXPECT_EQ(sans.etat, 1);
  EXPECT_EQ(sans.Json()["error"]["key"], "lib002");
  ASSERT_EQ(a.Appelle({"tables", "delete", "Grande", "--answer", "lib002=ok"}).etat, 0);
  EXPECT_EQ(a.Appelle({"tables", "list", "--json"}).Json()["tables"], json({"OVELIN"}));
}

TEST(Tables, APresetSetsTheOutputs) {
  const Atelier a;
  ASSERT_EQ(a.Appelle({"tables", "preset", "OVELIN", "Step Four"}).etat, 0);
  const json table = a.Appelle({"tables", "show", "--json"}).Json();
  EXPECT_EQ(table["Combo_SAV_1"], "1") << table.dump();
  EXPECT_EQ(table["Combo_SAV_8"], "4");
  EXPECT_EQ(a.Appelle({"tables", "preset", "OVELIN", "Rien"}).etat, 1);
}

TEST(Tables, ATableOfThisCallAloneSetsTheSpeeds) {
  const Atelier a;
  ASSERT_EQ(a.Appelle({"tables", "copy", "OVELIN", "Vite"}).etat, 0);
  ASSERT_EQ(a.Appelle({"tables", "use", "OVELIN"}).etat, 0);
  const std::string dessin = a.Ecrit("carre.dxf", Carre);
  const auto lente = a.Appelle({"plan", dessin, "--json"}).Json();
  const auto vite = a.Appelle({"plan", dessin, "--table", "Vite", "--set", "TB_SAV_15=100", "--set",
                               "TB_SAV_16=100", "--set", "TB_SAV_17=100", "--json"})
                        .Json();
  EXPECT_LT(vite["seconds"].get<double>(), lente["seconds"].get<double>());
  EXPECT_EQ(a.Appelle({"plan", dessin, "--table", "Absente"}).etat, 1);
}

TEST(Materials, AreListedChangedAddedAndDeleted) {
  const Atelier a;
  const json liste = a.Appelle({"materials", "--json"}).Json()["materials"];
  ASSERT_EQ(liste.size(), 5U);
  EXPECT_EQ(liste[3]["name"], "CTP 3 mm");
  ASSERT_EQ(a.Appelle({"materials", "set", "Liège", "--radius", "1", "--depth", "-5", "--pass", "-2,5"}).etat, 0);
  EXPECT_EQ(a.Appelle({"materials", "list", "--json"}).Json()["materials"][5]["name"], "Liège");
  const auto faux = a.Appelle({"materials", "set", "Liège", "--feed-h", "0", "--json"});
  EXPECT_EQ(faux.etat, 1);
  EXPECT_NE(faux.Json()["error"]["text"].get<std::string>().find("feed_h"), std::string::npos);
  ASSERT_EQ(a.Appelle({"materials", "delete", "Liège"}).etat, 0);
  EXPECT_EQ(a.Appelle({"materials", "list", "--json"}).Json()["materials"].size(), 5U);
  EXPECT_EQ(a.Appelle({"materials", "delete", "Liège"}).etat, 1);
}

// A dead process of this user in a temporary folder of the test.
std::string LaisseMort(const essai::Atelier& a) {
  const std::string dossier = a.Chemin("ovelin-" + std::to_string(geteuid()) + "/77");
  std::filesystem::create_directories(dossier);
  std::filesystem::copy_file(essai::Exemple("equerre-attaches.OVL"), dossier + "/00004.OVL");
  std::ofstream(dossier + "/dessin") << "/dessins/equerre.dxf";
  return "TMPDIR=" + a.Chemin("");
}

TEST(Recover, ListsWhatDeadProcessesLeftAndOpensItOnce) {
  const essai::Atelier a;
  const std::string ou = LaisseMort(a);
  const auto liste = a.Appelle({"recover", "list", "--json"}, ou).Json()["recovered"];
  ASSERT_EQ(liste.size(), 1U);
  EXPECT_EQ(liste[0]["n"], 1);
  EXPECT_EQ(liste[0]["drawing"], "/dessins/equerre.dxf");
  const std::string sortie = a.Chemin("retrouve.OVL");
  EXPECT_EQ(a.Appelle({"recover", "open", "2", "-o", sortie, "--json"}, ou).Json()["error"]["key"], "cli_reprise");
  EXPECT_EQ(a.Appelle({"recover", "open", "1", "-o", sortie}, ou).etat, 0);
  EXPECT_EQ(essai::Atelier::Lit(sortie), essai::Atelier::Lit(essai::Exemple("equerre-attaches.OVL")));
  EXPECT_EQ(a.Appelle({"recover"}, ou).sortie, "");
}

TEST(Recover, WritesNothingButAProject) {
  const essai::Atelier a;
  const std::string ou = LaisseMort(a);
  EXPECT_EQ(a.Appelle({"recover", "open", "1", "-o", a.Chemin("retrouve.dxf")}, ou).etat, 1);
  EXPECT_EQ(a.Appelle({"recover", "list", "--json"}, ou).Json()["recovered"].size(), 1U);
}

TEST(GCode, NamesThePathsThatGetNoToolPath) {
  const essai::Atelier a;
  const auto r =
      a.Appelle({"gcode", essai::Exemple("equerre.dxf"), "-o", a.Chemin("a.nc"), "--set", "RayonFraise=30"});
  EXPECT_EQ(r.etat, 0);
  EXPECT_NE(r.erreurs.find("trop \u00e9troites"), std::string::npos) << r.erreurs;
}

}  // namespace
