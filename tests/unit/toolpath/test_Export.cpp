#include "core/DocumentCourant.h"
#include "tests/unit/toolpath/BiblioEssai.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Outils.h"
#include "toolpath/Module_Sequence.h"

using namespace ovelin;
using namespace essai;

namespace {

struct Fichier {
  std::string chemin, commentaire;
  std::vector<PointTrace> points;
};

class ExporteTest : public testing::Test {
 protected:
  BiblioEssai biblio;
  std::vector<Fichier> ecrits;
  std::int32_t resultat = 0;

  void SetUp() override {
    Biblio.EcrireFichier = [this](const std::vector<PointTrace>& p, const std::string& chemin, std::string& c) {
      ecrits.push_back({chemin, c, p});
      EXPECT_EQ(c.size(), 260U);
      if (resultat < 0) {
        c = "fin.dxf: disk full";
        c.resize(260, ' ');
      }
      return resultat;
    };
  }
  std::string Commentaire(std::size_t i) const {
    const std::string& c = ecrits.at(i).commentaire;
    return c.substr(0, c.find_last_not_of(' ') + 1);
  }
};

void DeuxChemins() {
  AjouteSequence(" A", {{5, 5}, {15.5F, 5}});
  AjouteSequence(" B", {{-2, 7.25F}, {3, 9}});
}

}  // namespace

TEST_F(ExporteTest, RefusesOtherExtensions) {
  DeuxChemins();
  for (const char* chemin : {"/tmp/a.svg", "/tmp/dxf", "/tmp/a.dxf.bak"}) {
    Attend("F_Exporter", "lib001");
    EXPECT_FALSE(Exporte(chemin, 0));
  }
  EXPECT_TRUE(ecrits.empty());
}

TEST_F(ExporteTest, WritesTheWholeDrawingWithItsSizeAsComment) {
  DeuxChemins();
  Attend("F_Exporter", "lib002");
  EXPECT_TRUE(Exporte("/tmp/x/Boite.Dxf", 0));
  ASSERT_EQ(ecrits.size(), 1U);
  EXPECT_EQ(ecrits[0].chemin, "/tmp/x/Boite.Dxf");
  EXPECT_EQ(ecrits[0].points, TraceInitial);
  EXPECT_EQ(Commentaire(0), "Boite.Dxf - X=17.50 - Y=4.00");
  EXPECT_THAT(Boites()[0].texte, testing::EndsWith("\r\nBoite.Dxf - X=17.50 - Y=4.00"));
}

TEST_F(ExporteTest, UsesTheDecimalMarkOfTheUser) {
  DeuxChemins();
  Svc.MarqueDecimale = ',';
  Attend("F_Exporter", "lib002");
  Exporte("/tmp/a.dat", 0);
  EXPECT_EQ(Commentaire(0), "a.dat - X=17,50 - Y=4,00");
}

TEST_F(ExporteTest, CutsTheCommentAt260BytesBetweenCharacters) {
  DeuxChemins();
  std::string nom = "a";
  for (int i = 0; i < 140; ++i) nom += "é";
  Attend("F_Exporter", "lib002");
  Exporte("/tmp/" + nom + ".dxf", 0);
  // "a" and 129 letters of two bytes; the cut letter gives way to a blank.
  EXPECT_EQ(ecrits.at(0).commentaire, nom.substr(0, 259) + " ");
}

TEST_F(ExporteTest, WritesTheToolPathInTheOrderOfTheTable) {
  DeuxChemins();
  biblio.echecs = {Code2(" A")};
  RecalculDecalages();
  Attend("F_Exporter", "lib002");
  EXPECT_TRUE(Exporte("/tmp/a.dxf", 1));
  EXPECT_EQ(Lieux(ecrits.at(0).points), (std::vector<std::pair<float, float>>{{-2, 7.25F}, {3, 9}}));
  EXPECT_EQ(Commentaire(0), "a.dxf - X=5.00 - Y=1.75");
}

TEST_F(ExporteTest, KeepsTracesApartWhoseNumbersAreCutToTheSameText) {
  Code2 code = CodeAucun;
  for (int i = 0; i < 120; ++i) {
    code = CodeSuivant(code);
    AjouteSequence(code.Texte(), {{static_cast<float>(i), 0}, {static_cast<float>(i), 1}});
  }
  RecalculDecalages();
  ASSERT_EQ(TraceDecale[100].Points[0].Seq, TraceDecale[101].Points[0].Seq);
  Attend("F_Exporter", "lib002");
  Exporte("/tmp/a.dxf", 1);
  const auto& p = ecrits.at(0).points;
  ASSERT_EQ(p.size(), 240U);
  for (std::size_t i = 1; i < p.size(); ++i) EXPECT_EQ(p[i].Seq == p[i - 1].Seq, i % 2 == 1) << i;
}

TEST_F(ExporteTest, KeepsDxfWithSeveralTracesOneFileWithoutAQuestion) {
  DeuxChemins();
  RecalculDecalages();
  Attend("F_Exporter", "lib002");
  EXPECT_TRUE(Exporte("/tmp/a.DXF", 1));
  EXPECT_EQ(ecrits.size(), 1U);
}

TEST_F(ExporteTest, AsksBeforeADatFileOfSeveralTracesAndCancelStops) {
  DeuxChemins();
  RecalculDecalages();
  for (const int source : {0, 1}) {
    Attend("F_Exporter", "lib003", Reponse::Annuler);
    EXPECT_FALSE(Exporte("/tmp/a.dat", source));
    EXPECT_EQ(Boites().back().boutons, Boutons::OkAnnuler);
  }
  EXPECT_TRUE(ecrits.empty());
}

TEST_F(ExporteTest, DoesNotAskForADatFileOfOneTrace) {
  AjouteSequence(" A", {{5, 5}, {15.5F, 5}});
  RecalculDecalages();
  Attend("F_Exporter", "lib002");
  EXPECT_TRUE(Exporte("/tmp/a.dat", 1));
}

TEST_F(ExporteTest, WritesOneDatFileForEachTraceThatHasPoints) {
  DeuxChemins();
  AjouteSequence(" C", {{1, 1}, {2, 2}});
  biblio.echecs = {Code2(" B")};
  RecalculDecalages();
  Attend("F_Exporter", "lib003", Reponse::Ok);
  Attend("F_Exporter", "lib004");
  EXPECT_TRUE(Exporte("/tmp/un.deux/a.dat", 1));
  ASSERT_EQ(ecrits.size(), 2U);
  EXPECT_EQ(ecrits[0].chemin, "/tmp/un.deux/a001.dat");
  EXPECT_EQ(ecrits[1].chemin, "/tmp/un.deux/a002.dat");
  EXPECT_EQ(Commentaire(0), "#001");
  EXPECT_EQ(Commentaire(1), "#002");
  EXPECT_EQ(ecrits[1].points, TraceDecale[2].Points);
  const std::string& texte = Boites().back().texte;
  EXPECT_THAT(texte, testing::HasSubstr(" a001.dat\r\n"));
  EXPECT_THAT(texte, testing::HasSubstr(" a002.dat\r\n"));
}

TEST_F(ExporteTest, WritesOneDatFileForEachPathOfTheDrawing) {
  DeuxChemins();
  RecalculDecalages();
  Attend("F_Exporter", "lib003", Reponse::Ok);
  Attend("F_Exporter", "lib004");
  EXPECT_TRUE(Exporte("/tmp/a.DAT", 0));
  ASSERT_EQ(ecrits.size(), 2U);
  EXPECT_EQ(ecrits[0].chemin, "/tmp/a001.DAT");
  EXPECT_EQ(ecrits[0].points, Trace(" A", {{5, 5}, {15.5F, 5}}));
}

TEST_F(ExporteTest, GrowsTheNumberToFourDigits) {
  Code2 code = CodeAucun;
  for (int i = 0; i < 1001; ++i) {
    code = CodeSuivant(code);
    AjouteSequence(code.Texte(), {{0, 0}, {1, 1}});
  }
  RecalculDecalages();
  Attend("F_Exporter", "lib003", Reponse::Ok);
  Attend("F_Exporter", "lib004");
  EXPECT_TRUE(Exporte("/tmp/a.dat", 1));
  EXPECT_EQ(ecrits.at(998).chemin, "/tmp/a999.dat");
  EXPECT_EQ(ecrits.at(999).chemin, "/tmp/a1000.dat");
  EXPECT_EQ(Commentaire(1000), "#1001");
}

TEST_F(ExporteTest, TellsTheReasonOfAFailureAndStops) {
  DeuxChemins();
  RecalculDecalages();
  resultat = -125;
  Attend("F_Representation", "lib125");
  EXPECT_FALSE(Exporte("/tmp/a.dxf", 0));
  EXPECT_THAT(Boites()[0].texte, testing::EndsWith("\r\nfin.dxf: disk full"));
  EXPECT_EQ(Boites()[0].fichier, "/tmp/a.dxf");
  Attend("F_Exporter", "lib003", Reponse::Ok);
  Attend("F_Representation", "lib125");
  EXPECT_FALSE(Exporte("/tmp/a.dat", 1));
  EXPECT_EQ(ecrits.size(), 2U);
}

TEST_F(ExporteTest, RefusesWhatHoldsNoPoint) {
  Attend("F_Exporter", "lib007");
  EXPECT_FALSE(Exporte("/tmp/a.dxf", 0));
  TraceDecale = {{Code2(" A"), {}}, {Code2(" B"), {}}};
  Attend("F_Exporter", "lib007");
  EXPECT_FALSE(Exporte("/tmp/a.dxf", 1));
  Attend("F_Exporter", "lib003", Reponse::Ok);
  Attend("F_Exporter", "lib007");
  EXPECT_FALSE(Exporte("/tmp/a.dat", 1));
  EXPECT_TRUE(ecrits.empty());
}

// Names that the program makes are no names that the user has seen.
TEST_F(ExporteTest, AsksOnceBeforeItReplacesNumberedFiles) {
  DeuxChemins();
  RecalculDecalages();
  EcritFichierEssai("a001.dat", "1");
  EcritFichierEssai("a002.dat", "2");
  Attend("F_Exporter", "lib003", Reponse::Ok);
  Attend("F_Exporter", "lib008", Reponse::Annuler);
  EXPECT_FALSE(Exporte(Dossier() + "/a.dat", 1));
  EXPECT_THAT(Boites().back().texte, testing::EndsWith("\r\na001.dat (2)"));
  EXPECT_TRUE(ecrits.empty());
  Attend("F_Exporter", "lib003", Reponse::Ok);
  Attend("F_Exporter", "lib008", Reponse::Ok);
  Attend("F_Exporter", "lib004");
  EXPECT_TRUE(Exporte(Dossier() + "/a.dat", 1));
  EXPECT_EQ(ecrits.size(), 2U);
}
