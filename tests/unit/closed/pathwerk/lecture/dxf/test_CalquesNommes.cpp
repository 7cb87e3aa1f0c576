// Layers and colours that the entities of a drawing lie on.
#include "tests/unit/closed/pathwerk/lecture/dxf/Outils.h"

namespace {

using namespace essai;
using pathwerk::Calque;
using pathwerk::lecture::Lecture;

const std::string Table =
    "0=LAYER 2=0 70=0 62=7 0=LAYER 2=Coupe 70=0 62=1 0=LAYER 2=Gravure 70=0 62=5 420=1193046 0=LAYER 2=sans 70=0 ";
const std::string Ligne = "10=0 20=0 11=5 21=0 ";

// The layer of each path, in the order of the file.
std::vector<Calque> Calques(const Lecture& l) {
  EXPECT_EQ(l.rapport.Numero, pathwerk::Erreur::Aucune) << l.rapport.Detail;
  std::vector<Calque> calques;
  for (const auto& t : l.traits) calques.push_back(l.calques.Tous().at(t.calque));
  return calques;
}
std::vector<Calque> Calques(const std::string& entites) { return Calques(Lit(AvecCalques(Table, entites))); }
Calque Seul(const std::string& entites) {
  const auto tous = Calques(entites);
  EXPECT_EQ(tous.size(), 1U) << entites;
  return tous.empty() ? Calque{} : tous[0];
}
Calque Nomme(const std::string& nom, std::optional<std::uint32_t> couleur = std::nullopt) {
  return {Calque::Genre::Nomme, nom, couleur};
}

TEST(NamedLayers, APathHasTheColourOfItsLayerUnlessItHasOneOfItsOwn) {
  EXPECT_EQ(Seul("0=LINE 8=Coupe " + Ligne), Nomme("Coupe", 0xFF0000));
  EXPECT_EQ(Seul("0=LINE 8=Coupe 62=256 " + Ligne), Nomme("Coupe", 0xFF0000));
  EXPECT_EQ(Seul("0=LINE 8=Coupe 62=3 " + Ligne), Nomme("Coupe", 0x00FF00));
  EXPECT_EQ(Seul("0=LINE 8=Coupe 62=3 420=66051 " + Ligne), Nomme("Coupe", 0x010203));
  EXPECT_EQ(Seul("0=LINE 8=Gravure " + Ligne), Nomme("Gravure", 0x123456)) << "1193046 in base 16";
}

TEST(NamedLayers, BlackOrWhiteAndALayerThatTheTableLacksHaveNoColour) {
  EXPECT_EQ(Seul("0=LINE 8=0 " + Ligne), Nomme("0"));
  EXPECT_EQ(Seul("0=LINE " + Ligne), Nomme("0"));
  EXPECT_EQ(Seul("0=LINE 8=Coupe 62=7 " + Ligne), Nomme("Coupe"));
  EXPECT_EQ(Seul("0=LINE 8=nulle_part " + Ligne), Nomme("nulle_part"));
  EXPECT_EQ(Seul("0=LINE 8=sans " + Ligne), Nomme("sans"));
}

TEST(NamedLayers, HaveTheSpellingOfTheTable) {
  EXPECT_EQ(Seul("0=LINE 8=COUPE " + Ligne), Nomme("Coupe", 0xFF0000));
}

TEST(NamedLayers, AColourThatCanNotBeReadIsNoReasonToRefuse) {
  EXPECT_EQ(Seul("0=LINE 8=Coupe 62=rouge " + Ligne), Nomme("Coupe", 0xFF0000));
  EXPECT_EQ(Seul("0=LINE 8=Coupe 420=1e99 " + Ligne).Nom, "Coupe");
  EXPECT_EQ(Seul("0=LINE 8=Coupe 62=-2147483648 " + Ligne), Nomme("Coupe"));
  EXPECT_EQ(Lit(AvecCalques("0=LAYER 2=A 62=-2147483648 ", "0=POINT 8=0 10=0 20=0 ")).traits.size(), 1U);
}

TEST(NamedLayers, EveryKindOfPathHasItsLayer) {
  for (const char* entite :
       {"0=CIRCLE 8=Coupe 10=0 20=0 40=5 ", "0=POINT 8=Coupe 10=0 20=0 ",
        "0=ARC 8=Coupe 10=0 20=0 40=5 50=0 51=90 ", "0=LWPOLYLINE 8=Coupe 90=2 70=0 10=0 20=0 10=5 20=5 ",
        "0=POLYLINE 8=Coupe 66=1 70=0 0=VERTEX 8=0 62=5 10=0 20=0 0=VERTEX 8=0 10=1 20=0 0=SEQEND 8=0 ",
        "0=SOLID 8=Coupe 10=0 20=0 11=5 21=0 12=0 22=5 ",
        // one text on two lines
        ("0=HATCH 8=Coupe 2=SOLID 70=1 71=0 91=1 92=2 72=0 73=1 93=3 10=0 20=0 10=5 20=0 10=0 20=5 97=0 75=0 76=1 "
         "98=0 ")}) {
    EXPECT_EQ(Seul(entite), Nomme("Coupe", 0xFF0000)) << entite;
  }
}

// On layer "0" a block's entity takes the layer of the insertion, and of colour 0 its colour.
TEST(NamedLayers, ABlockTakesLayerAndColourFromItsInsertion) {
  const std::string blocs = "0=BLOCK 8=0 2=A 10=0 20=0 0=LINE 8=0 " + Ligne + "0=LINE 8=0 62=0 " + Ligne +
                            "0=LINE 8=Gravure 62=0 " + Ligne + "0=LINE 8=Gravure " + Ligne + "0=ENDBLK ";
  const auto calques = Calques(
      Lit(Texte("0=SECTION 2=TABLES 0=TABLE 2=LAYER 70=5 " + Table + "0=ENDTAB 0=ENDSEC 0=SECTION 2=BLOCKS " +
                blocs + "0=ENDSEC " + Section("0=INSERT 8=Coupe 62=3 2=A 10=0 20=0 0=LINE 8=0 62=0 " + Ligne))));
  EXPECT_EQ(calques, (std::vector<Calque>{Nomme("Coupe", 0xFF0000), Nomme("Coupe", 0x00FF00),
                                          Nomme("Gravure", 0x00FF00), Nomme("Gravure", 0x123456), Nomme("0")}));
}

TEST(NamedLayers, CharactersByTheirNumberAreDecoded) {
  EXPECT_EQ(Seul("0=LINE 8=\\U+0413\\U+00E9x " + Ligne).Nom, "\xD0\x93\xC3\xA9x");
  EXPECT_EQ(Seul("0=LINE 8=\\U+5C64 " + Ligne).Nom, "\xE5\xB1\xA4");
  for (const char* nom : {"\\U+", "\\U+12", "\\U+00ZZ", "\\U+0041", "\\U+D800", "a\\U+123"}) {
    EXPECT_EQ(Seul("0=LINE 8=" + std::string(nom) + " " + Ligne).Nom, nom);
  }
}

TEST(NamedLayers, BytesOfAnyCodePageComeAsTheyAre) {
  EXPECT_EQ(Seul("0=LINE 8=Ext\xE9rieur " + Ligne).Nom, "Ext\xE9rieur");
  EXPECT_EQ(Seul("0=LINE 8=\xFF\xFE\x80 " + Ligne).Nom, "\xFF\xFE\x80");
}

TEST(NamedLayers, ABinaryFileHasThemToo) {
  const auto groupes = DeMots("0=SECTION 2=ENTITIES 0=LINE 8=Coupe 62=5 " + Ligne + "0=ENDSEC 0=EOF");
  EXPECT_EQ(Calques(Lit(EnBinaire(groupes))), std::vector<Calque>{Nomme("Coupe", 0x0000FF)});
}

// Each entity of a block on a layer with a name of a megabyte.
TEST(NamedLayers, ANameOfAMegabyteIsCut) {
  const std::string nom(1'000'000, 'n');
  std::string bloc = "0=BLOCK 8=0 2=A 10=0 20=0 ";
  for (int i = 0; i < 200; ++i) bloc += "0=LINE 8=0 " + Ligne;
  const auto calques = Calques(Lit(AvecBlocs(bloc + "0=ENDBLK ", "0=INSERT 8=" + nom + " 2=A 10=0 20=0 ")));
  ASSERT_EQ(calques.size(), 200U);
  for (const Calque& c : calques) ASSERT_EQ(c.Nom, std::string(1020, 'n'));
}

TEST(NamedLayers, AHundredThousandLayersAreRead) {
  std::string entites;
  for (int i = 0; i < 100'000; ++i) entites += "0=POINT 8=L" + std::to_string(i) + " 10=0 20=0 ";
  const Lecture l = LitEntites(entites);
  ASSERT_EQ(l.traits.size(), 100'000U);
  EXPECT_EQ(l.calques.Tous().at(l.traits[65'534].calque).Nom, "L65534");
  EXPECT_EQ(l.traits[65'535].calque, 0) << "the table is full";
  EXPECT_EQ(l.traits[99'999].calque, 0);
}

}  // namespace
