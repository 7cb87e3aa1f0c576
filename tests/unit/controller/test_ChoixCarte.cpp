#include <sys/stat.h>

#include <filesystem>

#include "controller/ChoixCarte.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/Fichiers.h"
#include "core/RunCourant.h"
#include "core/Textes.h"
#include "tests/support/Support.h"
#include "tests/unit/controller/LiaisonScenario.h"
#include "tests/unit/controller/TableEssai.h"

namespace {

using namespace ovelin;
using essai::LiaisonScenario;
using essai::Scenario;
using zenikcom::IdentiteUsb;
using zenikcom::Ouverture;
using zenikcom::Refus;

MoyensCarte Moyens() {
  MoyensCarte moyens;
  moyens.fichier = essai::Dossier() + "/carte";
  moyens.dossierVerrous = essai::Dossier();
  moyens.rapide = true;
  return moyens;
}

// A USB board that answers as `s` says.
MoyensCarte AvecUsb(Scenario& s) {
  MoyensCarte moyens = Moyens();
  moyens.usb = [&s](IdentiteUsb identite, const std::string&) {
    EXPECT_EQ(identite, (IdentiteUsb{0x1A2B, 0x3C4D}));
    return Ouverture{std::make_unique<LiaisonScenario>(s), Refus::Aucun, ""};
  };
  return moyens;
}

// The one reason why there is no board, as key of its text.
void AttendRefus(const CarteChoisie& c, CleTexte texte, const std::string& cle, const std::string& valeur,
                 const std::string& raison) {
  ASSERT_EQ(c.refus.size(), 1U);
  EXPECT_EQ(c.refus[0].texte, texte) << c.refus[0].texte.Cle();
  EXPECT_EQ(c.refus[0].cle, cle);
  EXPECT_EQ(c.refus[0].valeur, valeur);
  EXPECT_NE(c.refus[0].raison.find(raison), std::string::npos) << c.refus[0].raison;
}

void AttendSansCarte(const CarteChoisie& c) {
  EXPECT_EQ(c.genre, GenreCarte::Aucune);
  ASSERT_NE(c.liaison, nullptr);
  EXPECT_NE(c.liaison->EstConnectee(), 1);
}

TEST(ChoisitCarte, AsDeliveredIsTheVirtualBoard) {
  const CarteChoisie c = ChoisitCarte({}, Moyens());
  EXPECT_EQ(c.genre, GenreCarte::Virtuelle);
  EXPECT_NE(c.virtuelle, nullptr);
  EXPECT_EQ(c.liaison->EstConnectee(), 1);
  EXPECT_TRUE(c.refus.empty());
}

TEST(ChoisitCarte, AucuneIsNoBoardAndNoFault) {
  const CarteChoisie c = ChoisitCarte({"aucune", ""}, Moyens());
  AttendSansCarte(c);
  EXPECT_TRUE(c.refus.empty());
}

TEST(ChoisitCarte, LetterCaseAndBlanksDoNotCount) {
  EXPECT_EQ(ChoisitCarte({" Virtuelle ", ""}, Moyens()).genre, GenreCarte::Virtuelle);
}

TEST(ChoisitCarte, AnUnknownBoardIsToldAndThereIsNone) {
  for (const char* valeur : {"", "virtuel", "zenik.so", "./zenik.so", "COM1"}) {
    const CarteChoisie c = ChoisitCarte({valeur, ""}, Moyens());
    AttendSansCarte(c);
    AttendRefus(c, Textes::CarteInconnue, "CarteZENIK", valeur, "");
  }
}

TEST(ChoisitCarte, AutoTakesTheUsbBoardThatIsThere) {
  Scenario s;
  const CarteChoisie c = ChoisitCarte({"auto", "1A2B:3C4D"}, AvecUsb(s));
  EXPECT_EQ(c.genre, GenreCarte::Usb);
  EXPECT_EQ(c.virtuelle, nullptr);
  EXPECT_TRUE(c.refus.empty());
}

TEST(ChoisitCarte, AutoTakesTheVirtualBoardWhereNothingIsPluggedIn) {
  Scenario s;
  s.connectee = zenikcom::Absente;
  EXPECT_EQ(ChoisitCarte({"auto", "1A2B:3C4D"}, AvecUsb(s)).genre, GenreCarte::Virtuelle);
}

TEST(ChoisitCarte, AutoTakesNoOtherBoardForOneThatMayNotBeOpened) {
  Scenario s;
  s.connectee = zenikcom::SansDroit;
  const CarteChoisie c = ChoisitCarte({"auto", "1a2b:3c4d"}, AvecUsb(s));
  EXPECT_EQ(c.genre, GenreCarte::Usb);
  AttendRefus(c, Textes::CarteSansDroit, "CarteZENIK_USB", "1a2b:3c4d", "70-zenik.rules");
}

TEST(ChoisitCarte, UsbWaitsForABoardThatIsNotThereYet) {
  Scenario s;
  s.connectee = zenikcom::Absente;
  const CarteChoisie c = ChoisitCarte({"usb", "1A2B:3C4D"}, AvecUsb(s));
  EXPECT_EQ(c.genre, GenreCarte::Usb);
  EXPECT_TRUE(c.refus.empty());
  EXPECT_NE(c.liaison->EstConnectee(), 1);
  s.connectee = 1;
  EXPECT_EQ(c.liaison->EstConnectee(), 1) << "plugged in later";
}

TEST(ChoisitCarte, UsbWithoutAnIdentityIsTold) {
  for (const char* valeur : {"", "1A2B", "1A2B-3C4D", "0000:0000", "1A2B:3C4G"}) {
    const CarteChoisie c = ChoisitCarte({"usb", valeur}, Moyens());
    AttendSansCarte(c);
    AttendRefus(c, Textes::CarteIdentite, "CarteZENIK_USB", valeur, "");
  }
}

TEST(ChoisitCarte, AutoWithAWrongIdentityHasNoBoard) {
  const CarteChoisie c = ChoisitCarte({"auto", "moulin"}, Moyens());
  AttendSansCarte(c);
  AttendRefus(c, Textes::CarteIdentite, "CarteZENIK_USB", "moulin", "");
}

TEST(ChoisitCarte, AUsbBoardThatAnotherProgramHoldsIsTold) {
  MoyensCarte moyens = Moyens();
  moyens.usb = [](IdentiteUsb, const std::string& verrou) {
    EXPECT_NE(verrou, "");
    return Ouverture{nullptr, Refus::Occupee, verrou};
  };
  for (const char* carte : {"auto", "usb"}) {
    const CarteChoisie c = ChoisitCarte({carte, "1A2B:3C4D"}, moyens);
    AttendSansCarte(c);
    AttendRefus(c, Textes::CarteOccupee, "CarteZENIK_USB", "1A2B:3C4D", "usb-1A2B-3C4D");
  }
}

TEST(ChoisitCarte, ADeviceThatAnswersAnotherLetterIsNoBoard) {
  Scenario s;
  s.reponse = [](zenikcom::TamponOctets& t) { t[1] = 'x'; };
  const CarteChoisie c = ChoisitCarte({"usb", "1A2B:3C4D"}, AvecUsb(s));
  AttendSansCarte(c);
  AttendRefus(c, Textes::CarteAutreLettre, "CarteZENIK_USB", "1A2B:3C4D", "");
}

TEST(ChoisitCarte, ALibraryIsTakenByItsPath) {
  const CarteChoisie c = ChoisitCarte({ZENIK_ESSAI, ""}, Moyens());
  EXPECT_EQ(c.genre, GenreCarte::Bibliotheque);
  EXPECT_EQ(c.liaison->EstConnectee(), 1);
  EXPECT_TRUE(c.refus.empty());
}

TEST(ChoisitCarte, ALibraryThatIsNotThereIsToldWithTheSystemsReason) {
  const CarteChoisie c = ChoisitCarte({"/nulle/part/zenik.so", ""}, Moyens());
  AttendSansCarte(c);
  AttendRefus(c, Textes::CarteBibliotheque, "CarteZENIK", "/nulle/part/zenik.so", "No such file");
}

TEST(ChoisitCarte, AFileThatIsNoLibraryIsTold) {
  const std::string chemin = essai::EcritFichierEssai("zenik.so", "no library");
  const CarteChoisie c = ChoisitCarte({chemin, ""}, Moyens());
  AttendSansCarte(c);
  AttendRefus(c, Textes::CarteBibliotheque, "CarteZENIK", chemin, "zenik.so");
}

TEST(ChoisitCarte, ALibraryWithoutOneOfTheThreeIsToldWithItsName) {
  const std::pair<const char*, const char*> manques[] = {{ZENIK_SANS_CONNECTED, "ZENIK_IsConnected"},
                                                         {ZENIK_SANS_SEND, "ZENIK_Send"},
                                                         {ZENIK_SANS_CLOSE, "ZENIK_Close"}};
  for (const auto& [chemin, nom] : manques) {
    const CarteChoisie c = ChoisitCarte({chemin, ""}, Moyens());
    AttendSansCarte(c);
    AttendRefus(c, Textes::CarteSymbole, "CarteZENIK", chemin, nom);
  }
}

TEST(ChoisitCarte, ALibraryThatAnswersAnotherLetterIsNoBoard) {
  const CarteChoisie c = ChoisitCarte({ZENIK_AUTRE_LETTRE, ""}, Moyens());
  AttendSansCarte(c);
  AttendRefus(c, Textes::CarteAutreLettre, "CarteZENIK", ZENIK_AUTRE_LETTRE, "");
}

TEST(ChoisitCarte, TwoProgramsDoNotShareALibraryByAnyOfItsNames) {
  const std::string lien = essai::Dossier() + "/lien.so";
  std::filesystem::create_symlink(ZENIK_ESSAI, lien);
  const CarteChoisie premiere = ChoisitCarte({ZENIK_ESSAI, ""}, Moyens());
  AttendRefus(ChoisitCarte({lien, ""}, Moyens()), Textes::CarteOccupee, "CarteZENIK", lien, ".verrou");
}

TEST(ChoisitCarte, TwoProgramsDoNotShareAVirtualBoard) {
  const CarteChoisie premiere = ChoisitCarte({}, Moyens());
  const CarteChoisie seconde = ChoisitCarte({"virtuelle", ""}, Moyens());
  AttendSansCarte(seconde);
  AttendRefus(seconde, Textes::CarteOccupee, "CarteZENIK", "virtuelle", "/carte");
}

TEST(ChoisitCarte, ADamagedFileOfTheVirtualBoardIsToldAndTheBoardStands) {
  for (const char* octets : {"", "ZENIKV1\n", "something else"}) {
    essai::EcritFichierEssai("carte", octets);
    const CarteChoisie c = ChoisitCarte({"virtuelle", ""}, Moyens());
    EXPECT_EQ(c.genre, GenreCarte::Virtuelle);
    AttendRefus(c, Textes::CarteFichierEndommage, "CarteZENIK", "virtuelle", "/carte.endommage");
  }
}

TEST(ChoisitCarte, AFileThatCannotBeReadIsToldAndTheBoardStands) {
  std::filesystem::create_directory(essai::Dossier() + "/carte");
  const CarteChoisie c = ChoisitCarte({"virtuelle", ""}, Moyens());
  EXPECT_EQ(c.genre, GenreCarte::Virtuelle);
  AttendRefus(c, Textes::CarteFichierRefuse, "CarteZENIK", "virtuelle", "/carte: ");
}

TEST(ChoisitCarte, EveryExchangeGoesThroughTheWrapping) {
  MoyensCarte moyens = Moyens();
  Scenario s;
  moyens.enveloppe = [&s](std::unique_ptr<zenikcom::Liaison> dedans) {
    EXPECT_EQ(dedans->EstConnectee(), 1);
    return std::make_unique<LiaisonScenario>(s);
  };
  const CarteChoisie c = ChoisitCarte({}, moyens);
  zenikcom::TamponOctets t{};
  std::int32_t mode = 0;
  c.liaison->Envoie(t, mode);
  EXPECT_EQ(s.envois.size(), 1U);
}

TEST(LitReglageCarte, ReadsTheSettingsFileAlone) {
  essai::EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nCarteZENIK=usb\r\nCarteZENIK_USB=1A2B:3C4D\r\n");
  const ReglageCarte r = LitReglageCarte();
  EXPECT_EQ(r.carte, "usb");
  EXPECT_EQ(r.usb, "1A2B:3C4D");
}

TEST(LitReglageCarte, AsDeliveredIsAutoWithoutAnIdentity) {
  const ReglageCarte r = LitReglageCarte();
  EXPECT_EQ(r.carte, "auto");
  EXPECT_EQ(r.usb, "");
}

TEST(DitRefus, NamesKeyValueAndReason) {
  essai::Attend("erreurs", "Carte_symbole");
  DitRefus({{Textes::CarteSymbole, "CarteZENIK", "/x.so", "ZENIK_Send"}});
  EXPECT_TRUE(essai::Boites()[0].texte.ends_with(" CarteZENIK=/x.so\nZENIK_Send")) << essai::Boites()[0].texte;
}

TEST(InstalleCarte, GivesTheClassABoardAndTheParametersOfTheTable) {
  essai::PoseTable("Essai", "Combo_SAV_11=5\r\n");
  EXPECT_TRUE(InstalleCarte(Moyens()).empty());
  EXPECT_TRUE(CdeZENIK->IsAvailable());
  EXPECT_EQ(LaCarte.genre, GenreCarte::Virtuelle);
  EXPECT_EQ(NomCarte(), Textes::CarteVirtuelle);
  EXPECT_EQ(CdeZENIK->Parametres().Multiplicateur, 6);
}

TEST(InstalleCarte, WhatHasBeenToldIsNotToldAgain) {
  essai::PoseTable("Essai", "Sld_SAV_0=99\r\n");
  essai::Attend("erreurs", "Table");
  CdeZENIK->ChargeParametres();
  InstalleCarte(Moyens());
}

TEST(FermeCarte, LetsTheNextOneHaveIt) {
  essai::PoseTable("Essai");
  EXPECT_TRUE(InstalleCarte(Moyens()).empty());
  FermeCarte();
  EXPECT_FALSE(CdeZENIK->IsAvailable());
  EXPECT_EQ(NomCarte(), Textes::CarteAbsente);
  EXPECT_TRUE(InstalleCarte(Moyens()).empty());
}

// --- another board by command -----------------------------------------------------------------------------------

TEST(ChangeCarte, WritesTheSettingOpensTheBoardAndChecksItsTable) {
  essai::PoseTable("Essai", "TB_SAV_30=5\r\nTB_SAV_31=5\r\n");  // check and writer agree
  InstalleCarte(Moyens());
  EXPECT_TRUE(ChangeCarte({"aucune", ""}, Moyens()));
  EXPECT_FALSE(CdeZENIK->IsAvailable());
  EXPECT_EQ(LireCleIni("CarteZENIK", ""), "aucune");
  EXPECT_TRUE(ChangeCarte({"virtuelle", ""}, Moyens()));
  EXPECT_EQ(LireCleIni("CarteZENIK", ""), "virtuelle");
  EXPECT_EQ(NomCarte(), Textes::CarteVirtuelle);
  EXPECT_EQ(CdeZENIK->TableRecherche("Essai"), 0);
  EXPECT_TRUE(ChangeCarte({"auto", ""}, Moyens())) << "the same board: its lock was let go first";
  EXPECT_TRUE(CdeZENIK->IsAvailable());
}

TEST(ChangeCarte, IsRefusedWhileAnOperationHoldsTheBoard) {
  essai::PoseTable("Essai");
  InstalleCarte(Moyens());
  const ClsCdeZENIK* avant = CdeZENIK.get();
  for (bool* operation : {&OperationCarte, &RunActif}) {
    *operation = true;
    essai::Attend("erreurs", "Carte_bouge");
    EXPECT_FALSE(ChangeCarte({"aucune", ""}, Moyens()));
    *operation = false;
    EXPECT_EQ(CdeZENIK.get(), avant);
    EXPECT_EQ(LireCleIni("CarteZENIK", "-"), "-");
  }
}

TEST(ChangeCarte, IsRefusedWhileTheMachineMoves) {
  essai::PoseTable("Essai");
  InstalleCarte(Moyens());
  const ClsCdeZENIK* avant = CdeZENIK.get();
  float v = 1, t = 0;
  ASSERT_TRUE(CdeZENIK->EnvoiUSB());
  ASSERT_TRUE(CdeZENIK->CommandeDATA(100'000, 0, 0, v, t, false));
  ASSERT_TRUE(CdeZENIK->GoBuffer());
  essai::Attend("erreurs", "Carte_bouge");
  EXPECT_FALSE(ChangeCarte({"aucune", ""}, Moyens()));
  EXPECT_EQ(CdeZENIK.get(), avant);
  CdeZENIK->StopResume(0, 0);
  EXPECT_TRUE(ChangeCarte({"aucune", ""}, Moyens()));
}

// The counters of the new board are at zero wherever the machine stands: a way back by them leads elsewhere.
TEST(ChangeCarte, AJobThatWasStoppedOnTheOldBoardCanNotBeResumed) {
  essai::PoseTable("Essai");
  InstalleCarte(Moyens());
  TableReprise.resize(3);
  AttendCarte = true;
  EXPECT_TRUE(ChangeCarte({"virtuelle", ""}, Moyens()));
  EXPECT_TRUE(PlacePerdue);
  EXPECT_FALSE(AttendCarte);
}

TEST(ChangeCarte, WithoutAJobThatWasStoppedNoPlaceIsLost) {
  essai::PoseTable("Essai");
  InstalleCarte(Moyens());
  const int avant = LaCarte.rang;
  EXPECT_TRUE(ChangeCarte({"virtuelle", ""}, Moyens()));
  EXPECT_FALSE(PlacePerdue);
  EXPECT_GT(LaCarte.rang, avant);
}

TEST(ChangeCarte, WhatCannotBeHadIsToldAndThereIsNone) {
  essai::PoseTable("Essai");
  InstalleCarte(Moyens());
  essai::Attend("erreurs", "Carte_inconnue");
  EXPECT_TRUE(ChangeCarte({"COM1", ""}, Moyens()));
  EXPECT_FALSE(CdeZENIK->IsAvailable());
}

TEST(ChangeCarte, WhatTheUserHasAnsweredHoldsForTheNextBoardToo) {
  essai::PoseTable("Essai", "TB_SAV_30=30\r\n");
  InstalleCarte(Moyens());
  EXPECT_TRUE(CdeZENIK->TableVerif());
  essai::Attend("erreurs", "2", Reponse::Non);
  EXPECT_TRUE(CdeZENIK->TableVerif());
  EXPECT_TRUE(ChangeCarte({"virtuelle", ""}, Moyens()));
  EXPECT_EQ(essai::Boites().size(), 1U);
}

TEST(DemandeCarte, TakesAChoiceOrTheIdentityOfAUsbBoard) {
  essai::PoseTable("Essai");
  Scenario s;
  s.connectee = zenikcom::Absente;
  essai::AttendSaisie("Carte_choix", " 1A2B:3C4D ");
  EXPECT_TRUE(DemandeCarte(AvecUsb(s)));
  EXPECT_EQ(LitReglageCarte(), (ReglageCarte{"usb", "1A2B:3C4D"}));
  EXPECT_EQ(LaCarte.genre, GenreCarte::Usb);
  essai::AttendSaisie("Carte_choix", "aucune");
  EXPECT_TRUE(DemandeCarte(AvecUsb(s)));
  EXPECT_EQ(LitReglageCarte(), (ReglageCarte{"aucune", "1A2B:3C4D"}));
}

TEST(DemandeCarte, CancelledOrTheSameChangesNothing) {
  essai::PoseTable("Essai");
  InstalleCarte(Moyens());
  const ClsCdeZENIK* avant = CdeZENIK.get();
  for (const char* dit : {"", "auto"}) {
    essai::AttendSaisie("Carte_choix", dit);
    EXPECT_FALSE(DemandeCarte(Moyens()));
    EXPECT_EQ(CdeZENIK.get(), avant);
  }
}

TEST(InstalleCarte, TheTableOfTheBoardLastsInItsFile) {
  essai::PoseTable("Essai");
  InstalleCarte(Moyens());
  EXPECT_TRUE(CdeZENIK->TableVerif());
  EXPECT_FALSE(RefusFichierCarte());
  CdeZENIK.reset();
  LaCarte = {};
  InstalleCarte(Moyens());
  EXPECT_EQ(CdeZENIK->TableRecherche("Essai"), 0);
}

TEST(RefusFichierCarte, AFileThatCannotBeWrittenIsToldOnce) {
  essai::PoseTable("Essai");
  InstalleCarte(Moyens());
  EXPECT_TRUE(CdeZENIK->TableVerif());
  EXPECT_FALSE(RefusFichierCarte());
  const std::string chemin = essai::Dossier() + "/carte";
  ASSERT_EQ(chmod(chemin.c_str(), 0400), 0);
  CdeZENIK->TableDefautEcrire(3);
  const auto refus = RefusFichierCarte();
  ASSERT_TRUE(refus);
  EXPECT_EQ(refus->texte, Textes::CarteFichierRefuse);
  EXPECT_EQ(refus->cle, "CarteZENIK");
  EXPECT_EQ(refus->valeur, "auto");
  EXPECT_EQ(refus->raison, chemin + ": Permission denied");
  EXPECT_FALSE(RefusFichierCarte());
}

TEST(NomCarte, OfAUsbBoardSaysWhetherItIsThere) {
  Scenario s;
  InstalleCarte(Moyens());
  LaCarte = {GenreCarte::Usb, nullptr, ""};
  CdeZENIK = std::make_unique<ClsCdeZENIK>(std::make_unique<LiaisonScenario>(s));
  EXPECT_EQ(NomCarte(), Textes::CarteUsb);
  s.connectee = 0;
  EXPECT_EQ(NomCarte(), Textes::CarteAbsente);
  CdeZENIK.reset();
}

}  // namespace
