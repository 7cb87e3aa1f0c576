// The recent files: filling, adding, removing, saving, and opening an entry.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "tests/support/Support.h"
#include "workspace/Module_Recents.h"

namespace {

using namespace ovelin;
using Chemins = std::vector<std::string>;

void EcritListe(const Chemins& chemins) {
  for (std::size_t i = 0; i < chemins.size(); ++i) EcrireCle("MRUFiles" + std::to_string(i + 1), chemins[i]);
}

TEST(RemplitRecents, ReadsWhileTheKeyExists) {
  Regl.gMaxMRU = 10;
  EcritListe({"/a", "/b"});
  EcrireCle("MRUFiles4", "/d");  // behind a gap
  RemplitRecents();
  EXPECT_EQ(Recents.chemins, (Chemins{"/a", "/b"}));
}

TEST(RemplitRecents, NotMoreThanTheLengthOfTheList) {
  EcritListe({"/a", "/b", "/c", "/d", "/e"});
  RemplitRecents();
  EXPECT_EQ(Recents.chemins, (Chemins{"/a", "/b", "/c", "/d"}));
  Regl.gMaxMRU = 2;
  RemplitRecents();
  EXPECT_EQ(Recents.chemins, (Chemins{"/a", "/b"}));
  Regl.gMaxMRU = 0;
  RemplitRecents();
  EXPECT_TRUE(Recents.chemins.empty());
  Regl.gMaxMRU = -3;
  RemplitRecents();
  EXPECT_TRUE(Recents.chemins.empty());
}

TEST(RemplitRecents, AProjectDoesNotGiveIts) {
  EcritListe({"/a"});
  FichierProjet = FichierCourant = essai::EcritFichierEssai("p.OVL", "$$MRUFiles1=/project\r\n");
  RemplitRecents();
  EXPECT_EQ(Recents.chemins, (Chemins{"/a"}));
}

TEST(AjouteRecent, TheNewestIsFirstAndTheLastIsDropped) {
  for (const char* c : {"/1", "/2", "/3", "/4", "/5"}) AjouteRecent(c);
  EXPECT_EQ(Recents.chemins, (Chemins{"/5", "/4", "/3", "/2"}));
}

TEST(AjouteRecent, APathOfTheListMovesToTheFront) {
  for (const char* c : {"/1", "/2", "/3"}) AjouteRecent(c);
  AjouteRecent("/1");
  EXPECT_EQ(Recents.chemins, (Chemins{"/1", "/3", "/2"}));
  AjouteRecent("/1");  // the first already
  EXPECT_EQ(Recents.chemins, (Chemins{"/1", "/3", "/2"}));
}

TEST(AjouteRecent, AShorterListTakesEffectOnTheNextAddition) {
  for (const char* c : {"/1", "/2", "/3", "/4"}) AjouteRecent(c);
  Regl.gMaxMRU = 2;
  EXPECT_EQ(Recents.chemins.size(), 4U);
  AjouteRecent("/5");
  EXPECT_EQ(Recents.chemins, (Chemins{"/5", "/4"}));
  Regl.gMaxMRU = 0;
  AjouteRecent("/6");
  EXPECT_TRUE(Recents.chemins.empty());
}

TEST(AjouteRecent, NoPathIsNoEntry) {
  AjouteRecent("");
  EXPECT_TRUE(Recents.chemins.empty());
}

TEST(OteRecent, TheGapIsClosedAndTheNumbersFollow) {
  Recents.chemins = {"/1", "/2", "/3"};
  EXPECT_EQ(TextesRecents(), (Chemins{"1 /1", "2 /2", "3 /3"}));
  OteRecent("/2");
  EXPECT_EQ(TextesRecents(), (Chemins{"1 /1", "2 /3"}));
  OteRecent("/absent");
  EXPECT_EQ(Recents.chemins.size(), 2U);
}

TEST(SauveRecents, WritesTheListAndDeletesTheKeysBehindIt) {
  EcritListe({"/a", "/b", "/c"});
  EcrireCle("MRUFiles9", "/far");
  EcrireCle("MRUFilesX", "kept");
  Recents.chemins = {"/new"};
  SauveRecents();
  EXPECT_EQ(LireCleIni("MRUFiles1", ""), "/new");
  EXPECT_EQ(LireCleIni("MRUFiles2", "-"), "-");
  EXPECT_EQ(LireCleIni("MRUFiles3", "-"), "-");
  EXPECT_EQ(LireCleIni("MRUFiles9", "-"), "-");
  EXPECT_EQ(LireCleIni("MRUFilesX", "-"), "kept");
}

TEST(SauveRecents, TheProjectGetsNothingAndStaysTheProject) {
  const std::string contenu = "$$RayonFraise=1\r\n";
  FichierProjet = FichierCourant = essai::EcritFichierEssai("p.OVL", contenu);
  Recents.chemins = {"/a"};
  SauveRecents();
  EXPECT_EQ(essai::LitFichierEssai(FichierCourant), contenu);
  EXPECT_EQ(FichierProjet, FichierCourant);
  EXPECT_EQ(LireCleIni("MRUFiles1", ""), "/a");
}

TEST(SauveRecents, WhatWouldNotComeBackIsLeftOut) {
  Regl.gMaxMRU = 10;
  const std::string longue = "/" + std::string(255, 'x');
  Recents.chemins = {longue, "/a&&b", "/a\nb", "/blank ", "/été.dxf", "/tab\tb", "/" + std::string(254, 'y')};
  SauveRecents();
  RemplitRecents();
  EXPECT_EQ(Recents.chemins, (Chemins{"/été.dxf", "/tab\tb", "/" + std::string(254, 'y')}));
}

TEST(MnuMru, AFileThatIsGoneLeavesTheListAndIsTold) {
  Recents.chemins = {"/nowhere/a.dxf", "/nowhere/b.dxf"};
  FichierCourant = "avant";
  essai::Attend("F_Representation", "lib340");
  EXPECT_EQ(mnu_MRU(1), Ouverture::Abandon);
  EXPECT_EQ(Recents.chemins, (Chemins{"/nowhere/b.dxf"}));
  EXPECT_EQ(FichierCourant, "avant");
}

TEST(MnuMru, AFolderIsNoFile) {
  Recents.chemins = {essai::Dossier()};
  essai::Attend("F_Representation", "lib340");
  EXPECT_EQ(mnu_MRU(1), Ouverture::Abandon);
}

TEST(MnuMru, ThePlaceOfTheSeparatorAndPlacesBeyondDoNothing) {
  Recents.chemins = {"/a"};
  EXPECT_EQ(mnu_MRU(0), Ouverture::Abandon);
  EXPECT_EQ(mnu_MRU(2), Ouverture::Abandon);
  EXPECT_EQ(Recents.chemins.size(), 1U);
}

TEST(MnuMru, AnEntryOpensWithoutTheDialogAndComesFirst) {
  essai::AjouteCarre(" A", 0, 0, 10);
  const std::string projet = essai::Dossier() + "/p.OVL";
  ASSERT_EQ(EnregistreProjet(projet), "");
  Doc = Document{};
  Svc.FichierRecent = AjouteRecent;
  Recents.chemins = {"/other", projet};
  OptionsOuverture options;
  options.dehors = false;  // no dialog in spite of it
  EXPECT_EQ(mnu_MRU(2, options), Ouverture::Reussie);
  EXPECT_EQ(FichierCourant, projet);
  EXPECT_EQ(Recents.chemins, (Chemins{projet, "/other"}));
}

TEST(RemplitRecents, FindsTheDrawingsThatTheSettingsOfAFirstStartName) {
  DossiersProduit = {essai::DossierExemples()};
  for (const char* nom : {"Cercle", "Carre", "Octogone"}) {
    const int n = static_cast<int>(Recents.chemins.size()) + 1;
    EcrireCle("MRUFiles" + std::to_string(n), DossierProgramme + "\\" + nom + ".dxf");
    RemplitRecents();
    ASSERT_EQ(Recents.chemins.size(), static_cast<std::size_t>(n));
    EXPECT_EQ(Recents.chemins.back(), essai::DossierExemples() + "/" + nom + ".dxf");
    EXPECT_TRUE(RecentPresent(static_cast<std::size_t>(n)));
  }
}

TEST(RemplitRecents, ReadsABackslashAsTheSeparatorButWhereSuchAFileIsThere) {
  const std::string droit = essai::EcritFichierEssai("a.dxf", "");
  const std::string tordu = essai::EcritFichierEssai("b\\c.dxf", "");
  EcrireCle("MRUFiles1", essai::Dossier() + "\\a.dxf");
  EcrireCle("MRUFiles2", tordu);
  RemplitRecents();
  EXPECT_EQ(Recents.chemins, (std::vector<std::string>{droit, tordu}));
}

TEST(RecentPresent, IsFalseForAnEntryThatIsGone) {
  EcrireCle("MRUFiles1", essai::Dossier() + "/parti.dxf");
  RemplitRecents();
  EXPECT_FALSE(RecentPresent(1));
  EXPECT_FALSE(RecentPresent(0));
  EXPECT_FALSE(RecentPresent(2));
}

}  // namespace
