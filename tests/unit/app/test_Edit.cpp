// The command edit: operations by the names of their procedures.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "tests/unit/app/Appel.h"

namespace {

using essai::Atelier;
using essai::Carre;
using nlohmann::json;

TEST(Edit, RunsOperationsByName) {
  const Atelier a;
  const std::string operations = a.Ecrit("ops.json", R"([
    // the square alone
    {"op": "DeselectionneTout"},
    {"op": "BasculeSelection", "code": " B"},
    {"op": "DeplaceSelection", "direction": 1, "distance": 10},
    {"op": "TB_Profondeur", "valeur": -1.25}
  ])");
  const auto r = a.Appelle({"edit", a.Ecrit("carre.dxf", Carre), "--do", operations, "-o", a.Chemin("e.OVL"),
                            "--answer", "lib106=yes", "--json"});
  ASSERT_EQ(r.etat, 0) << r.erreurs;
  EXPECT_EQ(r.Json()["operations"], 4);
  const auto t = a.Appelle({"trace", a.Chemin("e.OVL"), "-o", a.Chemin("e.json")});
  ASSERT_EQ(t.etat, 0) << t.erreurs;
  const json j = json::parse(Atelier::Lit(a.Chemin("e.json")));
  // The hole comes first (it lies inside) and stands where it was, about (25, 25); the square was moved from 5
  // to 15.
  EXPECT_NEAR(j["sequences"][0]["profondeur"].get<double>(), -3, 1e-9);
  EXPECT_NEAR(j["sequences"][1]["profondeur"].get<double>(), -1.25, 1e-9);
  double gauche = 1e9;
  for (const auto& p : j["sequences"][1]["points"]) gauche = std::min(gauche, p[0].get<double>());
  EXPECT_NEAR(gauche, 15, 1e-4);
}

TEST(Edit, MarksIslandsThatTheProjectKeeps) {
  const Atelier a;
  const std::string operations = a.Ecrit("ops.json", R"([
    {"op": "Selectionne", "codes": [" B"]},
    {"op": "CB_Poche", "valeur": true},
    {"op": "Selectionne", "codes": [" A"]},
    {"op": "CB_Ilot", "valeur": true}
  ])");
  const auto r =
      a.Appelle({"edit", a.Ecrit("carre.dxf", Carre), "--do", operations, "-o", a.Chemin("e.OVL"), "--json"});
  ASSERT_EQ(r.etat, 0) << r.erreurs;
  EXPECT_EQ(a.Appelle({"info", a.Chemin("e.OVL"), "--json"}).Json()["islands"], 1);
  EXPECT_FALSE(a.Appelle({"info", a.Chemin("carre.dxf"), "--json"}).Json().contains("islands"));
  ASSERT_EQ(a.Appelle({"trace", a.Chemin("e.OVL"), "-o", a.Chemin("e.json")}).etat, 0);
  const json j = json::parse(Atelier::Lit(a.Chemin("e.json")));
  EXPECT_TRUE(j["sequences"][0]["ilot"].get<bool>());
  EXPECT_FALSE(j["sequences"][1].contains("ilot"));
  // The hole, about (25, 25), stands: it has no tool path, and that of the square keeps away from it.
  EXPECT_TRUE(j["trace"][0]["points"].empty());
  EXPECT_GT(j["trace"][1]["points"].size(), 20U);
}

TEST(Edit, CopiesRepeatsOrdersAndHolds) {
  const Atelier a;
  const std::string operations = a.Ecrit("ops.json", R"([
    {"op": "CopieSelection"},
    {"op": "ColleCopie", "dx": 100, "dy": 0},
    {"op": "DupliqueSelection", "dx": 0, "dy": 100},
    {"op": "Selectionne", "codes": [" B"]},
    {"op": "RepeteEnRangees", "colonnes": 3, "rangees": 1, "pasX": 200},
    {"op": "RepeteEnRond", "nombre": 2, "x": 0, "y": 0},
    {"op": "PoseAttaches", "nombre": 2},
    {"op": "OrdonneTrajets"},
    {"op": "PlaceAuCoin"}
  ])");
  const auto r =
      a.Appelle({"edit", a.Ecrit("carre.dxf", Carre), "--do", operations, "-o", a.Chemin("e.OVL"), "--json"});
  ASSERT_EQ(r.etat, 0) << r.erreurs;
  // Two paths; two more pasted, two more duplicated; two copies of one in a row, and those two once more in a
  // circle.
  EXPECT_EQ(r.Json()["sequences"], 2 + 2 + 2 + 2 + 2);
  const auto i = a.Appelle({"info", a.Chemin("e.OVL"), "--json"}).Json();
  EXPECT_GE(i["bounds"]["xmin"].get<double>(), 4.9);
  EXPECT_GE(i["bounds"]["ymin"].get<double>(), 4.9);
  // Nothing of it comes by chance.
  ASSERT_EQ(a.Appelle({"edit", a.Chemin("carre.dxf"), "--do", operations, "-o", a.Chemin("f.OVL")}).etat, 0);
  EXPECT_EQ(Atelier::Lit(a.Chemin("e.OVL")), Atelier::Lit(a.Chemin("f.OVL")));
}

TEST(Edit, AWrongOperationTellsItsRankAndWritesNothing) {
  const Atelier a;
  const std::string dessin = a.Ecrit("carre.dxf", Carre);
  const struct {
    const char* operations;
    const char* raison;
  } cas[] = {
      {R"([{"op":"SelectionneTout"},{"op":"Danse"}])", "2. Danse"},
      {R"([{"op":"TourneSelection"}])", "angle: missing"},
      {R"([{"op":"TourneSelection","angle":"a"}])", "angle: number"},
      {R"([{"op":"BasculeSelection","code":"ABC"}])", "code: two characters"},
      {R"([{"op":"CB_Depart","index":999999}])", "index: 0 to"},
      {R"([{"op":"InserePoint","index":-1,"x":0,"y":0,"seq":" A"}])", "index: 0 to"},
      {R"([{"op":"Option_Decal","decalage":4}])", "1, 2 or 3"},
      {R"([{"op":"RemplaceSequence","code":" A","points":[[1]]}])", "[x, y]"},
      {R"([{"op":"CB_OK_Dimension","rapportX":0,"rapportY":1}])", ""},
      {R"([{"op":"RepeteEnRangees","colonnes":0,"rangees":1}])", "colonnes: 1 to"},
      {R"([{"op":"PoseAttaches","pas":0}])", "pas: more than 0"},
      {R"([3])", "op: missing"},
  };
  for (const auto& c : cas) {
    const auto r =
        a.Appelle({"edit", dessin, "--do", a.Ecrit("ops.json", c.operations), "-o", a.Chemin("e.OVL"), "--json"});
    EXPECT_EQ(r.etat, 1) << c.operations;
    EXPECT_NE(r.Json()["error"]["text"].get<std::string>().find(c.raison), std::string::npos) << r.sortie;
    EXPECT_FALSE(std::filesystem::exists(a.Chemin("e.OVL")));
  }
}

TEST(Edit, AProjectWithoutAPathIsNotWritten) {
  const Atelier a;
  const auto r =
      a.Appelle({"edit", a.Ecrit("carre.dxf", Carre), "--do", a.Ecrit("o.json", R"([{"op":"SupprimeSelection"}])"),
                 "-o", a.Chemin("e.OVL"), "--json"});
  EXPECT_EQ(r.etat, 1);
  EXPECT_EQ(r.Json()["error"]["key"], "lib109");
  EXPECT_FALSE(std::filesystem::exists(a.Chemin("e.OVL")));
}

TEST(Edit, AFileThatIsNotAListIsRefused) {
  const Atelier a;
  for (const char* texte : {"", "{}", "[", "nul"}) {
    const auto r = a.Appelle({"edit", a.Ecrit("carre.dxf", Carre), "--do", a.Ecrit("ops.json", texte), "-o",
                              a.Chemin("e.OVL"), "--json"});
    EXPECT_EQ(r.etat, 1);
    EXPECT_EQ(r.Json()["error"]["key"], "cli_json");
  }
}

}  // namespace
