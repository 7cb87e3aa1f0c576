#include <sys/stat.h>

#include "base/Arret.h"
#include "tests/unit/closed/pathwerk/Aide.h"

using namespace aide;
using pathwerk::Erreur;
using pathwerk::LireFichier;

namespace {
constexpr const char* ForetDefaut = "M48\nMETRIC\n%\nT1\nX1000Y2000\nX5000Y-3000\nM30\n";
constexpr const char* DessinDxf =
    "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n10\n1.0\n20\n2.0\n11\n3.0\n21\n4.0\n0\nENDSEC\n0\nEOF\n";
constexpr const char* DessinHpgl = "IN;SP1;PU0,0;PD400,0,400,400;PU;";
}  // namespace

TEST(ImporteFichier, GivesPointsBoundsAndNoMessage) {
  const Dossier d;
  const auto f = Lis(d.Ecrit("a.dat", "1 2\n-3 4.5\n"));
  EXPECT_EQ(f.Nombre, 2);
  EXPECT_EQ(f.Points.size(), 2U);
  EXPECT_EQ(f.Xmin, -3);
  EXPECT_EQ(f.Xmax, 1);
  EXPECT_EQ(f.Ymin, 2);
  EXPECT_EQ(f.Ymax, 4.5F);
  EXPECT_EQ(f.Message, "");
  EXPECT_EQ(f.Rapport.Format, "DAT");
}

TEST(LireFichier, FillsItsPlacesAndABlankMessage) {
  const Dossier d;
  const Fichier f = LisEnPlace(d.Ecrit("a.dat", "1 2\n-3 4.5\n"));
  EXPECT_EQ(f.n, 2);
  EXPECT_EQ(f.points, Lis(d / "a.dat").Points);
  EXPECT_EQ(f.xmin, -3);
  EXPECT_EQ(f.xmax, 1);
  EXPECT_EQ(f.ymin, 2);
  EXPECT_EQ(f.ymax, 4.5F);
  EXPECT_EQ(f.message, std::string(260, ' '));
}

TEST(LireFichier, AFailureLeavesTheBoundsAndTellsItInAPaddedMessage) {
  const Dossier d;
  const Fichier f = LisEnPlace(d.Ecrit("a.dat", "T\n1 2\n1e9 4\n"));
  EXPECT_EQ(f.n, static_cast<int>(Erreur::Coordonnee));
  EXPECT_TRUE(f.points.empty());
  EXPECT_EQ(f.xmin, -1);
  EXPECT_EQ(f.xmax, -2);
  EXPECT_EQ(f.ymin, -3);
  EXPECT_EQ(f.ymax, -4);
  EXPECT_EQ(f.message, "a.dat:3: 1e9 4" + std::string(246, ' '));
}

TEST(LireFichier, PointsOfBeforeAreReplacedAlsoByAFailure) {
  const Dossier d;
  std::vector<PointTrace> points(7);
  float x = 0;
  std::string message(260, ' ');
  EXPECT_EQ(LireFichier(points, d / "absent.dat", x, x, x, x, message), static_cast<int>(Erreur::Ouverture));
  EXPECT_TRUE(points.empty());
}

TEST(ImporteFichier, PathWithANulBehindIt) {
  const Dossier d;
  EXPECT_EQ(Lis(d.Ecrit("a.dat", "1 2\n-3 4.5\n") + std::string(1, '\0')).Nombre, 2);
}

TEST(ImporteFichier, ExtensionNamesTheFormatInAnyCase) {
  const Dossier d;
  for (const char* nom : {"a.drl", "a.DRL", "a.Drd"})
    EXPECT_EQ(Lis(d.Ecrit(nom, ForetDefaut)).Rapport.Format, "DRL") << nom;
  for (const char* nom : {"a.dxf", "b.DXF"}) EXPECT_EQ(Lis(d.Ecrit(nom, DessinDxf)).Rapport.Format, "DXF") << nom;
  for (const char* nom : {"a.plt", "a.prn", "a.hpgl"}) {
    EXPECT_EQ(Lis(d.Ecrit(nom, DessinHpgl)).Rapport.Format, "HPGL") << nom;
  }
  EXPECT_EQ(Lis(d.Ecrit("a.dat", ForetDefaut)).Nombre, static_cast<int>(Erreur::Dat));
  EXPECT_EQ(Lis(d.Ecrit("a.eps", ForetDefaut)).Nombre, static_cast<int>(Erreur::EpsEntete));
  EXPECT_EQ(Lis(d.Ecrit("a.svg", ForetDefaut)).Nombre, static_cast<int>(Erreur::Svg));
  EXPECT_EQ(Lis(d.Ecrit("a.svgz", "\x1F\x8B\x08")).Nombre, static_cast<int>(Erreur::Svg));
}

TEST(ImporteFichier, UnknownExtensionIsToldByContent) {
  const Dossier d;
  EXPECT_EQ(Lis(d.Ecrit("a.xln", ForetDefaut)).Rapport.Format, "DRL");
  EXPECT_EQ(Lis(d.Ecrit("a.txt", std::string("; comment\n%\n") + ForetDefaut)).Rapport.Format, "DRL");
  EXPECT_EQ(Lis(d.Ecrit("a", DessinDxf)).Rapport.Format, "DXF");
  EXPECT_EQ(Lis(d.Ecrit("b.txt", std::string("999\nmade by hand\n") + DessinDxf)).Rapport.Format, "DXF");
  EXPECT_EQ(Lis(d.Ecrit("c.txt", std::string("  0\r\nSECTION\r\n") + (DessinDxf + 10))).Rapport.Format, "DXF");
  EXPECT_EQ(Lis(d.Ecrit("a.gl", DessinHpgl)).Rapport.Format, "HPGL");
  EXPECT_EQ(Lis(d.Ecrit("b.gl", std::string("\x1B.(;\x1B%0B") + DessinHpgl)).Rapport.Format, "HPGL");
  EXPECT_EQ(Lis(d.Ecrit("c.txt", "Title\n1 2\n3 4\n")).Rapport.Format, "DAT");
  EXPECT_EQ(Lis(d.Ecrit("c.csv", "1.5,2.5\n3,4\n")).Rapport.Format, "DAT");
  EXPECT_EQ(Lis(d.Ecrit("a.ps", "%!PS-Adobe-3.0\n")).Rapport.Format, "EPS");
  EXPECT_EQ(Lis(d.Ecrit("b.ps", "\xC5\xD0\xD3\xC6garbage")).Rapport.Format, "EPS");
  EXPECT_EQ(Lis(d.Ecrit("a.xml", "<?xml version=\"1.0\"?>\n<svg width=\"9mm\"><path d=\"M0 0h5v5\"/></svg>"))
                .Rapport.Format,
            "SVG");
}

TEST(ImporteFichier, NeitherExtensionNorContentIsRefused) {
  const Dossier d;
  for (const char* t : {"", "hello\n", "INside 1 2\n", "PDF"}) {
    const auto f = Lis(d.Ecrit("a.xyz", t));
    EXPECT_EQ(f.Nombre, static_cast<int>(Erreur::FormatInconnu)) << t;
    EXPECT_EQ(f.Message, "a.xyz");
  }
}

TEST(ImporteFichier, WhatCannotBeOpenedGivesTheSystemsText) {
  const Dossier d;
  auto f = Lis(d / "absent.dat");
  EXPECT_EQ(f.Nombre, static_cast<int>(Erreur::Ouverture));
  EXPECT_EQ(f.Rapport.Detail, "No such file or directory");
  EXPECT_EQ(f.Message, "absent.dat: No such file or directory");
  std::filesystem::create_directory(d / "dossier.dat");
  f = Lis(d / "dossier.dat");
  EXPECT_EQ(f.Nombre, static_cast<int>(Erreur::Ouverture));
  EXPECT_EQ(f.Rapport.Detail, "Is a directory");
  EXPECT_EQ(Lis("").Nombre, static_cast<int>(Erreur::Ouverture));
  if (::geteuid() != 0) {
    ::chmod(d.Ecrit("ferme.dat", "1 2\n3 4\n").c_str(), 0);
    EXPECT_EQ(Lis(d / "ferme.dat").Rapport.Detail, "Permission denied");
  }
}

TEST(ImporteFichier, APipeIsRefusedAndNotWaitedFor) {
  const Dossier d;
  ASSERT_EQ(::mkfifo((d / "tube.dat").c_str(), 0600), 0);
  EXPECT_EQ(Lis(d / "tube.dat").Nombre, static_cast<int>(Erreur::Ouverture));
}

TEST(ImporteFichier, AFailureNamesFileLineAndDetail) {
  const Dossier d;
  auto f = Lis(d.Ecrit("a.dat", "T\n1 2\n1e9 4\n"));
  EXPECT_EQ(f.Nombre, static_cast<int>(Erreur::Coordonnee));
  EXPECT_EQ(f.Message, "a.dat:3: 1e9 4");
  EXPECT_TRUE(f.Points.empty());
}

TEST(ImporteFichier, ARefusedCoordinateNamesFileLineAndValueInEveryFormat) {
  const Dossier d;
  const auto refus = [&d](const std::string& nom, const std::string& octets) {
    const auto f = Lis(d.Ecrit(nom, octets));
    EXPECT_EQ(f.Nombre, static_cast<int>(Erreur::Coordonnee)) << nom;
    return f.Message;
  };
  std::string dxf = DessinDxf;
  dxf.replace(dxf.find("1.0"), 3, "100000000.0");
  EXPECT_EQ(refus("a.dxf", dxf), "a.dxf:6: 100000000 2 mm") << "the line that names the entity";
  EXPECT_EQ(refus("a.plt", "IN;\nPU0,0;\nPD4e9,0;PU;"), "a.plt:3: PD 4e9 (100000000 0 mm)");
  EXPECT_EQ(refus("a.drl", "M48\nMETRIC\n%\nX100000000.0Y1.0\nM30\n"), "a.drl:4: X100000000.0");
}

TEST(ImporteFichier, ACommentInFrontMakesAPlotNoLessAPlot) {
  const Dossier d;
  for (const char* const debut : {"CO\"Drawn; by hand\";", "CO Drawn by hand, PU9,9;", "\r\nCO a;CO b;\n"}) {
    const auto f = Lis(d.Ecrit("dessin", std::string(debut) + DessinHpgl));
    EXPECT_EQ(f.Rapport.Format, "HPGL") << debut;
    EXPECT_EQ(f.Nombre, 3) << debut;
  }
  EXPECT_EQ(Lis(d.Ecrit("texte", "COLUMNS OF A TABLE; WITHOUT NUMBERS\n")).Nombre,
            static_cast<int>(Erreur::FormatInconnu));
}

TEST(ImporteFichier, UnderTheWishToEndNothingIsAssembled) {
  const Dossier d;
  const std::string dessin = d.Ecrit("a.dxf", DessinDxf);
  ASSERT_EQ(Lis(dessin).Nombre, 2);
  base::Arret arret;
  arret.Demande();
  const base::SousArret sous(&arret);
  const auto f = Lis(dessin);
  EXPECT_EQ(f.Nombre, 0);
  EXPECT_TRUE(f.Points.empty());
}

TEST(ImporteFichier, SuccessListsWhatWasLeftOut) {
  const Dossier d;
  EXPECT_EQ(Lis(d.Ecrit("a.drl", "M48\nMETRIC\n%\nG77\nX1\nX1\nG77\nM30\n")).Message, "DUPLICATE 1, G77 2");
  EXPECT_EQ(Lis(d.Ecrit("b.drl", "M48\nMETRIC\n%\nX1000\nX2")).Message, "EOF");
}

TEST(LireFichier, AnEmptyDrawingHasNoPointsAndLeavesTheBounds) {
  const Dossier d;
  const auto f = LisEnPlace(d.Ecrit("a.drl", "M48\nMETRIC\n%\nM30\n"));
  EXPECT_EQ(f.n, 0);
  EXPECT_EQ(f.xmax, -2);
}

TEST(LireFichier, LongMessagesAreCutToTheirLengthBetweenCharacters) {
  const Dossier d;
  std::string nom;
  for (int i = 0; i < 120; ++i) nom += "\xC3\xA9";  // 240 bytes
  const auto f = LisEnPlace(d.Ecrit(nom + ".dat", "no numbers here at all, but a long line of text\n"));
  EXPECT_EQ(f.message.size(), 260U);
  const auto g = LisEnPlace(d / ("x" + nom + nom + ".dat"));  // too long a name for the system
  EXPECT_EQ(g.message.size(), 260U);
  EXPECT_EQ(SansBlancsFinaux(g.message).size() % 2, 1U);  // x and whole characters of two bytes
}

TEST(ImporteFichier, ByteOrderMarksAndWideTextAreRead) {
  const Dossier d;
  EXPECT_EQ(Lis(d.Ecrit("a.dat",
                        "\xEF\xBB\xBF"
                        "1 2\n3 4\n"))
                .Nombre,
            2);
  EXPECT_EQ(Lis(d.Ecrit("b.dat", std::string_view("\xFF\xFE"
                                                  "1\0 \0"
                                                  "2\0\n\0"
                                                  "3\0 \0"
                                                  "4\0",
                                                  16)))
                .Nombre,
            2);
  EXPECT_EQ(Lis(d.Ecrit("c.dat", std::string_view("\xFE\xFF\0"
                                                  "1\0 \0"
                                                  "2\0\n\0"
                                                  "3\0 \0"
                                                  "4",
                                                  16)))
                .Nombre,
            2);
}

TEST(ImporteFichier, ReadingDoesNotTouchTheFile) {
  const Dossier d;
  const std::string chemin = d.Ecrit("a.dat", "1 2\n3 4");
  const auto avant = std::filesystem::last_write_time(chemin);
  Lis(chemin);
  EXPECT_EQ(Octets(chemin), "1 2\n3 4");
  EXPECT_EQ(std::filesystem::last_write_time(chemin), avant);
  EXPECT_EQ(d.NombreDeFichiers(), 1U);
}

TEST(ImporteFichier, ProgressRunsFromNothingToOne) {
  const Dossier d;
  pathwerk::OptionsLecture options;
  std::vector<double> parts;
  options.Avancement = [&](double p) { parts.push_back(p); };
  pathwerk::ImporteFichier(d.Ecrit("a.dat", "1 2\n3 4\n"), options);
  ASSERT_FALSE(parts.empty());
  EXPECT_TRUE(std::is_sorted(parts.begin(), parts.end()));
  EXPECT_EQ(parts.back(), 1);
}

TEST(ImporteFichier, ThreeLettersMakeAPlot) {
  const Dossier d;
  const auto f = Lis(d.Ecrit("court", "IN;"));
  EXPECT_EQ(f.Rapport.Format, "HPGL");
}

// Over 2 MB of squares in loose lines, every fourth drawn twice, of which each long one holds the next three.
TEST(ImporteFichier, ALargeDrawingIsTheSameForAnyNumberOfThreads) {
  constexpr int Carres = 8000;
  std::string t = "0\nSECTION\n2\nENTITIES\n";
  const auto ligne = [&t](int calque, int x0, int y0, int x1, int y1) {
    t += "0\nLINE\n8\nC" + std::to_string(calque) + "\n10\n" + std::to_string(x0) + ".125\n20\n" +
         std::to_string(y0) + ".25\n11\n" + std::to_string(x1) + ".125\n21\n" + std::to_string(y1) + ".25\n";
  };
  for (int k = 0; k < Carres; ++k) {
    const int cote = 80 - 20 * (k % 4);
    const int x = 100 * (k / 4 % 90) + 10 * (k % 4), y = 100 * (k / 360) + 10 * (k % 4);
    for (int fois = k % 4 == 1 ? 2 : 1; fois > 0; --fois) {
      ligne(k % 3, x, y, x + cote, y);
      ligne(k % 3, x + cote, y, x + cote, y + cote);
      ligne(k % 3, x + cote, y + cote, x, y + cote);
      ligne(k % 3, x, y + cote, x, y);
    }
  }
  const Dossier d;
  const std::string chemin = d.Ecrit("grand.dxf", t + "0\nENDSEC\n0\nEOF\n");
  const auto seul = Lis(chemin);
  ASSERT_EQ(seul.Nombre, Carres * 5);
  EXPECT_EQ(seul.Rapport.Ignores.at("DUPLICATE"), Carres);  // four lines of each fourth square
  EXPECT_EQ(seul.CalquesDesChemins.size(), static_cast<std::size_t>(Carres));
  for (const unsigned fils : {2U, 7U}) {
    pathwerk::OptionsLecture options;
    options.Fils = fils;
    const auto f = pathwerk::ImporteFichier(chemin, options);
    EXPECT_TRUE(f.Points == seul.Points) << fils;
    EXPECT_EQ(f.CalquesDesChemins, seul.CalquesDesChemins);
    EXPECT_EQ(f.Calques, seul.Calques);
    EXPECT_EQ(f.Rapport.Ignores, seul.Rapport.Ignores);
    EXPECT_EQ(f.Message, seul.Message);
  }
}
