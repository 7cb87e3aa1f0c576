// The structure of the file: line ends, blanks, binary files, cut-off files, what is refused.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <random>

#include "closed/pathwerk/lecture/dxf/Groupes.h"
#include "tests/unit/closed/pathwerk/lecture/dxf/Outils.h"

using namespace essai;
using pathwerk::Erreur;
using pathwerk::lecture::Lecture;

namespace {

const std::string EntiteLigne = "0=LINE 8=0 10=1 20=2 30=0 11=4 21=6 31=0 ";
const std::string Melange =
    EntiteLigne +
    "0=LWPOLYLINE 8=0 90=3 70=1 10=0 20=0 42=0.5 10=10 20=0 10=10 20=10 "
    "0=CIRCLE 8=0 10=5 20=5 40=2.5 0=POINT 8=0 10=3 20=3 0=TEXT 8=0 10=0 20=0 40=2 1=Titre ";

void MemesTraits(const Lecture& a, const Lecture& b) {
  ASSERT_EQ(a.traits.size(), b.traits.size());
  for (std::size_t i = 0; i < a.traits.size(); ++i) {
    EXPECT_EQ(a.traits[i].nature, b.traits[i].nature);
    EXPECT_EQ(a.traits[i].points, b.traits[i].points);
  }
  EXPECT_EQ(a.rapport.Ignores, b.rapport.Ignores);
}

}  // namespace

TEST(LireDxf, NamesItsFormat) { EXPECT_EQ(LitEntites(EntiteLigne).rapport.Format, "DXF"); }

TEST(LireDxf, ReadsTheSameWithAnyLineEnd) {
  const Groupes g = DeMots(Section(Melange));
  const Lecture reference = Lit(EnTexte(g, "\n"));
  ASSERT_EQ(reference.traits.size(), 4u);
  for (const char* fin : {"\r", "\r\n", "\r\r\n", " \r\n", "\t\n"}) {
    SCOPED_TRACE(testing::PrintToString(fin));
    MemesTraits(Lit(EnTexte(g, fin)), reference);
  }
}

TEST(LireDxf, BlanksAroundCodesAndValuesDoNotCount) {
  std::string t;
  for (const auto& [code, valeur] : DeMots(Section(Melange)))
    t += "   " + std::to_string(code) + "  \n \t" + valeur + "  \n";
  MemesTraits(Lit(t), LitEntites(Melange));
}

TEST(LireDxf, EmptyLinesBeforeCodesAndNumbersAreSkipped) {
  std::string t;
  for (const auto& [code, valeur] : DeMots(Section(EntiteLigne))) {
    t += "\n" + std::to_string(code) + (code >= 10 ? "\n\n" : "\n") + valeur + "\n";
  }
  MemesTraits(Lit(t), LitEntites(EntiteLigne));
}

TEST(LireDxf, AnEmptyTextValueIsAValue) {
  const Lecture l = Lit("0\nSECTION\n2\nHEADER\n9\n$PROJECTNAME\n1\n\n9\n$UCSNAME\n2\n\n0\nENDSEC\n" +
                        Texte(Section(EntiteLigne)));
  ASSERT_EQ(l.traits.size(), 1u);
}

TEST(LireDxf, SkipsAByteOrderMarkAndEndsAtControlZ) {
  const std::string t = Texte(Section(EntiteLigne));
  EXPECT_EQ(Lit("\xEF\xBB\xBF" + t).traits.size(), 1u);
  EXPECT_EQ(Lit(t + "\x1a garbage").traits.size(), 1u);
}

TEST(LireDxf, CommentsMayStandAnywhere) {
  const Lecture l = Lit(
      Texte("999=un 0=SECTION 999=deux 2=ENTITIES 999=trois 0=LINE 10=1 999=quatre 20=2 11=4 21=6 0=ENDSEC 0=EOF"));
  ASSERT_EQ(l.traits.size(), 1u);
  AttendPoint(l.traits[0].points[1], 4, 6);
  EXPECT_FALSE(l.ordreImpose);
}

TEST(LireDxf, BinaryFilesReadAsTheirText) {
  const Groupes g = DeMots(Section(Melange + "0=SPLINE 8=0 70=8 71=1 72=4 73=2 40=0 40=0 40=1 40=1 10=0 20=0 10=5 "
                                             "20=5 1071=70000 1040=2.5 1004=abc 1000=x "));
  const Lecture texte = Lit(EnTexte(g));
  ASSERT_EQ(texte.traits.size(), 5u);
  for (const bool codeLarge : {true, false}) {
    SCOPED_TRACE(codeLarge);
    const Lecture binaire = Lit(EnBinaire(g, codeLarge));
    EXPECT_EQ(binaire.rapport.Numero, Erreur::Aucune);
    MemesTraits(binaire, texte);
  }
}

TEST(LireDxf, BinaryFileHoldsValuesOfAllWidths) {
  const Groupes g = DeMots(
      Section("0=LINE 160=5000000000 170=7 290=1 310=abc 370=25 420=16711680 440=1 330=1F 10=1 20=2 11=4 21=6 "));
  std::string t = EnBinaire(g, true);
  const Lecture l = Lit(t);
  ASSERT_EQ(l.traits.size(), 1u) << l.rapport.Detail;
  AttendPoint(l.traits[0].points[1], 4, 6);
}

TEST(LireDxf, BinaryFileMayBeginWithAComment) {
  EXPECT_TRUE(Lit(EnBinaire(DeMots("999=OVELIN " + Section(EntiteLigne)), true)).ordreImpose);
}

TEST(LireDxf, BinaryFileWithAnUnknownCodeIsRefused) {
  std::string t = EnBinaire(DeMots("0=SECTION 2=ENTITIES "), true);
  t += std::string("\x55\x00\x01\x02", 4);
  EXPECT_EQ(Lit(t).rapport.Numero, Erreur::Dxf);
  EXPECT_EQ(Lit(t).rapport.Ligne, 0);
}

TEST(LireDxf, FileWithoutHeaderOrEndIsReadWhole) {
  const Lecture l = Lit(Texte("0=SECTION 2=ENTITIES " + EntiteLigne + EntiteLigne + "0=ENDSEC"));
  EXPECT_EQ(l.traits.size(), 2u);
  EXPECT_FALSE(l.rapport.Tronque);
}

TEST(LireDxf, TheLastWordNeedsNoLineEnd) {
  std::string t = Texte(Section(EntiteLigne));
  t.pop_back();
  const Lecture l = Lit(t);
  EXPECT_EQ(l.traits.size(), 1u);
  EXPECT_FALSE(l.rapport.Tronque);
}

TEST(LireDxf, ASectionWithoutItsEndIsEndedByTheNext) {
  const Lecture l =
      Lit(Texte("0=SECTION 2=HEADER 9=$INSUNITS 70=5 0=SECTION 2=ENTITIES " + EntiteLigne + "0=ENDSEC 0=EOF"));
  ASSERT_EQ(l.traits.size(), 1u);
  AttendPoint(l.traits[0].points[0], 10, 20);
}

TEST(LireDxf, BlocksAndLayersBehindTheEntitiesCountAsWell) {
  const Lecture l =
      Lit(Texte("0=SECTION 2=ENTITIES 0=INSERT 2=A 10=100 20=0 0=LINE 8=x 10=0 20=0 11=1 21=1 0=ENDSEC "
                "0=SECTION 2=BLOCKS 0=BLOCK 2=A 10=0 20=0 " +
                EntiteLigne +
                "0=ENDBLK 0=ENDSEC "
                "0=SECTION 2=TABLES 0=TABLE 2=LAYER 0=LAYER 2=x 70=1 0=ENDTAB 0=ENDSEC 0=EOF"));
  ASSERT_EQ(l.traits.size(), 1u);
  AttendPoint(l.traits[0].points[0], 101, 2);
  EXPECT_EQ(Ignores(l, "LAYER"), 1);
}

TEST(LireDxf, GarbageBehindTheEntitiesDoesNotMatter) {
  EXPECT_EQ(Lit(Texte("0=SECTION 2=ENTITIES " + EntiteLigne + "0=ENDSEC 0=SECTION 2=OBJECTS") + "\x01\x02 binary\n")
                .traits.size(),
            1u);
}

TEST(LireDxf, CutOffInsideAnEntityKeepsTheWholeOnes) {
  const Lecture l = Lit(Texte("0=SECTION 2=ENTITIES " + EntiteLigne + "0=LINE 8=0 10=1 20=2 11=4") + "21\n");
  EXPECT_EQ(l.rapport.Numero, Erreur::Aucune);
  EXPECT_TRUE(l.rapport.Tronque);
  EXPECT_EQ(l.traits.size(), 1u);
}

TEST(LireDxf, ANumberWithoutItsLineEndMayBeAPieceAndIsNotTaken) {
  std::string t = Texte("0=SECTION 2=ENTITIES 0=LINE 8=0 10=1 20=2 11=4 21=600");
  EXPECT_EQ(Lit(t).traits.size(), 1u);
  t.pop_back();
  EXPECT_EQ(Lit(t).traits.size(), 0u);
  EXPECT_TRUE(Lit(t).rapport.Tronque);
}

TEST(LireDxf, CutOffPolylineWithoutItsEndIsLeftOut) {
  const std::string p =
      "0=SECTION 2=ENTITIES " + EntiteLigne + "0=POLYLINE 66=1 70=0 0=VERTEX 10=0 20=0 0=VERTEX 10=5 20=0";
  EXPECT_EQ(Lit(Texte(p)).traits.size(), 1u);
  EXPECT_EQ(Lit(Texte(p + " 0=SEQEND")).traits.size(), 2u);
}

TEST(LireDxf, CutOffLightPolylineNeedsItsNumberOfVertices) {
  const std::string p = "0=SECTION 2=ENTITIES 0=LWPOLYLINE 90=3 70=0 10=0 20=0 10=5 20=0";
  EXPECT_EQ(Lit(Texte(p)).traits.size(), 0u);
  EXPECT_EQ(Lit(Texte(p + " 10=5")).traits.size(), 0u);
  EXPECT_EQ(Lit(Texte(p + " 10=5 20=9")).traits.size(), 1u);
  // With arcs elsewhere the bulge of the last vertex may be what is missing.
  EXPECT_EQ(Lit(Texte("0=SECTION 2=ENTITIES 0=LWPOLYLINE 90=2 70=1 10=0 20=0 42=1 10=5 20=0")).traits.size(), 0u);
}

TEST(LireDxf, OtherCutOffEntitiesNeedAllThatShapesThem) {
  const auto traits = [](const std::string& e) { return Lit(Texte("0=SECTION 2=ENTITIES " + e)).traits.size(); };
  EXPECT_EQ(traits("0=CIRCLE 10=0 20=0 40=5"), 1u);
  EXPECT_EQ(traits("0=ARC 10=0 20=0 40=5 50=0"), 0u);
  EXPECT_EQ(traits("0=ARC 10=0 20=0 40=5 50=0 51=90"), 1u);
  // Three corners may be a triangle, or a quadrangle cut off.
  EXPECT_EQ(traits("0=SOLID 10=0 20=0 11=4 21=0 12=0 22=3"), 0u);
  EXPECT_EQ(traits("0=SOLID 10=0 20=0 11=4 21=0 12=0 22=3 13=4 23=3"), 1u);
  EXPECT_EQ(traits("0=ELLIPSE 10=0 20=0 11=4 21=0 40=0.5 41=0"), 0u);
  EXPECT_EQ(traits("0=ELLIPSE 10=0 20=0 11=4 21=0 40=0.5 41=0 42=1"), 1u);
  const std::string spline = "0=SPLINE 70=8 71=1 72=5 73=3 74=0 40=0 40=0 40=1 40=2 40=2 10=0 20=0 10=5 20=5";
  EXPECT_EQ(traits(spline), 0u);
  EXPECT_EQ(traits(spline + " 10=9"), 0u);
  EXPECT_EQ(traits(spline + " 10=9 20=0"), 1u);
  EXPECT_EQ(traits("0=HATCH 91=1 92=2 73=1 93=3 10=0 20=0 10=5 20=0 10=5 20=5"), 0u);
}

TEST(LireDxf, CutOffInsertIsLeftOutSinceItsScaleMayBeMissing) {
  const std::string t = "0=SECTION 2=BLOCKS 0=BLOCK 2=A 10=0 20=0 " + EntiteLigne +
                        "0=ENDBLK 0=ENDSEC 0=SECTION 2=ENTITIES 0=INSERT 2=A 10=0 20=0";
  EXPECT_EQ(Lit(Texte(t)).traits.size(), 0u);
  EXPECT_EQ(Lit(Texte(t + " 0=ENDSEC")).traits.size(), 1u);
}

// Each path of a cut-off file is one of the whole file's, in its order, and at no place does the reading fail.
TEST(LireDxf, EveryCutKeepsWholeEntitiesAlone) {
  const Groupes g =
      DeMots("0=SECTION 2=BLOCKS 0=BLOCK 2=A 10=0 20=0 " + EntiteLigne + "0=ENDBLK 0=ENDSEC " +
             Section(Melange + "0=INSERT 2=A 10=5 20=5 41=2 0=POLYLINE 66=1 70=1 0=VERTEX 10=0 20=0 0=VERTEX "
                               "10=9 20=0 0=VERTEX 10=9 20=9 0=SEQEND 8=0 0=ARC 10=0 20=0 40=5 50=0 51=90 "));
  for (const std::string& t : {EnTexte(g), EnBinaire(g, true), EnBinaire(g, false)}) {
    const Lecture entier = Lit(t);
    ASSERT_EQ(entier.traits.size(), 7u);
    std::size_t avant = 0;
    for (std::size_t n = 0; n < t.size(); ++n) {
      const Lecture l = Lit(std::string_view(t).substr(0, n));
      if (l.Refuse()) {
        EXPECT_EQ(l.rapport.Numero, Erreur::Dxf);
        EXPECT_EQ(avant, 0u) << n;
        continue;
      }
      // Inside its last groups, which may change it, an entity counts as cut even where it could stand for itself.
      EXPECT_GE(l.traits.size() + 1, avant) << n;
      avant = std::max(avant, l.traits.size());
      for (std::size_t i = 0; i < l.traits.size(); ++i) EXPECT_EQ(l.traits[i].points, entier.traits[i].points) << n;
    }
    EXPECT_EQ(avant, 7u);
  }
}

TEST(LireDxf, WhatIsNoDxfIsRefusedWithItsLine) {
  struct Cas {
    std::string data;
    long ligne;
  };
  const std::vector<Cas> cas = {{"", 1},
                                {"IN;SP1;PU0,0;", 1},
                                {"hello\nworld\n", 1},
                                {"0\nHELLO\n", 1},
                                {"%!PS-Adobe\n", 1},
                                {"0\nSECTION\n2\nHEADER\nhello\nworld\n", 5},
                                {"0\nSECTION\n99999\nHEADER\n", 3}};
  for (const Cas& c : cas) {
    const Lecture l = Lit(c.data);
    EXPECT_EQ(l.rapport.Numero, Erreur::Dxf) << c.data;
    EXPECT_EQ(l.rapport.Ligne, c.ligne) << c.data;
    EXPECT_TRUE(l.traits.empty());
  }
}

TEST(LireDxf, ALineThatIsNoCodeAmongTheEntitiesIsRefusedWithItsLine) {
  const std::string avant = Texte("0=SECTION 2=ENTITIES " + EntiteLigne);  // 4 + 2 * 8 lines
  const Lecture l = Lit(avant + "0\nLINE\nbad code\n5\n0\nENDSEC\n");
  EXPECT_EQ(l.rapport.Numero, Erreur::Dxf);
  EXPECT_EQ(l.rapport.Ligne, 23);
  EXPECT_EQ(l.rapport.Detail, "bad code");
}

TEST(LireDxf, ACoordinateThatIsNoNumberIsRefusedWithItsLine) {
  const Lecture l = Lit(Texte(Section("0=LINE 10=1 20=1,5 11=3 21=4")));
  EXPECT_EQ(l.rapport.Numero, Erreur::Dxf);
  EXPECT_EQ(l.rapport.Ligne, 10);
  EXPECT_EQ(l.rapport.Detail, "LINE 20: 1,5");
  EXPECT_EQ(Lit(Texte(Section("0=POLYLINE 70=0 0=VERTEX 10=x 20=1 0=SEQEND"))).rapport.Ligne, 12);
  EXPECT_EQ(Lit(Texte(Section("0=HATCH 91=1 92=2 93=1 10=zz 20=1 75=0"))).rapport.Ligne, 14);
}

TEST(LireDxf, NumbersOfThingsThatAreNotDrawnMayBeAnything) {
  EXPECT_EQ(Ignores(LitEntites("0=TEXT 10=abc 20=def 40=x"), "TEXT"), 1);
}

TEST(LireDxf, NumbersComeInAllForms) {
  const Lecture l = LitEntites("0=LINE 10=+1.5 20=-.25 11=1e2 21=1.E-2");
  AttendPoint(l.traits.at(0).points.at(0), 1.5, -0.25);
  AttendPoint(l.traits.at(0).points.at(1), 100, 0.01);
}

TEST(LireDxf, NumbersBeyondTheRangeAreHugeOrNothing) {
  const Lecture l = LitEntites("0=LINE 10=1e400 20=-1e400 11=1e-400 21=5");
  EXPECT_FALSE(std::isfinite(l.traits.at(0).points.at(0).x));
  EXPECT_FALSE(std::isfinite(l.traits.at(0).points.at(0).y));
  AttendPoint(l.traits.at(0).points.at(1), 0, 5);
}

TEST(LireDxf, OwnFilesAreKnownByTheirFirstGroupAlone) {
  EXPECT_TRUE(Lit(Texte("999=OVELIN " + Section(EntiteLigne))).ordreImpose);
  EXPECT_FALSE(Lit(Texte("999=autre 999=OVELIN " + Section(EntiteLigne))).ordreImpose);
  EXPECT_FALSE(Lit(Texte(Section("999=OVELIN " + EntiteLigne))).ordreImpose);
}

TEST(LireDxf, ProgressRisesToTheEnd) {
  std::string t = "0\nSECTION\n2\nENTITIES\n";
  for (int i = 0; i < 100000; ++i) t += Texte(EntiteLigne);
  std::vector<double> parts;
  pathwerk::OptionsLecture options;
  options.Avancement = [&parts](double part) { parts.push_back(part); };
  Lecture l;
  pathwerk::lecture::dxf::LireDxf(t + "0\nENDSEC\n0\nEOF\n", options, l);
  ASSERT_GT(parts.size(), 2u);
  for (std::size_t i = 1; i < parts.size(); ++i) EXPECT_GT(parts[i], parts[i - 1]);
  EXPECT_LE(parts.back(), 1.0);
}

// Held against the C library, digit counts and places of the point from none to more than a double holds.
TEST(LitReel, EveryDecimalTextIsTheNearestDouble) {
  std::mt19937_64 hasard(7);
  const auto chiffres = [&](std::size_t n) {
    std::string t;
    for (std::size_t i = 0; i < n; ++i) t += static_cast<char>('0' + hasard() % 10);
    return t;
  };
  for (std::size_t avant = 0; avant <= 12; ++avant) {
    for (std::size_t apres = 0; apres <= 20; ++apres) {
      if (avant + apres == 0) continue;
      for (int k = 0; k < 20; ++k) {
        std::string t = (k % 2 == 0 ? "" : "-") + chiffres(avant);
        if (apres > 0 || k % 3 == 0) t += "." + chiffres(apres);
        pathwerk::lecture::dxf::Groupe g;
        g.texte = t;
        double v = 0;
        ASSERT_TRUE(pathwerk::lecture::dxf::LitReel(g, v)) << t;
        EXPECT_EQ(v, std::strtod(t.c_str(), nullptr)) << t;
      }
    }
  }
}

TEST(LitReel, AByteThatIsNoDigitIsFoundAtEveryPlace) {
  for (const std::string bon : {"1234567.1", "12.3456789", "1.234567890123456", "12345678", "-0.1234567"}) {
    const std::size_t point = bon.find('.');
    for (std::size_t i = 0; i < bon.size(); ++i) {
      for (const char c : {'/', ':', '.', 'x', '-', '\xB0', '\0', '\x7F'}) {
        std::string t = bon;
        t[i] = c;
        // Still numbers: a sign in front, and a point that stands elsewhere.
        if ((i == 0 && c == '-') || (c == '.' && (i == point || point == std::string::npos))) continue;
        if (i == point) continue;
        pathwerk::lecture::dxf::Groupe g;
        g.texte = t;
        double v = 0;
        EXPECT_FALSE(pathwerk::lecture::dxf::LitReel(g, v)) << i << ' ' << static_cast<int>(c);
      }
    }
  }
}
