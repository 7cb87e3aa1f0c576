// The machine of the virtual board on the command line: its model, and the path that it has walked.
#include <gtest/gtest.h>

#include <string>

#include "tests/unit/app/Appel.h"

namespace {

using essai::Atelier;
using essai::Retour;

const std::string Programme = "F600\nG01 X10\nG01 Y5\nG01 X0\n";

TEST(BoardPath, OfAProgramThatWasPlayed) {
  const Atelier a;
  const std::string nc = a.Ecrit("p.nc", Programme), csv = a.Chemin("p.csv"), svg = a.Chemin("p.svg");
  for (const std::string& sortie : {csv, svg}) {
    const Retour r = a.Appelle({"play", nc, "--fast", "--answer", "2=yes", "--path", sortie});
    EXPECT_EQ(r.etat, 0) << r.erreurs;
  }
  const std::string lignes = Atelier::Lit(csv);
  EXPECT_EQ(lignes.find("X,Y,Z,PasX,PasY,PasZ\n0.0000,0.0000,0.0000,0,0,0\n"), 0U) << lignes;
  EXPECT_NE(lignes.find("\n10.0000,0.0000,0.0000,"), std::string::npos) << lignes;
  EXPECT_NE(lignes.find("\n0.0000,5.0000,0.0000,0,"), std::string::npos) << lignes;
  EXPECT_NE(Atelier::Lit(svg).find("<polyline"), std::string::npos);
}

TEST(BoardPath, OfTheStoredJobWithTheStepsThatTheModelLoses) {
  const Atelier a;
  const std::string dessin = a.Ecrit("c.dxf", essai::Carre), liste = a.Chemin("job.bin");
  EXPECT_EQ(a.Appelle({"plan", dessin, "--flash", liste}).etat, 0);
  EXPECT_EQ(a.Appelle({"board", "flash", liste}).etat, 0);
  const Retour juste = a.Appelle({"board", "path", "--fast", "--json"});
  ASSERT_EQ(juste.etat, 0) << juste.erreurs;
  const auto j = juste.Json();
  EXPECT_GT(j["records"], 10);
  EXPECT_EQ(j["place"], j["steps"]);
  EXPECT_EQ(j["lost"]["x"], 0);
  const Retour jeu = a.Appelle({"board", "path", "--fast", "--model", "X:0:0:5", "--json"});
  ASSERT_EQ(jeu.etat, 0) << jeu.erreurs;
  EXPECT_EQ(jeu.Json()["steps"], j["steps"]);
  EXPECT_NE(jeu.Json()["place"]["x"], j["place"]["x"]) << "the play of X has not been taken up";
  EXPECT_EQ(jeu.Json()["place"]["y"], j["place"]["y"]);
}

TEST(BoardPath, RefusesOtherExtensionsAndOtherBoards) {
  const Atelier a;
  const std::string nc = a.Ecrit("p.nc", Programme);
  Retour r = a.Appelle({"play", nc, "--fast", "--path", a.Chemin("p.txt"), "--json"});
  EXPECT_EQ(r.etat, 1);
  EXPECT_EQ(r.Json()["error"]["key"], "lib005");
  EXPECT_EQ(a.Appelle({"key", "set", "CarteZENIK", "aucune"}).etat, 0);
  for (const std::vector<std::string>& option :
       {std::vector<std::string>{"--path", a.Chemin("p.svg")}, {"--model", "X:1"}, {"--hand", "1:limit"}}) {
    std::vector<std::string> appel{"board", "status", "--json"};
    appel.insert(appel.end(), option.begin(), option.end());
    r = a.Appelle(appel);
    EXPECT_EQ(r.etat, 1) << option[0];
    EXPECT_EQ(r.Json()["error"]["key"], "cli_carte_option") << r.sortie;
  }
}

TEST(BoardHand, PressesSwitchesAndKeysBeforeItsExchange) {
  const Atelier a;
  Retour r = a.Appelle({"board", "status", "--json", "--hand", "1:limit", "--hand", "1:keys=17"});
  ASSERT_EQ(r.etat, 0) << r.erreurs;
  EXPECT_EQ(r.Json()["limit_switch"], true);
  EXPECT_EQ(r.Json()["origin_switch"], false);
  EXPECT_EQ(r.Json()["keys"], 17);
  r = a.Appelle({"board", "status", "--json", "--hand", "2:origin=0", "--hand", "1:origin"});
  EXPECT_EQ(r.Json()["origin_switch"], false) << "pressed at the first, let go at the second";
  r = a.Appelle({"board", "status", "--json", "--hand", "9999:limit"});
  EXPECT_EQ(r.Json()["limit_switch"], false) << "it has not come to that";
}

// Pressed while the first move runs.
TEST(BoardHand, ALimitSwitchStopsAJob) {
  const Atelier a;
  const std::string nc = a.Ecrit("p.nc", Programme), fil = a.Chemin("fil.txt");
  std::vector<std::string> appel{"play", nc, "--fast", "--answer", "2=yes", "--json"};
  appel.insert(appel.end(), {"--wire", fil});
  Retour r = a.Appelle(appel);
  ASSERT_EQ(r.etat, 0) << r.erreurs;
  EXPECT_EQ(r.Json()["state"], "ended");
  const std::string lignes = Atelier::Lit(fil);
  const std::size_t premier = lignes.find("> 00 44");
  ASSERT_NE(premier, std::string::npos);
  const int echange = std::stoi(lignes.substr(lignes.rfind('\n', premier) + 1));
  appel.insert(appel.end(), {"--hand", std::to_string(echange + 1) + ":limit"});
  r = a.Appelle(appel);
  EXPECT_NE(r.Json()["state"], "ended") << r.sortie;
}

TEST(BoardHand, OfNoGestureIsAWrongCall) {
  const Atelier a;
  for (const char* faux : {"limit", "0:limit", "1:door", "1:keys", "1:keys=256", "1:limit=2", "1:limit="}) {
    EXPECT_EQ(a.Appelle({"board", "status", "--hand", faux}).etat, 2) << faux;
  }
}

TEST(BoardStatus, ShowsOutputsAndDisplayOfTheVirtualBoard) {
  const Atelier a;
  auto j = a.Appelle({"board", "status", "--json"}).Json();
  EXPECT_EQ(j["outputs"]["motors"], false);
  EXPECT_EQ(j["display"]["lines"].size(), 2U);
  j = a.Appelle({"board", "wire", "M", "1", "--json"}).Json();
  EXPECT_EQ(j["outputs"]["motors"], true);
  EXPECT_EQ(j["outputs"]["auxiliary"], false);
  j = a.Appelle({"board", "wire", "P", "1", "200", "--json"}).Json();
  EXPECT_EQ(j["outputs"]["spindle"], true);
  EXPECT_EQ(j["outputs"]["value"], 200);
  j = a.Appelle({"board", "wire", "L", "1", "0", "2", "79", "75", "--json"}).Json();
  EXPECT_EQ(j["display"]["lines"][1].get<std::string>().substr(0, 2), "OK");
}

TEST(BoardModel, OfNoAxisIsAWrongCall) {
  const Atelier a;
  EXPECT_EQ(a.Appelle({"board", "status", "--model", "A:1"}).etat, 2);
  EXPECT_EQ(a.Appelle({"board", "status", "--model", "X:-1"}).etat, 2);
}

}  // namespace
