// Pages of PDF. Those that are drawn need poppler's tools and are skipped without them; the rest have small shell
// scripts in its place.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "closed/pathwerk/lecture/FormatDeDessin.h"
#include "closed/pathwerk/lecture/pdf/Pdf.h"
#include "tests/support/DossierEssai.h"
#include "tests/support/FichierPdf.h"

namespace pathwerk::lecture::pdf {
namespace {

constexpr double Point = 25.4 / 72;  // mm

using essai::DossierEssai;
using essai::FichierPdf;

Lecture Lit(const std::string& data, int page = 1) {
  OptionsLecture options;
  options.Page = page;
  Lecture l;
  LirePdf(data, options, l);
  return l;
}

class LirePdfTest : public testing::Test {
 protected:
  void SetUp() override {
    if (::access("/usr/bin/pdftocairo", X_OK) != 0) GTEST_SKIP() << "poppler-utils is not installed";
  }
};

TEST_F(LirePdfTest, ALineIsItsCentreInMillimetres) {
  const Lecture l = Lit(FichierPdf({"10 20 m 110 20 l 110 70 l S"}));
  EXPECT_EQ(l.rapport.Numero, Erreur::Aucune) << l.rapport.Detail;
  EXPECT_EQ(l.rapport.Format, "PDF");
  EXPECT_TRUE(l.rapport.Suppose.empty());
  ASSERT_EQ(l.traits.size(), 1U);
  EXPECT_EQ(l.traits[0].nature, Nature::Ouvert);
  const std::vector<Vec2> attendus{{10, 20}, {110, 20}, {110, 70}};
  ASSERT_EQ(l.traits[0].points.size(), 3U);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_NEAR(l.traits[0].points[i].x, attendus[i].x * Point, 0.002);
    EXPECT_NEAR(l.traits[0].points[i].y, attendus[i].y * Point, 0.002);
  }
}

TEST_F(LirePdfTest, AFillIsItsOutline) {
  const Lecture l = Lit(FichierPdf({"10 20 30 40 re f"}));
  ASSERT_EQ(l.traits.size(), 1U);
  EXPECT_EQ(l.traits[0].nature, Nature::Ferme);
  EXPECT_EQ(l.traits[0].points.size(), 4U);
}

TEST_F(LirePdfTest, LettersAreOutlines) {
  const Lecture l = Lit(FichierPdf({"BT /F 50 Tf 10 20 Td (LI) Tj ET"}));
  ASSERT_EQ(l.traits.size(), 2U);
  double haut = 0;
  for (const Vec2 p : l.traits[0].points) haut = std::max(haut, p.y);
  // Capitals of Helvetica are 718 of 1000 high; those of the fonts that serve for it within a few per cent.
  EXPECT_NEAR(haut, (20 + 50 * 0.718) * Point, 50 * 0.03 * Point);
}

TEST_F(LirePdfTest, AnyPageMayBeAskedFor) {
  const std::string f = FichierPdf({"10 20 m 110 20 l S", "10 20 m 110 20 l 110 70 l S"});
  EXPECT_EQ(Lit(f).traits.at(0).points.size(), 2U);
  EXPECT_EQ(Lit(f, 2).traits.at(0).points.size(), 3U);
  EXPECT_EQ(Lit(f, 3).rapport.Numero, Erreur::Pdf);
}

TEST_F(LirePdfTest, WhatPopplerRefusesIsRefused) {
  EXPECT_EQ(Lit("%PDF-1.4\nnothing behind it").rapport.Numero, Erreur::Pdf);
}

TEST(LirePdf, WhatIsNoPdfNeverReachesTheOtherProgram) {
  PdfMoyens moyens;
  moyens.programme = "/no/such/program";
  Lecture l;
  LirePdfAvec("hello", OptionsLecture{}, moyens, l);
  EXPECT_EQ(l.rapport.Numero, Erreur::Pdf);
  Lecture sans;
  LirePdfAvec("%PDF-1.4", OptionsLecture{}, moyens, sans);
  EXPECT_EQ(sans.rapport.Numero, Erreur::PopplerAbsent);
}

class PdfParUnAutre : public testing::Test {
 protected:
  Lecture Lance(const std::string& script) {
    const std::string chemin = outils_.Chemin() + "/programme";
    std::ofstream(chemin) << "#!/bin/sh\n" << script << "\n";
    ::chmod(chemin.c_str(), 0700);
    moyens.programme = chemin;
    Lecture l;
    LirePdfAvec("%PDF-1.4", OptionsLecture{}, moyens, l);
    return l;
  }
  PdfMoyens moyens;

 private:
  DossierEssai outils_;
};

TEST_F(PdfParUnAutre, TheProgramSeesTheDrawingAndItsPageAlone) {
  const Lecture l = Lance(
      "test \"$*\" = '-svg -noshrink -nocenter -f 1 -l 1 dessin.pdf -' || exit 1; test \"$(ls -A)\" = dessin.pdf "
      "|| exit 2; "
      "echo '<svg width=\"9mm\" height=\"9mm\"><path d=\"M0 0h5v5z\"/></svg>'");
  EXPECT_EQ(l.rapport.Numero, Erreur::Aucune) << l.rapport.Detail;
  EXPECT_EQ(l.traits.size(), 1U);
}

TEST_F(PdfParUnAutre, AnAnswerThatIsNoDrawingIsARefusal) {
  for (const char* script : {"exit 1", "echo nothing", "kill -SEGV $$", "true"}) {
    EXPECT_EQ(Lance(script).rapport.Numero, Erreur::Pdf) << script;
  }
}

TEST_F(PdfParUnAutre, TheClockAndTheVolumeEndIt) {
  moyens.delai = std::chrono::milliseconds(100);
  EXPECT_EQ(Lance("sleep 60").rapport.Numero, Erreur::Pdf);
  moyens.delai = std::chrono::milliseconds(20000);
  moyens.volume = 1000;
  EXPECT_EQ(Lance("yes").rapport.Numero, Erreur::Pdf);
}

TEST(EstPdf, KnowsItsMark) {
  EXPECT_TRUE(EstPdf("%PDF-1.7\n"));
  EXPECT_FALSE(EstPdf("%!PS-Adobe"));
  EXPECT_FALSE(EstPdf("PDF"));
}

}  // namespace
}  // namespace pathwerk::lecture::pdf
