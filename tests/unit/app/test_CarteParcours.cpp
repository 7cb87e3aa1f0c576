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
       {std::vector<std::string>{"--path", a.Chemin("p.svg")}, {"--model", "X:1"}}) {
    std::vector<std::string> appel{"board", "status", "--json"};
    appel.insert(appel.end(), option.begin(), option.end());
    r = a.Appelle(appel);
    EXPECT_EQ(r.etat, 1) << option[0];
    EXPECT_EQ(r.Json()["error"]["key"], "cli_carte_option") << r.sortie;
  }
}

TEST(BoardModel, OfNoAxisIsAWrongCall) {
  const Atelier a;
  EXPECT_EQ(a.Appelle({"board", "status", "--model", "A:1"}).etat, 2);
  EXPECT_EQ(a.Appelle({"board", "status", "--model", "X:-1"}).etat, 2);
}

}  // namespace
