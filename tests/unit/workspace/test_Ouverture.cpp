// The opening procedure: which drawings it takes, its order, what it leaves alone, what a drawing becomes on its
// way; line ends; a material.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "closed/Pathwerk.h"
#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "database/Module_BD.h"
#include "tests/support/Support.h"
#include "tests/unit/workspace/DessinsOuverts.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/Formats.h"
#include "workspace/Module_Ouverture.h"

namespace {

using namespace ovelin;
using essai::Attend;
using essai::CarreDxf;
using essai::Dxf;
using essai::EcritFichierEssai;
using essai::LitFichierEssai;
using essai::Ouvre;
using testing::ElementsAre;

TEST(Ouvrir, APathThatDoesNotExistChangesNothing) {
  essai::AjouteCarre(" A", 0, 0, 10);
  FichierCourant = "avant";
  const auto avant = TraceInitial;
  EXPECT_EQ(Ouvre(essai::Dossier() + "/absent.dxf"), Ouverture::Abandon);
  EXPECT_EQ(TraceInitial, avant);
  EXPECT_EQ(FichierCourant, "avant");
  EXPECT_EQ(LireCle("Fichier", "rien"), "rien");
}

TEST(Ouvrir, ACancelledDialogChangesNothing) {
  FichierCourant = "avant";
  essai::AttendFichier("mnu_Ouvrir", "");
  OptionsOuverture options;
  options.dehors = false;
  EXPECT_EQ(mnu_Ouvrir("", options), Ouverture::Abandon);
  EXPECT_EQ(FichierCourant, "avant");
}

TEST(Ouvrir, TheDialogProposesTheFileOpenedLast) {
  EcrireCle("Fichier", "/un/dessin.dxf");
  std::string propose;
  Svc.ChoisitFichier = [&](const DialogueFichier& d) {
    propose = d.propose;
    EXPECT_EQ(d.motif, "*.DAT; *.PLT; *.PRN; *.HPGL; *.OVL; *.DXF; *.DRD; *.DRL; *.EPS; *.SVG; *.PDF");
    return std::string();
  };
  OptionsOuverture options;
  options.dehors = false;
  mnu_Ouvrir("", options);
  EXPECT_EQ(propose, "/un/dessin.dxf");
}

TEST(Ouvrir, AForeignDrawingComesInFiveMillimetresFromTheOrigin) {
  ASSERT_EQ(Ouvre(EcritFichierEssai("c.dxf", CarreDxf)), Ouverture::Reussie);
  EXPECT_FLOAT_EQ(Xmin, 15);
  EXPECT_FLOAT_EQ(Xmax, 55);
  EXPECT_FLOAT_EQ(Ymin, 15);
  EXPECT_FLOAT_EQ(Ymax, 55);
}

TEST(Ouvrir, AForeignDrawingGetsARecordForEachPath) {
  ProfFraisage = -7;
  ASSERT_EQ(Ouvre(EcritFichierEssai(
                "c.dxf", Dxf({{true, {{10, 10}, {50, 10}, {50, 50}, {10, 50}}}, {false, {{0, 0}, {5, 0}}}}))),
            Ouverture::Reussie);
  ASSERT_EQ(Sequences.size(), 2U);
  for (const SequenceInfo& s : Sequences) {
    EXPECT_EQ(s.Poche, Faux);
    EXPECT_EQ(s.Fraiser, Vrai);
    EXPECT_EQ(s.Profondeur, -7) << "the depth in force when the drawing came in";
    EXPECT_EQ(s.Decalage, 1);
    EXPECT_EQ(s.Selection, Vrai);
  }
  EXPECT_EQ(ProfFraisage, -3) << "settings are read again behind the drawing";
  EXPECT_EQ(TraceDecale.size(), 2U);
}

TEST(Ouvrir, AProjectStaysWhereItIs) {
  essai::AjouteCarre(" A", 20, 30, 10);
  const std::string projet = essai::Dossier() + "/p.OVL";
  ASSERT_EQ(EnregistreProjet(projet), "");
  const auto points = TraceInitial;
  Doc = Document{};
  ASSERT_EQ(Ouvre(projet), Ouverture::Reussie);
  EXPECT_EQ(TraceInitial, points);
  EXPECT_EQ(FichierProjet, projet);
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_EQ(SeqCourante, Code2(" A"));
  EXPECT_FLOAT_EQ(PointCourantX, 20);
}

// Both notch values of a project that was written before there were keys of them, and of one that holds both.
TEST(Ouvrir, TheClosingLinesOfAnOldProjectActUnlessItsSettingsSayOtherwise) {
  EcrireCle("LargeurEncoche", "7");
  EcrireCle("MiniEncoche", "0.25");
  const std::string points =
      "1              2              PD              A\r\n3              5              PD              A\r\n"
      "$$Mat01 6\r\n$$Mat02 1.5\r\n";
  ASSERT_EQ(Ouvre(EcritFichierEssai("vieux.OVL", points)), Ouverture::Reussie);
  EXPECT_EQ(LargeurEncoche, 6);
  EXPECT_EQ(MiniEncoche, 1.5);
  ASSERT_EQ(Ouvre(EcritFichierEssai("neuf.OVL", points + "$$LargeurEncoche=4\r\n")), Ouverture::Reussie);
  EXPECT_EQ(LargeurEncoche, 4);
  EXPECT_EQ(MiniEncoche, 1.5);
  Magasin.Surcharge["minienCOCHE"] = "3";
  ASSERT_EQ(Ouvre(EcritFichierEssai("vieux.OVL", points)), Ouverture::Reussie);
  EXPECT_EQ(LargeurEncoche, 6);
  EXPECT_EQ(MiniEncoche, 3);
}

TEST(Ouvrir, TheKeyOfTheFileIsWrittenBeforeItIsRead) {
  const std::string chemin = EcritFichierEssai("faux.dxf", "ceci n'est pas un dessin");
  Attend("F_Representation", "lib115");
  EXPECT_EQ(Ouvre(chemin), Ouverture::Refusee);
  EXPECT_EQ(LireCle("Fichier", ""), chemin);
}

TEST(Ouvrir, WithoutTheKeyNothingIsWrittenToTheSettings) {
  OptionsOuverture options;
  options.ecritFichier = false;
  ASSERT_EQ(mnu_Ouvrir(EcritFichierEssai("c.dxf", CarreDxf), options), Ouverture::Reussie);
  EXPECT_EQ(LireCle("Fichier", "rien"), "rien");
}

TEST(Ouvrir, MenusAreEnabledOnlyWhenTheDrawingStands) {
  std::vector<bool> menus;
  Svc.DessinOuvert = [&](bool ouvert) { menus.push_back(ouvert); };
  ASSERT_EQ(Ouvre(EcritFichierEssai("c.dxf", CarreDxf)), Ouverture::Reussie);
  EXPECT_EQ(menus, (std::vector<bool>{false, true}));
  menus.clear();
  Attend("erreurs", "100");
  EXPECT_EQ(Ouvre(EcritFichierEssai("vide.OVL", "$$a=1\r\n")), Ouverture::Refusee);
  EXPECT_EQ(menus, (std::vector<bool>{false}));
}

TEST(Ouvrir, TheRatiosOfTheSizeDialogMultiplyAboutTheOrigin) {
  Svc.Dimensionne = [](DemandeDimension& d) {
    EXPECT_FLOAT_EQ(static_cast<float>(d.largeur), 40);
    EXPECT_FLOAT_EQ(static_cast<float>(d.hauteur), 40);
    EXPECT_EQ(d.courseX, 600) << "the dialog's own default of the travel";
    EXPECT_EQ(d.courseY, 400);
    d.rapportX = 2;
    d.rapportY = 0.5;
  };
  ASSERT_EQ(Ouvre(EcritFichierEssai("c.dxf", CarreDxf)), Ouverture::Reussie);
  EXPECT_FLOAT_EQ(Xmin, 2 * 10 + 5);
  EXPECT_FLOAT_EQ(Xmax, 2 * 50 + 5);
  EXPECT_FLOAT_EQ(Ymin, 10 / 2.0F + 5);
  EXPECT_FLOAT_EQ(Ymax, 50 / 2.0F + 5);
}

// A line of 100 mm with a bump of 0.03 mm in its middle: whether the bump stays tells the tolerance.
std::size_t PointsDeLaBosse(double rapport) {
  Doc = Document{};
  Svc.Dimensionne = [rapport](DemandeDimension& d) { d.rapportX = d.rapportY = rapport; };
  EXPECT_EQ(Ouvre(EcritFichierEssai("b.dxf", Dxf({{false, {{0, 0}, {50, 0.03}, {100, 0}}}}))), Ouverture::Reussie);
  return TraceInitial.size();
}

TEST(Ouvrir, TheCleanUpStandsToTheDrawingAsTheResolutionToTheTravel) {
  // Without a table: 1 mm a turn, 200 steps doubled, so r = 0.0025 mm; the drawing's diagonal is 100 mm.
  const std::string table = "table_" + TableDefaut;
  EcrireCleSection(table, "TB_SAV_18", "3");
  EcrireCleSection(table, "TB_SAV_19", "4");
  EXPECT_EQ(PointsDeLaBosse(1), 2U) << "D = 5: tolerance 0.05 mm";
  EcrireCleSection(table, "TB_SAV_18", "6");
  EcrireCleSection(table, "TB_SAV_19", "8");
  EXPECT_EQ(PointsDeLaBosse(1), 3U) << "D = 10: tolerance 0.025 mm";
  EXPECT_EQ(PointsDeLaBosse(10), 3U) << "the size of the drawing changes nothing";
  SupprimerCleSection(table, "TB_SAV_18");
  SupprimerCleSection(table, "TB_SAV_19");
  EXPECT_EQ(PointsDeLaBosse(1), 3U) << "default travel of 1000 by 600";
}

// A zigzag star, closed, whose first point is the farthest from the origin: 2 n points and the closing one.
std::string Etoile(int n) {
  std::vector<std::pair<double, double>> points;
  for (int i = 0; i < 2 * n; ++i) {
    const double a = Pi / 4 + Pi * i / n;
    const double r = i % 2 == 0 ? 1000 : 800;
    points.emplace_back(1000 + r * std::cos(a), 1000 + r * std::sin(a));
  }
  return Dxf({{true, points}});
}

TEST(Ouvrir, FourThousandNineHundredAndNinetyNinePointsGetTheirStartPoint) {
  ASSERT_EQ(Ouvre(EcritFichierEssai("e.dxf", Etoile(2499))), Ouverture::Reussie);
  ASSERT_EQ(NbPoints, 4999);
  // The start is the point nearest to the origin, about (1000 - 1000 / sqrt 2) in both.
  EXPECT_LT(TraceInitial[0].X, 600);
  EXPECT_LT(TraceInitial[0].Y, 600);
}

TEST(Ouvrir, FiveThousandPointsKeepTheirOrder) {
  std::string dessin = Etoile(2499);
  // One point more, far out on the first edge.
  const std::string compte = "90\r\n4998\r\n";
  dessin.replace(dessin.find(compte), compte.size(), "90\r\n4999\r\n");
  const std::string premier = "10\r\n" + TexteNombre(1000 + 1000 * std::cos(Pi / 4));
  dessin.insert(dessin.find(premier), "10\r\n1900\r\n20\r\n1900\r\n");
  ASSERT_EQ(Ouvre(EcritFichierEssai("e.dxf", dessin)), Ouverture::Reussie);
  ASSERT_EQ(NbPoints, 5000);
  EXPECT_FLOAT_EQ(TraceInitial[0].X, 1905);
}

TEST(Ouvrir, OldSnapshotsAreDeleted) {
  EcritFichierEssai("temp/00001.OVL", "x");
  EcritFichierEssai("temp/garde.txt", "x");
  ASSERT_EQ(Ouvre(EcritFichierEssai("c.dxf", CarreDxf)), Ouverture::Reussie);
  EXPECT_FALSE(std::filesystem::exists(essai::Dossier() + "/temp/00001.OVL"));
  EXPECT_TRUE(std::filesystem::exists(essai::Dossier() + "/temp/garde.txt"));
}

TEST(Ouvrir, TheDragKnifeIsOffBehindIt) {
  Prolongement = Vrai;
  ASSERT_EQ(Ouvre(EcritFichierEssai("c.dxf", CarreDxf)), Ouverture::Reussie);
  EXPECT_EQ(Prolongement, Faux);
}

TEST(Ouvrir, ADrawingAfterAProjectTakesNothingOfTheProject) {
  essai::AjouteCarre(" A", 20, 30, 10);
  RayonFraise = 9;
  const std::string projet = essai::Dossier() + "/p.OVL";
  Magasin.EcrireIni = false;
  ASSERT_EQ(EnregistreProjet(projet), "");
  ASSERT_EQ(Ouvre(projet), Ouverture::Reussie);
  EXPECT_EQ(RayonFraise, 9);
  ASSERT_EQ(Ouvre(EcritFichierEssai("c.dxf", CarreDxf)), Ouverture::Reussie);
  EXPECT_EQ(FichierProjet, "");
  EXPECT_EQ(RayonFraise, 3);
}

TEST(Enregistrer, AFailureLeavesTheProjectAsItWas) {
  essai::AjouteCarre(" A", 0, 0, 10);
  Modifie = Vrai;
  FichierProjet = "avant";
  EXPECT_NE(EnregistreProjet(essai::Dossier() + "/nulle/part.OVL"), "");
  EXPECT_EQ(FichierProjet, "avant");
  EXPECT_EQ(Modifie, Vrai);
}

TEST(Enregistrer, TheDocumentIsSavedUnderItsNewName) {
  essai::AjouteCarre(" A", 0, 0, 10);
  Modifie = Vrai;
  const std::string projet = essai::Dossier() + "/p.OVL";
  ASSERT_EQ(EnregistreProjet(projet), "");
  EXPECT_EQ(FichierProjet, projet);
  EXPECT_EQ(FichierCourant, projet);
  EXPECT_EQ(ExtensionCourante, "OVL");
  EXPECT_EQ(Modifie, Faux);
  ASSERT_FALSE(essai::Panneaux().empty());
  EXPECT_EQ(essai::Panneaux().back(), (std::pair<int, std::string>{1, " OVELIN <-> p.OVL"}));
}

TEST(Ouvrir, ACompressedSvgIsLeftAsItIs) {
  const std::string octets = "\x1F\x8B\x08 packed\nlines\n";
  const std::string chemin = EcritFichierEssai("a.svgz", octets);
  Attend("F_Representation", "lib128");
  EXPECT_EQ(Ouvre(chemin), Ouverture::Refusee);
  EXPECT_EQ(LitFichierEssai(chemin), octets);
}

TEST(Ouvrir, LineFeedsAloneBecomeCarriageReturnAndLineFeedOnDisk) {
  const std::string chemin = EcritFichierEssai("a.dat", "0 0\n10 0\n10 10\n");
  ASSERT_EQ(Ouvre(chemin), Ouverture::Reussie);
  EXPECT_EQ(LitFichierEssai(chemin), "0 0\r\n10 0\r\n10 10\r\n");
}

TEST(Ouvrir, UniformLineEndsAreLeftAlone) {
  const std::string chemin = EcritFichierEssai("a.dat", "0 0\r\n10 0\n10 10\r\n");
  ASSERT_EQ(Ouvre(chemin), Ouverture::Reussie);
  EXPECT_EQ(LitFichierEssai(chemin), "0 0\r\n10 0\n10 10\r\n");
}

TEST(RendUniforme, NeverDoublesACarriageReturnWhateverTheMixture) {
  const auto rendu = [](const std::string& octets) {
    const std::string chemin = EcritFichierEssai("m.plt", octets);
    EXPECT_TRUE(RendUniforme(chemin)) << octets;
    return LitFichierEssai(chemin);
  };
  EXPECT_EQ(rendu("a\nb\r\nc\r\n"), "a\r\nb\r\nc\r\n");
  EXPECT_EQ(rendu("a\nb\nc\r\nd"), "a\r\nb\r\nc\r\nd");
  EXPECT_EQ(rendu("a\n\r\n\nb\n"), "a\r\n\r\n\r\nb\r\n");
  EXPECT_EQ(rendu("\na\r\n"), "\r\na\r\n");
  EXPECT_EQ(rendu("a\nb\rc\n"), "a\r\nb\rc\r\n");
}

TEST(Ouvrir, AProjectWhoseFirstLineAloneEndsInALineFeedKeepsItsPoints) {
  std::string projet;
  for (int i = 0; i < 20; ++i) {
    const std::string x = std::to_string(10 + i);
    const std::string y = std::to_string(10 + i * i % 7);
    projet += x + std::string(15 - x.size(), ' ') + y + std::string(15 - y.size(), ' ') + "PD A\r\n";
  }
  ASSERT_EQ(Ouvre(EcritFichierEssai("entier.OVL", projet)), Ouverture::Reussie);
  const std::int32_t points = NbPoints;
  projet.erase(projet.find('\r'), 1);
  const std::string chemin = EcritFichierEssai("melange.OVL", projet);
  ASSERT_EQ(Ouvre(chemin), Ouverture::Reussie);
  EXPECT_EQ(NbPoints, points);
  EXPECT_EQ(LitFichierEssai(chemin).find("\r\r"), std::string::npos);
}

TEST(RendUniforme, LeavesBinaryAndReadOnlyFilesAlone) {
  using namespace std::string_literals;
  for (const std::string& octets : {"0 0\n\0 1"s, "\xC5\xD0\xD3\xC6 a\nb\n"s, "AutoCAD Binary DXF\r\n"s}) {
    const std::string chemin = EcritFichierEssai("b.dat", octets);
    EXPECT_FALSE(RendUniforme(chemin));
    EXPECT_EQ(LitFichierEssai(chemin), octets);
  }
  const std::string garde = EcritFichierEssai("g.dat", "1 2\n3 4\n");
  std::filesystem::permissions(garde, std::filesystem::perms::owner_read);
  EXPECT_FALSE(RendUniforme(garde));
  EXPECT_EQ(LitFichierEssai(garde), "1 2\n3 4\n");
}

TEST(RendUniforme, LeavesAFileWithoutALineFeedAlone) {
  EXPECT_FALSE(RendUniforme(EcritFichierEssai("u.plt", "IN;PU;PA0,0;")));
  EXPECT_TRUE(RendUniforme(EcritFichierEssai("v.plt", "\nIN;")));
}

TEST(AppliqueMateriau, TheNeutralEntryChangesNothing) {
  EcritFichesDefaut();
  essai::AjouteCarre(" A", 0, 0, 10);
  const Reglages avant = Regl;
  EXPECT_TRUE(AppliqueMateriau(0));
  EXPECT_EQ(RayonFraise, avant.RayonFraise);
  EXPECT_EQ(Sequences[0].Profondeur, -3);
}

TEST(AppliqueMateriau, GivesEveryPathTheDepthAndRebuildsTheTraces) {
  EcritFichesDefaut();
  essai::AjouteCarre(" A", 0, 0, 10);
  essai::AjouteCarre(" B", 30, 0, 10);
  RecalculDecalages();
  const float avant = TraceDecale[0].Points[0].X;
  EXPECT_TRUE(AppliqueMateriau(4));
  EXPECT_EQ(RayonFraise, 0.8);
  EXPECT_EQ(ProfFraisage, -4.5);
  EXPECT_EQ(Sequences[0].Profondeur, -4.5);
  EXPECT_EQ(Sequences[1].Profondeur, -4.5);
  EXPECT_NE(TraceDecale[0].Points[0].X, avant);
}

TEST(AppliqueMateriau, NoToUnequalDepthsKeepsTheOtherParameters) {
  EcritFichesDefaut();
  essai::AjouteSequence(" A", {{0, 0}, {10, 0}}, 2, -1);
  essai::AjouteSequence(" B", {{0, 5}, {10, 5}}, 2, -2);
  Attend("F_Representation", "lib106", Reponse::Non);
  EXPECT_FALSE(AppliqueMateriau(3));
  EXPECT_EQ(RayonFraise, 0.8);
  EXPECT_EQ(Vitesse_Mat_H, 5.0);
  EXPECT_EQ(Sequences[0].Profondeur, -1);
  EXPECT_EQ(Sequences[1].Profondeur, -2);
  Attend("F_Representation", "lib106", Reponse::Oui);
  EXPECT_TRUE(AppliqueMateriau(3));
  EXPECT_EQ(Sequences[0].Profondeur, -2);
}

TEST(AppliqueMateriau, WithoutADrawingOnlyTheParametersChange) {
  EcritFichesDefaut();
  EXPECT_TRUE(AppliqueMateriau(5));
  EXPECT_EQ(ProfPasse, -2);
  EXPECT_EQ(Modifie, Faux);
}

TEST(Formats, TheStartOfTheWindowTakesFiveExtensions) {
  EXPECT_THAT(ExtensionsArgument(), ElementsAre("DXF", "PLT", "DAT", "DRL", "OVL"));
}

TEST(Formats, HelpListsThemAll) {
  EXPECT_EQ(EnListe(ExtensionsLues()), "DXF, PLT, PRN, HPGL, DAT, DRD, DRL, EPS, SVG, PDF or OVL");
}

TEST(Formats, TheOpenDialogOffersAllOfThem) {
  EXPECT_EQ(MotifDessins(), "*.DAT; *.PLT; *.PRN; *.HPGL; *.OVL; *.DXF; *.DRD; *.DRL; *.EPS; *.SVG; *.PDF");
}

TEST(Formats, WhatTheDialogOffersCanBeDroppedAndNothingElse) {
  for (const char* e : {"DAT", "PLT", "PRN", "HPGL", "OVL", "DXF", "DRD", "DRL", "EPS", "SVG", "PDF"})
    EXPECT_TRUE(SeDepose(e)) << e;
  for (const char* e : {"", "TXT", "dxf", "NC", "DX"}) EXPECT_FALSE(SeDepose(e)) << e;
}

TEST(Formats, AnExtensionBelongsToOneFormatAndAnArgumentToItsOwn) {
  std::set<std::string_view> extensions;
  std::set<int> rangs;
  for (const pathwerk::FormatConnu& f : pathwerk::Formats()) {
    for (const std::string_view e : f.Extensions) EXPECT_TRUE(extensions.insert(e).second) << e;
    EXPECT_TRUE(rangs.insert(f.Rang).second) << f.Nom;
    if (f.Argument.empty()) continue;
    EXPECT_NE(std::find(f.Extensions.begin(), f.Extensions.end(), f.Argument), f.Extensions.end()) << f.Nom;
  }
}

}  // namespace
