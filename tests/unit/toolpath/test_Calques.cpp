// The layers of a drawing as its user tells them apart.
#include <gtest/gtest.h>

#include "base/Indices.h"
#include "core/DocumentCourant.h"
#include "tests/support/Support.h"
#include "toolpath/chemins/Calques.h"

namespace {

using namespace ovelin;
using Codes = std::vector<Code2>;

constexpr std::uint32_t Rouge = 0xFF0000;
constexpr std::uint32_t Bleu = 0x0000FF;

// Paths " A", " B" ... with these layers, none selected.
Document Dessin(const std::vector<Complement>& complements) {
  Document d;
  char lettre = 'A';
  for (const Complement& c : complements) {
    const std::string code{' ', lettre++};
    const auto points = essai::Trace(code, {{0, 0}, {5, 5}});
    d.TraceInitial.insert(d.TraceInitial.end(), points.begin(), points.end());
    if (d.Sequences.front().Code == Code2{}) d.Sequences.clear();
    d.Sequences.push_back({Code2(code), Faux, -3, Vrai, 1, Faux});
    d.Complements.Pose(Code2(code), c);
  }
  d.NbPoints = base::Compte(d.TraceInitial.size());
  return d;
}
Complement Sur(const std::string& nom, std::optional<std::uint32_t> couleur = std::nullopt) {
  return {false, nom, couleur};
}
Codes Choisies(const Document& d) {
  Codes codes;
  for (const SequenceInfo& s : d.Sequences) {
    if (s.Selection != Faux) codes.push_back(s.Code);
  }
  return codes;
}

TEST(PartageDe, NamesTellApartBeforeColours) {
  EXPECT_EQ(PartageDe(Dessin({Sur("a", Rouge), Sur("b", Bleu)})), PartageCalques::Noms);
  EXPECT_EQ(PartageDe(Dessin({Sur("a", Rouge), Sur("a", Bleu)})), PartageCalques::Couleurs);
  EXPECT_EQ(PartageDe(Dessin({Sur("a"), Sur("")})), PartageCalques::Noms);
  EXPECT_EQ(PartageDe(Dessin({Sur("", Rouge), Sur("")})), PartageCalques::Couleurs);
}

TEST(PartageDe, WhereAllAreTheSameNothingIsToldApart) {
  EXPECT_EQ(PartageDe(Dessin({})), PartageCalques::Aucun);
  EXPECT_EQ(PartageDe(Dessin({Sur("0"), Sur("0")})), PartageCalques::Aucun);
  EXPECT_EQ(PartageDe(Dessin({Sur("a", Rouge), Sur("a", Rouge)})), PartageCalques::Aucun);
  EXPECT_EQ(PartageDe(Dessin({{true, "a", Rouge}, Sur("a", Rouge)})), PartageCalques::Aucun)
      << "an island is no layer";
}

// What a deletion of all paths leaves behind.
TEST(PartageDe, TheEmptyRecordOfAnEmptiedDrawingIsNoPath) {
  Document d = Dessin({Sur("a")});
  d.TraceInitial.push_back({0, 0, Code2{}, Code2{}});
  ++d.NbPoints;
  EXPECT_EQ(PartageDe(d), PartageCalques::Aucun);
}

TEST(CalquesDe, ListsThemInTheOrderOfCutting) {
  const auto calques = CalquesDe(Dessin({Sur("b", Rouge), Sur("a", Bleu), Sur("b", Rouge), Sur("a", Rouge)}));
  ASSERT_EQ(calques.size(), 2U);
  EXPECT_EQ(calques[0].nom, "b");
  EXPECT_EQ(calques[0].couleur, Rouge);
  EXPECT_EQ(calques[0].codes, (Codes{Code2(" A"), Code2(" C")}));
  EXPECT_EQ(calques[1].nom, "a");
  EXPECT_EQ(calques[1].couleur, std::nullopt) << "its paths differ";
  EXPECT_EQ(calques[1].codes, (Codes{Code2(" B"), Code2(" D")}));
}

TEST(CalquesDe, OfOneNameAreTheColours) {
  const auto calques = CalquesDe(Dessin({Sur("a", Rouge), Sur("a"), Sur("a", Rouge)}));
  ASSERT_EQ(calques.size(), 2U);
  EXPECT_EQ(calques[0].couleur, Rouge);
  EXPECT_EQ(calques[0].codes.size(), 2U);
  EXPECT_EQ(calques[1].couleur, std::nullopt);
  EXPECT_TRUE(CalquesDe(Dessin({Sur("0"), Sur("0")})).empty());
}

TEST(EtendSelectionAuxCalques, TakesAllPathsOfTheLayersOfTheSelectedOnes) {
  Document d = Dessin({Sur("a", Rouge), Sur("b", Rouge), Sur("a", Bleu), Sur("c"), Sur("b")});
  d.Sequences[0].Selection = Vrai;
  EXPECT_TRUE(EtendSelectionAuxCalques(d));
  EXPECT_EQ(Choisies(d), (Codes{Code2(" A"), Code2(" C")})) << "by name, whatever the colours";
  d.Sequences[3].Selection = Vrai;
  EXPECT_TRUE(EtendSelectionAuxCalques(d));
  EXPECT_EQ(Choisies(d), (Codes{Code2(" A"), Code2(" C"), Code2(" D")}));
}

TEST(EtendSelectionAuxCalques, OfOneNameTakesThoseOfTheColour) {
  Document d = Dessin({Sur("a", Rouge), Sur("a", Bleu), Sur("a", Rouge)});
  d.Sequences[2].Selection = Vrai;
  EXPECT_TRUE(EtendSelectionAuxCalques(d));
  EXPECT_EQ(Choisies(d), (Codes{Code2(" A"), Code2(" C")}));
}

TEST(EtendSelectionAuxCalques, OfADrawingWithOneLayerTakesAllAndWithoutASelectionNone) {
  Document d = Dessin({Sur(""), Sur("")});
  EXPECT_FALSE(EtendSelectionAuxCalques(d));
  EXPECT_TRUE(Choisies(d).empty());
  d.Sequences[1].Selection = Vrai;
  EXPECT_TRUE(EtendSelectionAuxCalques(d));
  EXPECT_EQ(Choisies(d).size(), 2U);
}

TEST(NomAffiche, CutsALongNameAtAWholeCharacter) {
  EXPECT_EQ(NomAffiche(std::string(40, 'x')), std::string(40, 'x'));
  EXPECT_EQ(NomAffiche(std::string(41, 'x')), std::string(40, 'x') + "\xE2\x80\xA6");
  std::string longue;
  for (int i = 0; i < 100; ++i) longue += "\xE5\xB1\xA4";
  EXPECT_EQ(NomAffiche(longue), longue.substr(0, 120) + "\xE2\x80\xA6");
}

// A name that ends with U+202E would write the figures behind it backwards.
TEST(NomAffiche, LeavesOutWhatIsNotSeen) {
  EXPECT_EQ(NomAffiche("a\xE2\x80\xAE"
                       "b\xE2\x81\xA6"
                       "c\xE2\x80\x8F"
                       "d\xD8\x9C"
                       "e\xE2\x80\xA8"
                       "f"),
            "abcdef");
  EXPECT_EQ(NomAffiche("a\x01\n\x7F"
                       "b"),
            "ab");
  EXPECT_EQ(NomAffiche("\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D"), "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D")
      << "its letters stay";
  EXPECT_EQ(NomAffiche("\x80\xFF"
                       "a"),
            "a")
      << "no character at all";
}

TEST(TexteCalque, IsTheNameOrTheColourWhereTheyDiffer) {
  const Complement c = Sur("Gravure", Rouge);
  EXPECT_EQ(TexteCalque(c, PartageCalques::Noms), "Gravure");
  EXPECT_EQ(TexteCalque(c, PartageCalques::Couleurs), "#FF0000");
  EXPECT_EQ(TexteCalque(c, PartageCalques::Aucun), "");
  EXPECT_EQ(TexteCalque(Sur("Gravure"), PartageCalques::Couleurs), "");
  EXPECT_EQ(TexteCouleur(0x00A0F5), "#00A0F5");
}

}  // namespace
