// Colours and layers of a drawing.
#include "closed/pathwerk/lecture/svg/Couleurs.h"
#include "tests/unit/closed/pathwerk/lecture/svg/Mesures.h"

namespace pathwerk::lecture::svg {
namespace {

using namespace mesures;

TEST(LitCouleur, ReadsEveryWayOfWriting) {
  for (const char* rouge :
       {"#f00", "#F00", "#ff0000", "#FF0000", "#ff000080", "#f008", "rgb(255,0,0)", " rgb( 255 , 0 , 0 ) ",
        "rgb(100%,0%,0%)", "rgba(255,0,0,0.5)", "RGB(300,-4,0)", "red", "Red", " red "}) {
    EXPECT_EQ(LitCouleur(rouge), 0xFF0000U) << rouge;
  }
  EXPECT_EQ(LitCouleur("#1a2"), 0x11AA22U);
  EXPECT_EQ(LitCouleur("#123456"), 0x123456U);
  EXPECT_EQ(LitCouleur("rgb(60%, 0.4%, 20%)"), 0x990133U) << "153, 1.02 and 51 of 255";
}

// The first, the last, and those whose value differs from that of the same name in other lists.
TEST(LitCouleur, KnowsTheNamesOfTheFormat) {
  const std::vector<std::pair<const char*, std::uint32_t>> noms{
      {"aliceblue", 0xF0F8FF}, {"black", 0},           {"gray", 0x808080},   {"grey", 0x808080},
      {"green", 0x008000},     {"lime", 0x00FF00},     {"maroon", 0x800000}, {"purple", 0x800080},
      {"teal", 0x008080},      {"tomato", 0xFF6347},   {"white", 0xFFFFFF},  {"yellowgreen", 0x9ACD32},
      {"navy", 0x000080},      {"darkgray", 0xA9A9A9}, {"orange", 0xFFA500}};
  for (const auto& [nom, couleur] : noms) EXPECT_EQ(LitCouleur(nom), couleur) << nom;
}

TEST(LitCouleur, WhatIsNoColourIsNone) {
  for (const char* texte : {"", "none", "currentColor", "url(#g)", "#", "#12", "#12345", "#ggg", "#-12", "rgb(1,2)",
                            "rgb(a,b,c)", "hsl(0,100%,50%)", "redd", "zzz", "context-fill"}) {
    EXPECT_EQ(LitCouleur(texte), std::nullopt) << texte;
  }
  EXPECT_EQ(LitCouleur(std::string(1'000'000, 'r')), std::nullopt);
}

std::vector<Calque> Calques(const std::string& corps) {
  const Lecture l = Lit(Page(corps));
  EXPECT_EQ(l.rapport.Numero, Erreur::Aucune) << l.rapport.Detail;
  std::vector<Calque> calques;
  for (const Trait& t : l.traits) calques.push_back(l.calques.Tous().at(t.calque));
  return calques;
}
Calque Unique(const std::string& corps) {
  const auto tous = Calques(corps);
  EXPECT_EQ(tous.size(), 1U) << corps;
  return tous.empty() ? Calque{} : tous[0];
}
Calque Nomme(const std::string& nom, std::optional<std::uint32_t> couleur = 0) {
  return {Calque::Genre::Nomme, nom, couleur};
}

TEST(CalquesSvg, ALineHasTheColourOfItsStrokeAnAreaThatOfItsFill) {
  EXPECT_EQ(Unique(R"(<rect width="5" height="5" fill="none" stroke="red"/>)"), Nomme("", 0xFF0000));
  EXPECT_EQ(Unique(R"(<rect width="5" height="5" fill="blue"/>)"), Nomme("", 0x0000FF));
  EXPECT_EQ(Unique(R"(<rect width="5" height="5" fill="blue" stroke="red"/>)"), Nomme("", 0xFF0000));
  EXPECT_EQ(Unique(R"(<rect width="5" height="5" fill="blue" stroke="red" stroke-width="0"/>)"),
            Nomme("", 0x0000FF));
  EXPECT_EQ(Unique(R"(<rect width="5" height="5"/>)"), Nomme("", 0)) << "black where nothing is said";
  EXPECT_EQ(Unique(R"x(<rect width="5" height="5" fill="url(#g)"/>)x"), Nomme("", std::nullopt));
}

TEST(CalquesSvg, AColourIsHandedOnAndSaidByStyleAndSheet) {
  EXPECT_EQ(Unique(R"(<g stroke="#00f" fill="none"><path d="M0 0H5"/></g>)"), Nomme("", 0x0000FF));
  EXPECT_EQ(Unique(R"(<path style="fill:none;stroke:#0a0b0c" d="M0 0H5"/>)"), Nomme("", 0x0A0B0C));
  EXPECT_EQ(Unique(R"(<style>.c{fill:none;stroke:lime}</style><path class="c" d="M0 0H5"/>)"), Nomme("", 0x00FF00));
}

TEST(CalquesSvg, ALayerHasTheNameThatItsUserGaveItOrElseItsIdentity) {
  const std::string rect = R"(<rect width="5" height="5"/>)";
  EXPECT_EQ(Unique(R"(<g inkscape:groupmode="layer" inkscape:label="Gravure" id="layer1">)" + rect + "</g>"),
            Nomme("Gravure"));
  EXPECT_EQ(Unique(R"(<g inkscape:groupmode="layer" id="layer1">)" + rect + "</g>"), Nomme("layer1"));
  EXPECT_EQ(Unique(R"(<g inkscape:groupmode="layer">)" + rect + "</g>"), Nomme(""));
  EXPECT_EQ(Unique(R"(<g inkscape:label="group" id="g1">)" + rect + "</g>"), Nomme("")) << "a group is no layer";
}

TEST(CalquesSvg, TheInnermostLayerCountsAndGroupsInItKeepIt) {
  const std::string interieur =
      R"(<g inkscape:groupmode="layer" inkscape:label="Bord"><g><path d="M0 0H5V5z"/></g></g>)";
  const auto calques = Calques(R"(<g inkscape:groupmode="layer" inkscape:label="Tout">)" + interieur +
                               R"(<path d="M9 9H15V15z"/></g><path d="M20 20H25V25z"/>)");
  EXPECT_EQ(calques, (std::vector<Calque>{Nomme("Bord"), Nomme("Tout"), Nomme("")}));
}

// What is drawn by reference lies on the layer of the reference.
TEST(CalquesSvg, AReferenceLiesWhereItStands) {
  EXPECT_EQ(Unique(R"(<defs><rect id="r" width="5" height="5"/></defs>
                      <g inkscape:groupmode="layer" inkscape:label="Bord"><use href="#r"/></g>)"),
            Nomme("Bord"));
}

TEST(CalquesSvg, ANameOfAMegabyteIsCut) {
  EXPECT_EQ(Unique(R"(<g inkscape:groupmode="layer" inkscape:label=")" + std::string(1'000'000, 'n') +
                   R"("><rect width="5" height="5"/></g>)")
                .Nom,
            std::string(1020, 'n'));
}

TEST(CalquesSvg, AHundredThousandColoursAreRead) {
  std::string corps;
  for (int i = 0; i < 100'000; ++i) {
    constexpr const char* Chiffres = "0123456789abcdef";
    corps += R"(<path d="M0 0H5" fill="none" stroke="#)";
    for (int bit = 20; bit >= 0; bit -= 4) corps += Chiffres[i >> bit & 15];
    corps += "\"/>";
  }
  const Lecture l = Lit(Page(corps));
  ASSERT_EQ(l.traits.size(), 100'000U);
  EXPECT_EQ(l.calques.Tous().at(l.traits[1000].calque).Couleur, 1000U);
  EXPECT_EQ(l.traits[99'999].calque, 0) << "the table is full";
}

}  // namespace
}  // namespace pathwerk::lecture::svg
