// Layers by the command line: listed, chosen, kept in a project.
#include <gtest/gtest.h>

#include "tests/unit/app/Appel.h"

namespace {

using essai::Atelier;
using nlohmann::json;

std::string Ligne(const std::string& calque, int y, const std::string& suite = "") {
  return "0\nLINE\n8\n" + calque + "\n" + suite + "10\n0\n20\n" + std::to_string(y) + "\n11\n20\n21\n" +
         std::to_string(y) + "\n";
}
const std::string Deux = "0\nSECTION\n2\nENTITIES\n" + Ligne("Coupe", 0, "62\n1\n") + Ligne("Gr\xE1tis=1", 30) +
                         Ligne("Coupe", 60, "62\n5\n") + "0\nENDSEC\n0\nEOF\n";

// The depth of each path behind operations that give the selection 1 mm; the others stay at 3.
std::vector<double> Profondeurs(const Atelier& a, const std::string& operation) {
  const auto r = a.Appelle({"edit", a.Ecrit("deux.dxf", Deux), "--do",
                            a.Ecrit("ops.json", "[" + operation + R"(,{"op":"TB_Profondeur","valeur":-1}])"), "-o",
                            a.Chemin("e.OVL"), "--json"});
  EXPECT_EQ(r.etat, 0) << r.sortie << r.erreurs;
  EXPECT_EQ(a.Appelle({"trace", a.Chemin("e.OVL"), "-o", a.Chemin("e.json")}).etat, 0);
  std::vector<double> profondeurs;
  const json trace = json::parse(Atelier::Lit(a.Chemin("e.json")));
  for (const json& s : trace["sequences"]) {
    profondeurs.push_back(s["profondeur"].get<double>());
  }
  return profondeurs;
}
using P = std::vector<double>;

TEST(Calques, InfoListsThemOfADrawingAndOfItsProject) {
  const Atelier a;
  const json attendu =
      json::parse("[{\"name\":\"Coupe\",\"sequences\":2},{\"name\":\"Gr\xC3\xA1tis=1\",\"sequences\":1}]");
  const std::string dessin = a.Ecrit("deux.dxf", Deux);
  EXPECT_EQ(a.Appelle({"info", dessin, "--json"}).Json()["layers"], attendu);
  ASSERT_EQ(a.Appelle({"save", dessin, "-o", a.Chemin("p.OVL")}).etat, 0);
  EXPECT_EQ(a.Appelle({"info", a.Chemin("p.OVL"), "--json"}).Json()["layers"], attendu);
}

TEST(Calques, InfoOfADrawingWithOneLayerSaysNothingOfIt) {
  const Atelier a;
  const auto r = a.Appelle(
      {"info",
       a.Ecrit("un.dxf", "0\nSECTION\n2\nENTITIES\n" + Ligne("0", 0) + Ligne("0", 30) + "0\nENDSEC\n0\nEOF\n"),
       "--json"});
  ASSERT_EQ(r.etat, 0) << r.erreurs;
  EXPECT_FALSE(r.Json().contains("layers"));
}

TEST(Calques, TraceTellsLayerAndColourOfAPath) {
  const Atelier a;
  ASSERT_EQ(a.Appelle({"trace", a.Ecrit("deux.dxf", Deux), "-o", a.Chemin("t.json")}).etat, 0);
  const json s = json::parse(Atelier::Lit(a.Chemin("t.json")))["sequences"];
  ASSERT_EQ(s.size(), 3U);
  EXPECT_EQ(s[0]["calque"], "Coupe");
  EXPECT_EQ(s[0]["couleur"], "#FF0000");
  EXPECT_EQ(s[1]["calque"], "Gr\xC3\xA1tis=1");
  EXPECT_FALSE(s[1].contains("couleur"));
}

TEST(Calques, AnOperationChoosesThePathsOfALayer) {
  const Atelier a;
  EXPECT_EQ(Profondeurs(a, R"({"op":"SelectionneCalque","calque":"Coupe"})"), (P{-1, -3, -1}));
  EXPECT_EQ(Profondeurs(a, R"({"op":"SelectionneCalque","couleur":"#0000FF"})"), (P{-3, -3, -1}));
  EXPECT_EQ(Profondeurs(a, R"({"op":"SelectionneCalque","calque":"Coupe","couleur":"#FF0000"})"), (P{-1, -3, -3}));
  EXPECT_EQ(Profondeurs(a, R"({"op":"Selectionne","codes":[" A"]},{"op":"SelectionneCalque"})"), (P{-1, -3, -1}));
}

TEST(Calques, ALayerThatThereIsNotIsRefused) {
  const Atelier a;
  const std::string dessin = a.Ecrit("deux.dxf", Deux);
  for (const auto& [operation, raison] : std::vector<std::pair<const char*, const char*>>{
           {R"([{"op":"SelectionneCalque","calque":"coupe"}])", "calque: no layer \"coupe\""},
           {R"([{"op":"SelectionneCalque","couleur":"red"}])", "couleur: no path \"red\""},
           {R"([{"op":"DeselectionneTout"},{"op":"SelectionneCalque"}])", "no path is selected"}}) {
    const auto r =
        a.Appelle({"edit", dessin, "--do", a.Ecrit("ops.json", operation), "-o", a.Chemin("e.OVL"), "--json"});
    EXPECT_EQ(r.etat, 1) << operation;
    EXPECT_NE(r.Json()["error"]["text"].get<std::string>().find(raison), std::string::npos) << r.sortie;
  }
}

}  // namespace
