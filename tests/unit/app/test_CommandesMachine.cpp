// What ovelin-cli does with programs and on a board: check, play, mill.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "tests/unit/app/Appel.h"

namespace {

using essai::Atelier;
using essai::Carre;
using essai::Exemple;
using nlohmann::json;

TEST(Check, JudgesAndMeasuresAProgram) {
  const Atelier a;
  const std::string fichier = a.Ecrit("pièce.nc", "(note)\nF600\nG00 X10\nG01 Y20 Z-2\nG02 X1\nG91.1\n\nG90\n");
  const auto r = a.Appelle({"check", fichier, "--json"});
  ASSERT_EQ(r.etat, 0) << r.erreurs;
  const auto j = r.Json();
  EXPECT_EQ(j["lines"], 8);
  EXPECT_EQ(j["valid"], 5);
  EXPECT_EQ(j["doubtful"], 1);
  EXPECT_EQ(j["comments"], 1);
  EXPECT_EQ(j["invalid"], 2);
  EXPECT_EQ(j["moves"], 2);
  EXPECT_EQ(j["without_speed"], 0);
  EXPECT_NEAR(j["length"].get<double>(), 10 + std::hypot(20, 2), 1e-9);
  EXPECT_NEAR(j["seconds"].get<double>(), std::hypot(20, 2) / 10, 1e-9);
  EXPECT_EQ(j["bounds"]["zmin"], -2);
  EXPECT_EQ(j["bounds"]["ymax"], 20);
  EXPECT_EQ(j["beyond_travel"], false);
  EXPECT_EQ(j["invalid_lines"], (nlohmann::json{5, 7}));
  EXPECT_EQ(j["doubtful_lines"], (nlohmann::json{6}));
  EXPECT_NE(r.erreurs.find(":5: "), std::string::npos) << r.erreurs;
}

TEST(Check, TellsMovesWithoutASpeedAndBeyondTheTravel) {
  const Atelier a;
  const auto r = a.Appelle({"check", a.Ecrit("long.nc", "G01 X5000\n"), "--json"});
  ASSERT_EQ(r.etat, 0) << r.erreurs;
  EXPECT_EQ(r.Json()["without_speed"], 1);
  EXPECT_EQ(r.Json()["beyond_travel"], true);
  EXPECT_NE(r.erreurs.find("5000.00 >"), std::string::npos) << r.erreurs;
}

TEST(Check, TellsTwentyBadLinesAndHowManyMore) {
  const Atelier a;
  std::string texte;
  for (int i = 0; i < 50; ++i) texte += "x\n";
  const auto r = a.Appelle({"check", a.Ecrit("mauvais.nc", texte)});
  EXPECT_EQ(r.etat, 0);
  EXPECT_EQ(std::count(r.erreurs.begin(), r.erreurs.end(), '\n'), 21);
  EXPECT_NE(r.erreurs.find(" 30 "), std::string::npos) << r.erreurs;
}

TEST(Check, RefusesWhatCannotBeRead) {
  const Atelier a;
  const auto r = a.Appelle({"check", a.Chemin("absent.nc"), "--json"});
  EXPECT_EQ(r.etat, 1);
  EXPECT_EQ(r.Json()["error"]["file"], a.Chemin("absent.nc"));
  EXPECT_EQ(a.Appelle({"check"}).etat, 2);
}

TEST(Check, PassesWhatTheProgramWrites) {
  const Atelier a;
  ASSERT_EQ(a.Appelle({"gcode", Exemple("equerre-attaches.OVL"), "-o", a.Chemin("job.nc")}).etat, 0);
  const auto job = a.Appelle({"gcode", Exemple("equerre-attaches.OVL"), "-o", a.Chemin("job.nc"), "--json"});
  const auto r = a.Appelle({"check", a.Chemin("job.nc"), "--json"});
  EXPECT_EQ(r.Json()["invalid"], 0);
  EXPECT_EQ(r.Json()["doubtful"], 0);
  EXPECT_EQ(r.Json()["without_speed"], 0);
  EXPECT_EQ(r.Json()["lines"], job.Json()["lines"]);
  EXPECT_NEAR(r.Json()["length"].get<double>(), job.Json()["length"].get<double>(), 1);
}

TEST(Play, RunsAProgramOnTheVirtualBoard) {
  const Atelier a;
  const auto r = a.Appelle({"play", a.Ecrit("pièce.nc", "F600\nG01 X10 Y5\nG00 Z3\n"), "--fast", "--json",
                            "--board-file", a.Chemin("carte"), "--answer", "2=yes"});
  ASSERT_EQ(r.etat, 0) << r.erreurs;
  EXPECT_EQ(r.Json()["state"], "ended");
  EXPECT_EQ(r.Json()["moves"], 2);
  EXPECT_NEAR(r.Json()["position"]["x"].get<double>(), 10, 0.01);
  EXPECT_NEAR(r.Json()["position"]["z"].get<double>(), 3, 0.01);
}

TEST(Play, SkippedLinesNeedAnAnswer) {
  const Atelier a;
  const std::string fichier = a.Ecrit("arc.nc", "F600\nG01 X10\nG02 X5 R9\n");
  const auto sans = a.Appelle({"play", fichier, "--fast", "--json", "--board-file", a.Chemin("carte")});
  EXPECT_EQ(sans.etat, 1);
  EXPECT_EQ(sans.Json()["error"]["key"], "lib020");
  EXPECT_EQ(a.Appelle({"play", fichier, "--fast", "--board-file", a.Chemin("carte"), "--answer", "lib020=yes",
                       "--answer", "2=yes"})
                .etat,
            0);
}

TEST(Play, AMoveWithoutASpeedIsRefused) {
  const Atelier a;
  const auto r = a.Appelle({"play", a.Ecrit("lent.nc", "G01 X10\n"), "--fast", "--json"});
  EXPECT_EQ(r.etat, 1);
  EXPECT_EQ(r.Json()["error"]["key"], "lib017");
}

// A square of 40 mm with its hole, slow enough for no question about speeds.
std::vector<std::string> Fraisage(const Atelier& a, std::vector<std::string> encore = {}) {
  std::vector<std::string> appel{"mill",         a.Ecrit("carré.dxf", Carre),
                                 "--fast",       "--json",
                                 "--board-file", a.Chemin("carte"),
                                 "--set",        "RayonFraise=1",
                                 "--set",        "ProfFraisage=-2",
                                 "--set",        "ProfPasse=-2",
                                 "--set",        "Vitesse_Mat_H=4",
                                 "--answer",     "2=yes",
                                 "--answer",     "lib007=ok",
                                 "--answer",     "lib005=ok"};
  appel.insert(appel.end(), encore.begin(), encore.end());
  return appel;
}

TEST(Mill, DoesTheStepsOfThePlan) {
  const Atelier a;
  for (const char* mode : {"usb", "both"}) {
    const auto r = a.Appelle(Fraisage(a, {"--mode", mode}));
    ASSERT_EQ(r.etat, 0) << mode << r.erreurs << r.sortie;
    EXPECT_EQ(r.Json()["state"], "ended") << mode;
    EXPECT_EQ(r.Json()["steps"], r.Json()["planned"]) << mode;
    EXPECT_GT(r.Json()["records"], 10) << mode;
    EXPECT_GT(r.Json()["ticks"], 1000) << mode;
    EXPECT_GT(r.Json()["seconds"].get<double>(), 10) << mode;
  }
}

TEST(Mill, AsksWhatTheWindowAsks) {
  const Atelier a;
  ASSERT_EQ(a.Appelle(Fraisage(a, {"--mode", "flash"})).etat, 0) << "the board gets its table";
  const auto sans = [&](const std::string& reponse, const char* vitesse) {
    std::vector<std::string> appel = Fraisage(a, {"--set", std::string("Vitesse_Mat_H=") + vitesse});
    const auto la = std::find(appel.begin(), appel.end(), reponse);
    appel.erase(la - 1, la + 1);
    const auto r = a.Appelle(appel);
    EXPECT_EQ(r.etat, 1) << reponse;
    return r.Json()["error"]["key"].get<std::string>();
  };
  EXPECT_EQ(sans("2=yes", "4"), "2");
  EXPECT_EQ(sans("lib007=ok", "10"), "lib007");
  EXPECT_EQ(sans("lib005=ok", "4000"), "lib005");
}

TEST(Mill, RefusesWhatTheWindowRefuses) {
  const Atelier a;
  const auto refus = [&](const char* cle) {
    const auto r = a.Appelle(Fraisage(a, {"--set", cle}));
    EXPECT_EQ(r.etat, 1) << cle;
    return r.Json()["error"]["key"].get<std::string>();
  };
  EXPECT_EQ(refus("ProfPasse=1"), "lib011_3");
  EXPECT_EQ(refus("ProfFraisage=1"), "lib011_2");
  EXPECT_EQ(refus("Vitesse_Mat_H=0"), "lib021");
}

TEST(Mill, IntoTheMemoryAloneNothingMoves) {
  const Atelier a;
  const auto r = a.Appelle(Fraisage(a, {"--mode", "flash"}));
  ASSERT_EQ(r.etat, 0) << r.erreurs;
  EXPECT_EQ(r.Json()["state"], "stored");
  EXPECT_EQ(r.Json()["steps"], (json{{"x", 0}, {"y", 0}, {"z", 0}}));
}

TEST(Mill, StopsAtARecordAndGoesOnToTheEnd) {
  const Atelier a;
  for (const char* arret : {"ramp", "now"}) {
    const auto seul = a.Appelle(Fraisage(a, {"--stop-at-record", "8", "--stop", arret}));
    EXPECT_EQ(seul.etat, 1) << arret << seul.erreurs;
    EXPECT_EQ(seul.Json()["state"], "stopped") << arret;
    const auto repris = a.Appelle(Fraisage(a, {"--stop-at-record", "8", "--stop", arret, "--resume"}));
    ASSERT_EQ(repris.etat, 0) << arret << repris.erreurs;
    EXPECT_EQ(repris.Json()["state"], "ended") << arret;
    EXPECT_EQ(repris.Json()["steps"], repris.Json()["planned"]) << arret;
  }
}

TEST(Mill, ASpeedTypedInTheRunKeepsTheWay) {
  const Atelier a;
  const auto r = a.Appelle(Fraisage(a, {"--speed-at", "5:2"}));
  ASSERT_EQ(r.etat, 0) << r.erreurs;
  const auto ordinaire = a.Appelle(Fraisage(a));
  EXPECT_EQ(r.Json()["steps"], ordinaire.Json()["steps"]);
  EXPECT_GT(r.Json()["ticks"], ordinaire.Json()["ticks"]) << "slower from there on";
  EXPECT_EQ(a.Appelle(Fraisage(a, {"--speed-at", "x"})).etat, 2);
}

}  // namespace
