#include <algorithm>
#include <filesystem>

#include "core/PlanCourant.h"
#include "machine/essais/Module_ParamMachine.h"
#include "tests/unit/machine/essais/BancEssai.h"

namespace essai {
namespace {

class ParamMachine : public BancEssai {
 protected:
  static void Change(ChampsTable& champs, const std::string& cle, const std::string& texte) {
    const auto it = std::find_if(champs.begin(), champs.end(), [&](const auto& c) { return c.first == cle; });
    ASSERT_NE(it, champs.end());
    it->second = texte;
  }
  static std::string Cle(const std::string& table, const std::string& cle) {
    OublieCles();
    return LireCleSection("table_" + table, cle, "");
  }
  // A long slow move on the board, under way.
  void Bouge() {
    Branche(false);
    float v = 1, t = 0;
    CdeZENIK->EnvoiUSB();
    CdeZENIK->CommandeDATAmm(50, 0, 0, v, t);
    CdeZENIK->CommandeDATAend();
    heure_ += 2;
    CdeZENIK->DemandeInformation();
    ASSERT_NE(CdeZENIK->EnCours, Faux);
  }
};

TEST_F(ParamMachine, AnotherTableSavesTheOneBefore) {
  ChampsTable champs = Chargt_Table("Essai");
  Change(champs, "TB_SAV_18", "777");
  EcrireCleSection("table_Autre", "TB_SAV_18", "333");
  EXPECT_TRUE(ChoisitTableFenetre("Essai", "Autre", champs));
  EXPECT_EQ(Cle("Essai", "TB_SAV_18"), "777");
  EXPECT_EQ(TableDefaut, "Autre");
  EXPECT_EQ(CourseX, 333);
  EXPECT_EQ(LireCleIni("TableDefaut", ""), "Autre");
}

TEST_F(ParamMachine, ATableThatTheBoardHasBecomesItsDefault) {
  CdeZENIK->TableEcrire("Autre", 2);
  EcrireCleSection("table_Autre", "TB_SAV_18", "333");
  ChampsTable champs = Chargt_Table("Essai");
  ASSERT_NE(CdeZENIK->TableDefautLire(), 2);
  ChoisitTableFenetre("Essai", "Autre", champs);
  EXPECT_EQ(CdeZENIK->TableDefautLire(), 2);
}

TEST_F(ParamMachine, ACopyIsInForceWithItsFields) {
  ChampsTable champs = Chargt_Table("Essai");
  Change(champs, "TB_SAV_18", "555");
  AttendSaisie("lib007", "Copie");
  EXPECT_TRUE(GereTableFenetre(GestionTable::Copier, champs));
  EXPECT_EQ(TableDefaut, "Copie");
  EXPECT_EQ(Cle("Copie", "TB_SAV_18"), "555");
}

TEST_F(ParamMachine, TheTableInForceIsNotDeletedWhileSomethingMoves) {
  Bouge();
  ChampsTable champs = Chargt_Table("Essai");
  Attend("F_ParamMachine", "lib001");
  EXPECT_FALSE(GereTableFenetre(GestionTable::Supprimer, champs));
  EXPECT_EQ(Cle("Essai", "TB_SAV_3"), "100");
  ArreteMouvement();
  StopDemande = Faux;
  Attend("F_ParamMachine", "lib002", Reponse::Ok);
  EXPECT_TRUE(GereTableFenetre(GestionTable::Supprimer, champs));
  EXPECT_EQ(Cle("Essai", "TB_SAV_3"), "");
}

TEST_F(ParamMachine, ClosingStopsWhatMoves) {
  Bouge();
  ArreteMouvement();
  EXPECT_EQ(CdeZENIK->EnCours, Faux);
  const auto lieu = carte_->Lieu();
  heure_ += 10;
  EXPECT_EQ(carte_->Lieu(), lieu) << "it stands";
  EXPECT_EQ(lieu, Compte());
  EXPECT_NE(StopDemande, Faux);
}

TEST_F(ParamMachine, ClosingWithTheLinkGoneEnds) {
  Bouge();
  carte_->Debranche(true);
  ArreteMouvement();
  EXPECT_LT(heure_, 10);
}

TEST_F(ParamMachine, UnpluggedWhileClosingWaitsEnds) {
  Bouge();
  carte_->Fautes({{carte_->Compteurs().echanges + 2, zenikcom::GenreFaute::Debranche, 0}});
  ArreteMouvement();
  EXPECT_LT(heure_, 10);
  ChampsTable champs = Chargt_Table("Essai");
  Change(champs, "TB_SAV_18", "444");
  FermeTableFenetre("Essai", champs);
  EXPECT_EQ(Cle("Essai", "TB_SAV_18"), "444") << "the table is saved all the same";
}

TEST_F(ParamMachine, TheTableIsSavedAndGoesToTheBoard) {
  ChampsTable champs = Chargt_Table("Essai");
  Change(champs, "TB_SAV_15", "33");
  Attend("erreurs", "2", Reponse::Oui);
  FermeTableFenetre("Essai", champs);
  EXPECT_EQ(Cle("Essai", "TB_SAV_15"), "33");
  EXPECT_EQ(VitesseMaxX, 33);
  EXPECT_TRUE(CdeZENIK->TableVerif()) << "no question: the board has it";
}

TEST_F(ParamMachine, ASettingsFileThatCantBeWrittenIsToldAndItGoesOn) {
  ChampsTable champs = Chargt_Table("Essai");
  Change(champs, "TB_SAV_18", "888");
  const std::string ini = Dossier() + "/OVELIN.ini";
  std::filesystem::permissions(ini, std::filesystem::perms::owner_read);
  Attend("F_Representation", "lib125");
  FermeTableFenetre("Essai", champs);
  std::filesystem::permissions(ini, std::filesystem::perms::owner_all);
  EXPECT_EQ(Cle("Essai", "TB_SAV_18"), "");
  EXPECT_EQ(Boites().back().fichier, ini);
}

}  // namespace
}  // namespace essai
