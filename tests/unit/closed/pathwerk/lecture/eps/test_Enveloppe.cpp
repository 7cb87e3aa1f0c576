// Headers, refusals, limits.
#include "closed/pathwerk/lecture/eps/Entete.h"
#include "tests/unit/closed/pathwerk/lecture/eps/Mesures.h"

namespace pathwerk::lecture::eps {
namespace {

using namespace mesures;

std::string Petits4(std::size_t v) {
  std::string s;
  for (int i = 0; i < 4; ++i) s += static_cast<char>((v >> (8 * i)) & 255);
  return s;
}

// Binary header, PostScript, preview.
std::string Binaire(const std::string& ps, const std::string& apercu, std::size_t longueur) {
  std::string s = "\xC5\xD0\xD3\xC6";
  s += Petits4(30) + Petits4(longueur) + Petits4(0) + Petits4(0);
  s += Petits4(30 + ps.size()) + Petits4(apercu.size()) + "\xFF\xFF";
  return s + ps + apercu;
}

TEST(EpsPostScript, IsTheFileItselfWithoutABinaryHeader) {
  EXPECT_EQ(EpsPostScript("%!PS-Adobe-3.0 EPSF-3.0\nshowpage\n"), "%!PS-Adobe-3.0 EPSF-3.0\nshowpage");
}

TEST(EpsPostScript, IsTheSectionThatTheBinaryHeaderNames) {
  EXPECT_EQ(EpsPostScript(Binaire("%!PS\n1 2\n", std::string("II*\0preview", 11), 9)), "%!PS\n1 2");
}

TEST(EpsPostScript, BrokenBinaryHeadersAreRefused) {
  EXPECT_EQ(EpsPostScript("\xC5\xD0\xD3\xC6"), std::nullopt);
  EXPECT_EQ(EpsPostScript(Binaire("%!PS\n", "", 9).substr(0, 29)), std::nullopt);
  EXPECT_EQ(EpsPostScript(Binaire("%!PS\n", "", 6)), std::nullopt);            // longer than the file
  EXPECT_EQ(EpsPostScript(Binaire("%!PS\n", "", 0xFFFFFFFFU)), std::nullopt);  // no overflow
  std::string devant = Binaire("%!PS\n", "", 5);
  devant[4] = 3;  // the section would lie in the header
  EXPECT_EQ(EpsPostScript(devant), std::nullopt);
  EXPECT_EQ(EpsPostScript(Binaire("II*", "", 3)), std::nullopt);
}

TEST(EpsPostScript, WhatASpoolerPutsAroundIsCutOff) {
  EXPECT_EQ(EpsPostScript("\x04%!PS\nx\n\x04\n"), "%!PS\nx");
  EXPECT_EQ(EpsPostScript("\xEF\xBB\xBF%!PS"), "%!PS");
  EXPECT_EQ(EpsPostScript("\x1B%-12345X@PJL JOB\r\n@PJL ENTER LANGUAGE=POSTSCRIPT\r\n%!PS\nx\n\x1B%-12345X"),
            "%!PS\nx");
  EXPECT_EQ(EpsPostScript("@PJL no end"), std::nullopt);
}

TEST(LireEps, OtherFilesAreRefused) {
  for (const char* const texte : {"", "hello", "%PDF-1.4\n", "% !PS", "IN;PU0,0;", "\xC5\xD0\xD3\xC6zzz"}) {
    const Lecture l = Lit(texte);
    EXPECT_EQ(l.rapport.Numero, Erreur::EpsEntete) << texte;
    EXPECT_EQ(l.rapport.Ligne, 1);
    EXPECT_TRUE(l.traits.empty());
  }
}

TEST(LireEps, ADrawingBehindABinaryHeaderIsRead) {
  AVEC_GS();
  const std::string ps = "%!PS\n0 0 moveto 9 0 lineto stroke\n";
  const Lecture l = Lit(Binaire(ps, std::string("\0\1\2\3", 4), ps.size()));
  ASSERT_EQ(l.rapport.Numero, Erreur::Aucune) << l.rapport.Detail;
  ASSERT_EQ(l.traits.size(), 1U);
}

TEST(LireEps, AnErrorOfTheDrawingIsNamedWithItsLine) {
  AVEC_GS();
  const Lecture l = Lit("%!PS\n0 0 moveto 9 0 lineto stroke\n\nnosuchname\n1 2 3\n");
  EXPECT_EQ(l.rapport.Numero, Erreur::GsErreur);
  EXPECT_EQ(l.rapport.Detail, "undefined");
  EXPECT_EQ(l.rapport.Ligne, 4);
  EXPECT_TRUE(l.traits.empty());
}

TEST(LireEps, ErrorsOfEveryKindHaveTheirName) {
  AVEC_GS();
  const std::pair<const char*, const char*> cas[] = {
      {"0 0 lineto", "nocurrentpoint"},
      {"pop pop", "stackunderflow"},
      {"(a) 1 add", "typecheck"},
      {"{ 1 2", "syntaxerror"},
      {"1 0 div", "undefinedresult"},
      {"/F9 {F9} def [ 9 get", "typecheck"},
      {"(/etc/passwd) (r) file", "invalidfileaccess"},
      {"1 1 nosuch", "undefined"},
  };
  for (const auto& [texte, nom] : cas) {
    const Lecture l = Lit(std::string("%!PS\n") + texte);
    EXPECT_EQ(l.rapport.Numero, Erreur::GsErreur) << texte;
    EXPECT_EQ(l.rapport.Detail, nom) << texte;
  }
}

TEST(LireEps, WithoutGhostscriptThereIsAClearRefusal) {
  EpsMoyens moyens;
  for (const char* const absent : {"no-such-program-here", "/nonexistent/gs", "/etc/passwd", "/tmp"}) {
    moyens.programme = absent;
    Lecture l;
    LireEpsAvec("%!PS\n", OptionsLecture{}, moyens, l);
    EXPECT_EQ(l.rapport.Numero, Erreur::GsAbsent) << absent;
    EXPECT_EQ(l.rapport.Detail, absent);
  }
}

TEST(LireEps, AProgramThatFailsWithoutAWordIsNamedByItsExitCode) {
  EpsMoyens moyens;
  moyens.programme = "false";
  Lecture l;
  LireEpsAvec("%!PS\n", OptionsLecture{}, moyens, l);
  EXPECT_EQ(l.rapport.Numero, Erreur::GsErreur);
  EXPECT_EQ(l.rapport.Detail, "exit 1");
}

TEST(LireEps, AnEndlessDrawingEndsByTheClock) {
  AVEC_GS();
  const DossierEssai dossier;
  EpsMoyens moyens;
  moyens.delai = std::chrono::milliseconds(600);
  moyens.dossier = dossier.Chemin();
  std::vector<double> parts;
  OptionsLecture options;
  options.Avancement = [&](double p) { parts.push_back(p); };
  Lecture l;
  LireEpsAvec("%!PS\n0 0 moveto 9 9 lineto stroke {} loop", options, moyens, l);
  EXPECT_EQ(l.rapport.Numero, Erreur::GsDelai);
  EXPECT_TRUE(l.traits.empty());
  EXPECT_TRUE(dossier.Vide());
  EXPECT_GE(parts.size(), 2U);
  EXPECT_TRUE(std::is_sorted(parts.begin(), parts.end()));
}

TEST(LireEps, AFloodEndsByItsVolume) {
  AVEC_GS();
  const DossierEssai dossier;
  EpsMoyens moyens;
  moyens.volume = 1 << 20;
  moyens.dossier = dossier.Chemin();
  for (const char* const flot :
       {"{(aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa) print} loop", "{0 0 moveto 9 9 lineto stroke} loop"}) {
    Lecture l;
    LireEpsAvec(std::string("%!PS\n") + flot, OptionsLecture{}, moyens, l);
    EXPECT_EQ(l.rapport.Numero, Erreur::GsVolume) << flot;
    EXPECT_EQ(l.rapport.Detail, "1 MB");
    EXPECT_TRUE(l.traits.empty());
  }
  EXPECT_TRUE(dossier.Vide());
}

TEST(LireEps, GreedForMemoryIsAnErrorOfTheDrawing) {
  AVEC_GS();
  const DossierEssai dossier;
  EpsMoyens moyens;
  moyens.memoire = std::size_t{250} << 20;
  moyens.dossier = dossier.Chemin();
  Lecture l;
  LireEpsAvec("%!PS\n[ { 60000 string } loop", OptionsLecture{}, moyens, l);
  EXPECT_EQ(l.rapport.Numero, Erreur::GsErreur) << l.rapport.Detail;
  EXPECT_TRUE(dossier.Vide());
}

TEST(LireEps, FilesThatADrawingLeavesAreGone) {
  AVEC_GS();
  const DossierEssai dossier;
  EpsMoyens moyens;
  moyens.dossier = dossier.Chemin();
  Lecture l;
  LireEpsAvec(
      "%!PS\n{ null (w) .tempfile pop pop } stopped clear { (x) (w) file } stopped clear "
      "0 0 moveto 9 0 lineto stroke",
      OptionsLecture{}, moyens, l);
  EXPECT_EQ(l.rapport.Numero, Erreur::Aucune) << l.rapport.Detail;
  EXPECT_EQ(l.traits.size(), 1U);
  EXPECT_TRUE(dossier.Vide());
}

TEST(LireEps, ADrawingThatPaintsMillionsOfPointsIsRefused) {
  AVEC_GS();
  // Each curve is thousands of chords, and takes 60 bytes of output.
  const Lecture l = Lit("%!PS\n2000 { 0 0 moveto 0 60000 60000 60000 60000 0 curveto stroke } repeat");
  EXPECT_EQ(l.rapport.Numero, Erreur::Memoire);
  EXPECT_TRUE(l.traits.empty());
}

}  // namespace
}  // namespace pathwerk::lecture::eps
