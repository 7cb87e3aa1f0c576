// Shapes shared out among several threads.
#include "tests/unit/closed/pathwerk/lecture/svg/Mesures.h"

using namespace pathwerk;
using namespace pathwerk::lecture;
using namespace pathwerk::lecture::svg::mesures;

namespace {

constexpr std::size_t Peu = 40;  // bytes of shapes at a time

// A letter is a triangle.
bool Triangles(const svg::StyleLettres& style, const std::string& texte, svg::LigneLettres& ligne) {
  for (std::size_t i = 0; i < texte.size(); ++i) {
    const double x = ligne.avance;
    ligne.contours.push_back({{x, 0}, {x, style.hauteur}, {x + style.hauteur, style.hauteur}});
    ligne.avance += style.hauteur;
  }
  return true;
}

Lecture Partagee(std::string_view texte, unsigned fils) {
  OptionsLecture options;
  options.Fils = fils;
  Lecture lecture;
  svg::LireSvgAvec(texte, options, Triangles, lecture, Peu);
  return lecture;
}

// The same as one thread makes of it.
void AttendPareille(const std::string& texte) {
  const Lecture seule = Partagee(texte, 1);
  for (const unsigned fils : {2U, 7U}) {
    const Lecture l = Partagee(texte, fils);
    EXPECT_EQ(l.rapport.Numero, seule.rapport.Numero);
    EXPECT_EQ(l.rapport.Ligne, seule.rapport.Ligne);
    EXPECT_EQ(l.rapport.Detail, seule.rapport.Detail);
    EXPECT_EQ(l.rapport.Ignores, seule.rapport.Ignores);
    EXPECT_EQ(l.rapport.PremieresLignes, seule.rapport.PremieresLignes);
    EXPECT_EQ(l.calques.Tous(), seule.calques.Tous());
    ASSERT_EQ(l.traits.size(), seule.traits.size());
    for (std::size_t i = 0; i < l.traits.size(); ++i) {
      EXPECT_EQ(l.traits[i].points, seule.traits[i].points) << i;
      EXPECT_EQ(l.traits[i].nature, seule.traits[i].nature) << i;
      EXPECT_EQ(l.traits[i].calque, seule.traits[i].calque) << i;
      EXPECT_EQ(l.traits[i].ligne, seule.traits[i].ligne) << i;
    }
  }
}

// A drawing of all kinds of shapes, each of which begins at x = its number.
std::string Formes(int nombre) {
  std::string t;
  for (int k = 0; k < nombre; ++k) {
    const std::string x = std::to_string(k);
    const std::string formes[] = {R"(<path d="M)" + x + R"( 1 l5 0 0 5z"/>)",
                                  R"(<polygon points=")" + x + R"(,1 )" + x + R"(.5,7 90,9" fill="red"/>)",
                                  R"(<rect x=")" + x + R"(" y="2" width="3" height="4"/>)",
                                  R"(<text x=")" + x + R"(" y="9" font-size="4">ab</text>)",
                                  R"(<path d="M)" + x + R"( 1 c9 0 9 9 0 9 z m1 1 h1 v1 z"/>)"};
    t += formes[k % 5] + "\n";
  }
  return t;
}

}  // namespace

TEST(PartageSvg, PathsComeInTheOrderOfTheFileWhateverDrawsThem) {
  for (const unsigned fils : {1U, 2U, 7U}) {
    const Lecture l = Partagee(Page(Formes(80)), fils);
    constexpr std::size_t Chemins[] = {1, 1, 1, 2, 2};  // of a text of two letters, and of two subpaths
    ASSERT_EQ(l.traits.size(), 80U / 5 * 7);
    std::size_t rang = 0;
    for (std::size_t k = 0; k < 80; rang += Chemins[k++ % 5]) {
      double x = 1e9;
      for (const Vec2 p : l.traits[rang].points) x = std::min(x, p.x);
      EXPECT_NEAR(x, static_cast<double>(k), 1e-6) << fils;
    }
  }
}

TEST(PartageSvg, AnyNumberOfThreadsMakesTheSameOfADrawing) { AttendPareille(Page(Formes(200))); }

TEST(PartageSvg, WhatCannotBeReadIsToldByItsFirstLine) {
  // An element that is called as faulty data are told comes behind such data.
  const std::string faux = R"(<path d="M1 1 L5 5 L6 x"/>)";
  const std::string texte = Page("\n" + Formes(10) + "\n" + faux + "\n<ROW/>\n" + faux + "\n");
  const Lecture l = Partagee(texte, 2);
  EXPECT_EQ(Ignores(l, "ROW"), 3);
  EXPECT_EQ(l.rapport.PremieresLignes.at("ROW"), 13);
  AttendPareille(texte);
}

TEST(PartageSvg, ADrawingWithTooManyPointsIsRefusedInTheSameLine) {
  // Curves of 8,192 chords: 900,000 points and some are allowed, so that the fault lies at about the 110th.
  std::string t;
  for (int k = 0; k < 150; ++k) t += "<path d=\"M0 0 C9e8 0 9e8 9e8 0 9e8\"/>\n";
  const Lecture l = Partagee(Page(t), 2);
  EXPECT_EQ(l.rapport.Numero, Erreur::Memoire);
  EXPECT_NEAR(static_cast<double>(l.rapport.Ligne), 110, 3);
  EXPECT_TRUE(l.traits.empty());
  AttendPareille(Page(t));
}

TEST(PartageSvg, ManyKindsOfThingsLeftOutAreCountedAsOneThreadCountsThem) {
  std::string t;
  for (int k = 0; k < 130; ++k) t += "<genre" + std::to_string(k) + "/><path d=\"M1 1 x\"/>" + Formes(1);
  const Lecture l = Partagee(Page(t), 2);
  EXPECT_GT(Ignores(l, "..."), 0);
  AttendPareille(Page(t));
}
