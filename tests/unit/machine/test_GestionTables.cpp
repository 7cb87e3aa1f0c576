#include <filesystem>

#include "core/Cles.h"
#include "core/ReglagesCourants.h"
#include "machine/Module_Table.h"
#include "machine/TableCourante.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;
using essai::Attend;
using essai::AttendSaisie;
using essai::Boites;
using essai::Dossier;
using essai::EcritFichierEssai;
using essai::LitFichierEssai;

constexpr const char* Fenetre = "F_ParamMachine";

// Two tables; the first is current.
void PoseTables() {
  EcritFichierEssai("OVELIN.ini",
                    "[OVELIN]\r\nTableDefaut=Mill\r\n[table_Mill]\r\nTB_SAV_15=11\r\nTB_SAV_188888=90\r\n"
                    "[table_Lathe]\r\nTB_SAV_15=22\r\n");
  OublieCles();
  TableDefaut = "Mill";
}

std::string Cle(const std::string& section, const std::string& cle) {
  OublieCles();
  return LireCleSection(section, cle, "(missing)");
}

using Noms = std::vector<std::string>;

TEST(ListeTables, NamesTheSectionsWithThePrefix) {
  EcritFichierEssai("OVELIN.ini",
                    "[OVELIN]\r\n[table_A]\r\na=1\r\n[other]\r\n[TABLE_b c]\r\na=1\r\n[tables]\r\n[table_Z]\r\n");
  EXPECT_EQ(ListeTables(), (Noms{"A", "b c", "Z"}));
}

TEST(ListeTables, IsEmptyWithoutASettingsFile) { EXPECT_TRUE(ListeTables().empty()); }

TEST(RefusNomTable, EightCharactersAreAccepted) {
  EXPECT_EQ(essai::CleDe(RefusNomTable("12345678")), "");
  EXPECT_EQ(essai::CleDe(RefusNomTable("A")), "");
  EXPECT_EQ(essai::CleDe(RefusNomTable("My mill")), "");
}

TEST(RefusNomTable, NineAreRefused) {
  EXPECT_EQ(essai::CleDe(RefusNomTable("123456789")), "lib006");
  EXPECT_EQ(essai::CleDe(RefusNomTable("NewTable-")), "lib006");
}

TEST(RefusNomTable, CountsCharactersNotBytes) {
  EXPECT_EQ(essai::CleDe(RefusNomTable("\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9")),
            "");  // éééééééé
}

TEST(RefusNomTable, CharactersThatTheBoardHasNotGotAreRefused) {
  EXPECT_EQ(essai::CleDe(RefusNomTable("Фреза")), "NomTable");
  EXPECT_EQ(essai::CleDe(RefusNomTable("10 €")), "");
}

TEST(RefusNomTable, CharactersThatASectionCannotHoldAreRefused) {
  for (const char* nom : {"a]b", "[a", "a\nb", "a\tb", "a\x7F"})
    EXPECT_EQ(essai::CleDe(RefusNomTable(nom)), "lib006") << nom;
}

TEST(NomNouvelleTable, AsksWithTheCurrentNameAndAProposal) {
  TableDefaut = "Mill";
  std::string invite;
  std::string proposition;
  Svc.Saisit = [&](CleTexte cle, const std::string& texte, const std::string& propose) -> std::string {
    EXPECT_EQ(cle.Section(), Fenetre);
    EXPECT_EQ(cle.Cle(), "lib007");
    invite = texte;
    proposition = propose;
    return "Router";
  };
  EXPECT_EQ(NomNouvelleTable(), "Router");
  EXPECT_NE(invite.find("Mill"), std::string::npos);
  EXPECT_EQ(proposition, "NewTable-");
}

TEST(NomNouvelleTable, NineCharactersAreRefusedAndAskedAgain) {
  AttendSaisie("lib007", "123456789");
  Attend(Fenetre, "lib006");
  AttendSaisie("lib007", "12345678");
  EXPECT_EQ(NomNouvelleTable(), "12345678");
  ASSERT_EQ(Boites().size(), 1U);
  EXPECT_EQ(Boites()[0].icone, Icone::Exclamation);
  EXPECT_EQ(Boites()[0].boutons, Boutons::Ok);
}

TEST(NomNouvelleTable, ProposalItselfIsAskedAgainWithoutAWord) {
  AttendSaisie("lib007", "NewTable-");
  AttendSaisie("lib007", "New");
  EXPECT_EQ(NomNouvelleTable(), "New");
  EXPECT_TRUE(Boites().empty());
}

TEST(NomNouvelleTable, EmptyAnswerCancels) {
  AttendSaisie("lib007", "");
  EXPECT_EQ(NomNouvelleTable(), "");
}

TEST(NomNouvelleTable, BlanksAroundTheNameAreNoPartOfIt) {
  AttendSaisie("lib007", "  12345678 ");
  EXPECT_EQ(NomNouvelleTable(), "12345678");
}

TEST(Cmd_Gestion, CopyTakesTheControlsAsTheyStand) {
  PoseTables();
  auto champs = Chargt_Table("Mill");
  for (auto& [cle, texte] : champs) {
    if (cle == "TB_SAV_15") texte = "33";
  }
  AttendSaisie("lib007", "Copy");
  EXPECT_TRUE(Cmd_Gestion(GestionTable::Copier, champs));
  EXPECT_EQ(Cle("table_Mill", "TB_SAV_15"), "33") << "saved under the old name first";
  EXPECT_EQ(Cle("table_Copy", "TB_SAV_15"), "33");
  EXPECT_EQ(Cle("table_Copy", "TB_SAV_188888"), "90") << "a key that no field holds is copied too";
  EXPECT_EQ(ListeTables(), (Noms{"Mill", "Lathe", "Copy"}));
}

TEST(Cmd_Gestion, CopyBecomesTheCurrentTable) {
  PoseTables();
  AttendSaisie("lib007", "Copy");
  Cmd_Gestion(GestionTable::Copier, {{"TB_SAV_15", "44"}});
  EXPECT_EQ(TableDefaut, "Copy");
  EXPECT_EQ(Cle("OVELIN", "TableDefaut"), "Copy");
  EXPECT_EQ(VitesseMaxX, 44);
  EXPECT_EQ(Cle("table_Copy", "COMBO_TABLE"), "Copy");
  EXPECT_EQ(Cle("table_Mill", "COMBO_TABLE"), "Mill");
}

TEST(Cmd_Gestion, CopyLivesInTheSettingsFileAlone) {
  PoseTables();
  Cmd_Gestion(GestionTable::Copier, {}, "Copy");
  EXPECT_FALSE(std::filesystem::exists(Dossier() + "/Copy.ini"));
}

TEST(Cmd_Gestion, RenameMovesTheTable) {
  PoseTables();
  AttendSaisie("lib007", "Router");
  EXPECT_TRUE(Cmd_Gestion(GestionTable::Renommer, {{"TB_SAV_15", "55"}}));
  EXPECT_EQ(ListeTables(), (Noms{"Lathe", "Router"}));
  EXPECT_EQ(Cle("table_Router", "TB_SAV_15"), "55");
  EXPECT_EQ(Cle("table_Router", "TB_SAV_188888"), "90");
  EXPECT_EQ(Cle("table_Router", "COMBO_TABLE"), "Router");
  EXPECT_EQ(TableDefaut, "Router");
  EXPECT_EQ(Cle("OVELIN", "TableDefaut"), "Router");
  EXPECT_EQ(VitesseMaxX, 55);
}

TEST(Cmd_Gestion, EmptyNameCancelsSilently) {
  PoseTables();
  const std::string avant = LitFichierEssai(Dossier() + "/OVELIN.ini");
  for (const auto index : {GestionTable::Copier, GestionTable::Renommer}) {
    AttendSaisie("lib007", "");
    EXPECT_FALSE(Cmd_Gestion(index, {{"TB_SAV_15", "1"}}));
  }
  EXPECT_TRUE(Boites().empty());
  EXPECT_EQ(LitFichierEssai(Dossier() + "/OVELIN.ini"), avant);
}

TEST(Cmd_Gestion, OwnNameCancelsSilentlyInAnyCase) {
  // Sections don't tell case: moving a table onto itself would lose it.
  PoseTables();
  const std::string avant = LitFichierEssai(Dossier() + "/OVELIN.ini");
  for (const char* nom : {"Mill", "MILL", " mill "}) {
    EXPECT_FALSE(Cmd_Gestion(GestionTable::Renommer, {}, nom));
    EXPECT_FALSE(Cmd_Gestion(GestionTable::Copier, {}, nom));
  }
  EXPECT_TRUE(Boites().empty());
  EXPECT_EQ(LitFichierEssai(Dossier() + "/OVELIN.ini"), avant);
}

TEST(Cmd_Gestion, NameOfAnotherTableIsRefused) {
  PoseTables();
  const std::string avant = LitFichierEssai(Dossier() + "/OVELIN.ini");
  Attend(Fenetre, "TableExiste");
  EXPECT_FALSE(Cmd_Gestion(GestionTable::Copier, {}, "lathe"));
  Attend(Fenetre, "TableExiste");
  EXPECT_FALSE(Cmd_Gestion(GestionTable::Renommer, {}, "Lathe"));
  EXPECT_EQ(LitFichierEssai(Dossier() + "/OVELIN.ini"), avant);
  EXPECT_EQ(TableDefaut, "Mill");
}

TEST(Cmd_Gestion, GivenNameIsHeldToTheRule) {
  PoseTables();
  Attend(Fenetre, "lib006");
  EXPECT_FALSE(Cmd_Gestion(GestionTable::Copier, {}, "123456789"));
  EXPECT_EQ(ListeTables(), (Noms{"Mill", "Lathe"}));
}

TEST(Cmd_Gestion, DeletionAsksAndTakesTheFirstTableLeft) {
  PoseTables();
  Attend(Fenetre, "lib002", Reponse::Ok);
  EXPECT_TRUE(Cmd_Gestion(GestionTable::Supprimer, {{"TB_SAV_15", "66"}}));
  ASSERT_EQ(Boites().size(), 1U);
  EXPECT_EQ(Boites()[0].boutons, Boutons::OkAnnuler);
  EXPECT_EQ(Boites()[0].icone, Icone::Exclamation);
  EXPECT_EQ(Boites()[0].titre, "OVELIN");
  EXPECT_TRUE(Boites()[0].texte.ends_with(" Mill ?")) << Boites()[0].texte;
  EXPECT_EQ(ListeTables(), (Noms{"Lathe"}));
  EXPECT_EQ(TableDefaut, "Lathe");
  EXPECT_EQ(Cle("OVELIN", "TableDefaut"), "Lathe");
  EXPECT_EQ(VitesseMaxX, 22);
  EXPECT_EQ(Cle("table_Mill", "TB_SAV_15"), "(missing)") << "the controls don't bring it back";
}

TEST(Cmd_Gestion, DeletionCanBeCancelled) {
  PoseTables();
  Attend(Fenetre, "lib002", Reponse::Annuler);
  EXPECT_FALSE(Cmd_Gestion(GestionTable::Supprimer, {}));
  EXPECT_EQ(ListeTables(), (Noms{"Mill", "Lathe"}));
  EXPECT_EQ(TableDefaut, "Mill");
}

TEST(Cmd_Gestion, LastTableCanBeDeleted) {
  PoseTables();
  Attend(Fenetre, "lib002", Reponse::Ok);
  Cmd_Gestion(GestionTable::Supprimer, {});
  Attend(Fenetre, "lib002", Reponse::Ok);
  EXPECT_TRUE(Cmd_Gestion(GestionTable::Supprimer, {}));
  EXPECT_TRUE(ListeTables().empty());
  EXPECT_EQ(VitesseMaxX, 5) << "nothing is left but the defaults";
}

TEST(Cmd_Gestion, FileThatCannotBeWrittenChangesNothing) {
  PoseTables();
  const std::string avant = TableDefaut;
  std::filesystem::permissions(Dossier() + "/OVELIN.ini", std::filesystem::perms::owner_read);
  for (const auto index : {GestionTable::Copier, GestionTable::Renommer}) {
    Attend("F_Representation", "lib125");
    EXPECT_FALSE(Cmd_Gestion(index, {{"TB_SAV_15", "1"}}, "Copy"));
    EXPECT_EQ(TableDefaut, avant);
  }
  Attend(Fenetre, "lib002", Reponse::Ok);
  Attend("F_Representation", "lib125");
  EXPECT_FALSE(Cmd_Gestion(GestionTable::Supprimer, {}));
  EXPECT_EQ(TableDefaut, avant);
  EXPECT_EQ(ListeTables(), (Noms{"Mill", "Lathe"}));
  ASSERT_EQ(Boites().size(), 4U);
  for (const std::size_t i : {0U, 1U, 3U}) {
    EXPECT_EQ(Boites()[i].icone, Icone::Critique);
    EXPECT_EQ(Boites()[i].titre, "OVELIN");
    EXPECT_EQ(Boites()[i].fichier, Dossier() + "/OVELIN.ini");
    EXPECT_NE(Boites()[i].texte.find(Magasin.DerniereErreur), std::string::npos);
    EXPECT_FALSE(Magasin.DerniereErreur.empty());
  }
}

TEST(ChoisitTable, MakesItCurrentEverywhere) {
  PoseTables();
  ChoisitTable("Lathe");
  EXPECT_EQ(TableDefaut, "Lathe");
  EXPECT_EQ(VitesseMaxX, 22);
  EXPECT_EQ(Cle("OVELIN", "TableDefaut"), "Lathe");
}

TEST(ChangeTable, SavesTheOneThatWasLoadedFirst) {
  PoseTables();
  ChampsTable champs{{"TB_SAV_15", "31"}};
  EXPECT_TRUE(ChangeTable("Mill", "Lathe", champs));
  EXPECT_EQ(Cle("table_Mill", "TB_SAV_15"), "31");
  EXPECT_EQ(champs, Chargt_Table("Lathe"));
  EXPECT_EQ(TableDefaut, "Lathe");
  EXPECT_EQ(VitesseMaxX, 22);
}

TEST(ChangeTable, FirstOneIsLoadedWithoutASave) {
  PoseTables();
  ChampsTable champs;
  EXPECT_TRUE(ChangeTable("", "Lathe", champs));
  EXPECT_EQ(ListeTables(), (Noms{"Mill", "Lathe"}));
  EXPECT_EQ(champs, Chargt_Table("Lathe"));
}

TEST(ChangeTable, GivesUpWhenTheOldOneCannotBeSaved) {
  PoseTables();
  std::filesystem::permissions(Dossier() + "/OVELIN.ini", std::filesystem::perms::owner_read);
  ChampsTable champs{{"TB_SAV_15", "31"}};
  Attend("F_Representation", "lib125");
  EXPECT_FALSE(ChangeTable("Mill", "Lathe", champs));
  EXPECT_EQ(TableDefaut, "Mill");
  EXPECT_EQ(champs.size(), 1U);
}

}  // namespace
