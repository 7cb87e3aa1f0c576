// The way back of keys that were written: each file as it was.
#include <string>
#include <vector>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;
using essai::EcritFichierEssai;
using essai::LitFichierEssai;

const std::vector<std::string> Deux{"RayonFraise", "PCPoche"};

std::string Ini() { return LitFichierEssai(CheminIni()); }

TEST(RetourCles, AKeyThatStoodInNoFileStandsInNoneAgain) {
  const std::string avant = "[OVELIN]\r\nPCPoche=40\r\n";
  EcritFichierEssai("OVELIN.ini", avant);
  RetourCles retour(Deux);
  EcrireCle("RayonFraise", "2");
  EcrireCle("RayonFraise", "3");
  ASSERT_EQ(LireCleIni("RayonFraise", ""), "3");
  retour.Remet();
  EXPECT_EQ(Ini(), avant);
}

TEST(RetourCles, AValueComesBackAsItWasWritten) {
  const std::string avant = "[OVELIN]\r\nRayonFraise=1.500\r\nPCPoche= 40\r\n";
  EcritFichierEssai("OVELIN.ini", avant);
  RetourCles retour(Deux);
  EcrireCle("RayonFraise", "2");
  retour.Remet();
  EXPECT_EQ(Ini(), avant);
}

TEST(RetourCles, AFileWithoutAHeaderHasNoneAgain) {
  for (const std::string avant : {"[table_A]\r\nTB_SAV_15=3\r\n", "; a note\nRayonFraise=1\n", "[table_A]\nx=1"}) {
    EcritFichierEssai("OVELIN.ini", avant);
    RetourCles retour(Deux);
    EcrireCle("RayonFraise", "2");
    EcrireCle("PCPoche", "30");
    ASSERT_EQ(LireCleIni("PCPoche", ""), "30");
    retour.Remet();
    EXPECT_EQ(Ini(), avant);
  }
}

TEST(RetourCles, AHeaderThatCameWithTheKeyStaysForAnotherOne) {
  EcritFichierEssai("OVELIN.ini", "[A]\r\nx=1\r\n");
  RetourCles retour(Deux);
  EcrireCle("RayonFraise", "2");
  EcrireCle("ProfPasse", "-1");
  retour.Remet();
  EXPECT_EQ(Ini(), "[A]\r\nx=1\r\n[OVELIN]\r\nProfPasse=-1\r\n");
}

TEST(RetourCles, LineEndsAndTheBlanksOfALineComeBackToTheByte) {
  const std::string avant = "[OVELIN]\r\n  RayonFraise =\t1 \n; a note\r[A]\r\nx=1";
  EcritFichierEssai("OVELIN.ini", avant);
  RetourCles retour(Deux);
  EcrireCle("RayonFraise", "2");
  EcrireCle("PCPoche", "30");
  ASSERT_NE(Ini(), avant);
  retour.Remet();
  EXPECT_EQ(Ini(), avant);
}

TEST(RetourCles, AnotherKeyStaysWritten) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\n");
  RetourCles retour(Deux);
  EcrireCle("ProfPasse", "-1");
  EcrireCle("RayonFraise", "2");
  retour.Remet();
  EXPECT_EQ(Ini(), "[OVELIN]\r\nProfPasse=-1\r\n");
}

TEST(RetourCles, WhatWasWrittenBeforeItStays) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\n");
  EcrireCle("RayonFraise", "2");
  RetourCles retour(Deux);
  EcrireCle("RayonFraise", "3");
  retour.Remet();
  EXPECT_EQ(LireCleIni("RayonFraise", ""), "2");
}

TEST(RetourCles, ProjectAndSettingsHaveEachTheirOwnBack) {
  const std::string ini = "[OVELIN]\r\nRayonFraise=1\r\n";
  const std::string projet = "$$PCPoche=30\r\n0              0\r\n";
  EcritFichierEssai("OVELIN.ini", ini);
  FichierCourant = FichierProjet = EcritFichierEssai("p.OVL", projet);
  RetourCles retour(Deux);
  EcrireCle("RayonFraise", "2");
  EcrireCle("PCPoche", "20");
  ASSERT_NE(LitFichierEssai(FichierProjet).find("$$RayonFraise=2"), std::string::npos);
  retour.Remet();
  EXPECT_EQ(Ini(), ini);
  EXPECT_EQ(LitFichierEssai(FichierProjet), projet);
  EXPECT_EQ(LireCle("RayonFraise", ""), "1");
}

TEST(RetourCles, InOneBatchTheProjectIsReadAsItWillBe) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nRayonFraise=1\r\n");
  FichierCourant = FichierProjet = EcritFichierEssai("p.OVL", "0              0\r\n");
  const LotCles lot;
  RetourCles retour(Deux);
  EcrireCle("RayonFraise", "2");
  retour.Remet();
  EXPECT_EQ(LireCle("RayonFraise", ""), "1");
  EXPECT_EQ(OrigineDe("RayonFraise"), OrigineCle::Reglages);
}

TEST(RetourCles, AKeyWrittenPastTheProjectAndIntoItComesBackInBoth) {
  const std::string ini = "[OVELIN]\r\nRayonFraise=1\r\n";
  const std::string projet = "0              0\r\n";
  EcritFichierEssai("OVELIN.ini", ini);
  FichierCourant = FichierProjet = EcritFichierEssai("p.OVL", projet);
  RetourCles retour(Deux);
  {
    const SansProjet reglages;
    EcrireCle("RayonFraise", "2");
  }
  EcrireCle("RayonFraise", "3");
  retour.Remet();
  EXPECT_EQ(Ini(), ini);
  EXPECT_EQ(LitFichierEssai(FichierProjet), projet);
}

TEST(RetourCles, TwoThatStandHaveEachTheirOwnMoment) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\n");
  RetourCles dehors(Deux);
  EcrireCle("RayonFraise", "2");
  {
    RetourCles dedans(Deux);
    EcrireCle("RayonFraise", "3");
    dedans.Remet();
    EXPECT_EQ(LireCleIni("RayonFraise", ""), "2");
  }
  dehors.Remet();
  EXPECT_EQ(Ini(), "[OVELIN]\r\n");
}

}  // namespace
