#include <filesystem>

#include "machine/essais/Module_Test.h"
#include "tests/unit/machine/essais/BancEssai.h"

namespace essai {
namespace {

class EnvoiRecord : public BancEssai {};

TEST_F(EnvoiRecord, ShowsTheSpeedAtWhichTheMoveMayBegin) {
  EXPECT_EQ(VitesseDebutTest({{"3", "-4", "0"}, "2"}), "5.00") << "1 s at 4 mm/s in Y, 5 mm of way";
  EXPECT_EQ(VitesseDebutTest({{"3", "", "0"}, "2"}), "");
}

TEST_F(EnvoiRecord, SendsOneRecordThatIsNotStarted) {
  const ResultatTest r = CB_Envoi({{"-1", "2", "0"}, "2"});
  EXPECT_TRUE(r.envoye);
  EXPECT_EQ(carte_->Compteurs().acceptes, 1);
  EXPECT_EQ(carte_->Compteurs().pas, zenikcom::Axes3{}) << "nothing moves";
  EXPECT_EQ(r.temps, "1.118") << "the root of 5 mm at 2 mm/s";
  EXPECT_EQ(r.retour, "") << "bytes show in debug mode alone";
}

// 1 mm is 100 steps, 200 edges (C8); 2 mm are 400 edges (0190). At 2 mm/s 1.118 s are 22361 ticks at 20,000 a
// second.
TEST_F(EnvoiRecord, ShowsTheBytesInDebugMode) {
  const auto avant = std::filesystem::current_path();
  std::filesystem::current_path(Dossier());
  Regl.DebugZENIK = true;
  Svc.Montre = [](const BoiteMessage&) { return Reponse::Ok; };
  const ResultatTest r = CB_Envoi({{"-1", "2", "0"}, "2"});
  std::filesystem::current_path(avant);
  EXPECT_EQ(r.retour, "00 44 07 59570000 C8000000 90010000 00000000 00000000 00000000 00 00 00000000");
}

TEST_F(EnvoiRecord, WithoutABoardSaysSo) {
  CdeZENIK = std::make_unique<ClsCdeZENIK>();
  Attend("F_Test", "lib001");
  const ResultatTest r = CB_Envoi({{"3", "4", "0"}, "2"});
  EXPECT_FALSE(r.envoye);
  EXPECT_EQ(r.VDeb, "5.00") << "shown all the same";
}

TEST_F(EnvoiRecord, ALostLinkIsTold) {
  aChaqueTour_ = [] {};
  carte_->Fautes({{carte_->Compteurs().echanges + 8, zenikcom::GenreFaute::Avant, 0}});
  for (int i = 0; i < 3; ++i) {
    // wherever in the check or in the opening it falls, nothing hangs and no record is sent twice
    Svc.Montre = [](const BoiteMessage&) { return Reponse::Ok; };
    CB_Envoi({{"1", "0", "0"}, "2"});
  }
  EXPECT_LE(carte_->Compteurs().acceptes, 1);
}

TEST_F(EnvoiRecord, NeedsEveryNumber) {
  EXPECT_TRUE(SaisieComplete({{"1", "0", "-2"}, "2"}));
  EXPECT_FALSE(SaisieComplete({{"1", "", "-2"}, "2"}));
  EXPECT_FALSE(SaisieComplete({{"1", "0", "-2"}, ""}));
}

}  // namespace
}  // namespace essai
